#include "ExportStandInWindows.h"

#include <cstdint>
#include <cstring>

namespace {

template <class T>
T* at(HMODULE module, std::size_t offset) {
    return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(module) + offset);
}

/// The place where the library says how far behind its beginning the function stands, or null.
DWORD* exportEntry(HMODULE library, const char* name) {
    const auto* const dos = at<const IMAGE_DOS_HEADER>(library, 0);
    const auto* const headers = at<const IMAGE_NT_HEADERS>(library, static_cast<std::size_t>(dos->e_lfanew));
    const DWORD offset = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
    const auto* const directory = at<const IMAGE_EXPORT_DIRECTORY>(library, offset);
    const auto* const names = at<const DWORD>(library, directory->AddressOfNames);
    const auto* const ordinals = at<const WORD>(library, directory->AddressOfNameOrdinals);
    for (DWORD i = 0; i < directory->NumberOfNames; ++i) {
        if (std::strcmp(at<const char>(library, names[i]), name) == 0) {
            return at<DWORD>(library, directory->AddressOfFunctions) + ordinals[i];
        }
    }
    return nullptr;
}

void write(DWORD* place, DWORD value) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof(DWORD), PAGE_READWRITE, &protection);
    *place = value;
    VirtualProtect(place, sizeof(DWORD), protection, &protection);
}

/// A jump to the function, within the 4 GB behind the library that its table can name.
void* jumpBehind(HMODULE library, void* function) {
    constexpr std::uintptr_t kStep = 0x10000;
    constexpr std::uintptr_t kReach = 0xF0000000;
    constexpr SIZE_T kPage = 4096;
    const auto begin = reinterpret_cast<std::uintptr_t>(library);
    for (std::uintptr_t place = begin + kStep; place < begin + kReach; place += kStep) {
        void* const page = VirtualAlloc(reinterpret_cast<void*>(place), kPage, MEM_RESERVE | MEM_COMMIT,
                                        PAGE_EXECUTE_READWRITE);
        if (page != nullptr) {
            // mov rax, function; jmp rax
            unsigned char code[] = {0x48, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xE0};
            std::memcpy(code + 2, &function, sizeof function);
            std::memcpy(page, code, sizeof code);
            return page;
        }
    }
    return nullptr;
}

}  // namespace

ExportStandIn::ExportStandIn(const char* library, const char* name, void* standIn) {
    HMODULE const module = LoadLibraryA(library);
    DWORD* const found = module != nullptr ? exportEntry(module, name) : nullptr;
    void* const jump = found != nullptr ? jumpBehind(module, standIn) : nullptr;
    if (jump == nullptr) {
        return;
    }
    entry = found;
    original = *entry;
    write(entry, static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(jump) -
                                    reinterpret_cast<std::uintptr_t>(module)));
}

ExportStandIn::~ExportStandIn() {
    if (entry != nullptr) {
        write(entry, original);
    }
}
