#include "ImportTable.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace qel::test {

namespace {

template <class T>
T* at(HMODULE module, std::size_t offset) {
    return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(module) + offset);
}

const IMAGE_NT_HEADERS* headersOf(HMODULE module) {
    const auto* dos = at<const IMAGE_DOS_HEADER>(module, 0);
    return at<const IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string importName(HMODULE module, const IMAGE_THUNK_DATA& lookup) {
    if (IMAGE_SNAP_BY_ORDINAL(lookup.u1.Ordinal)) {
        return {};
    }
    const auto* entry =
        at<const IMAGE_IMPORT_BY_NAME>(module, static_cast<std::size_t>(lookup.u1.AddressOfData));
    return reinterpret_cast<const char*>(entry->Name);
}

/// True if the module at this address is the one that was there when the slot was redirected.
bool isLoaded(HMODULE module) {
    HMODULE found = nullptr;
    const BOOL known = GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(module), &found);
    return known != FALSE && found == module;
}

}  // namespace

std::vector<Import> importsOf(HMODULE module) {
    std::vector<Import> imports;
    const IMAGE_DATA_DIRECTORY& directory =
        headersOf(module)->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.Size == 0) {
        return imports;
    }
    for (const auto* library = at<const IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
         library->FirstThunk != 0; ++library) {
        const std::string libraryName = lowerCase(at<const char>(module, library->Name));
        const auto* lookup = at<const IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* slot = at<void*>(module, library->FirstThunk);
        for (; lookup->u1.AddressOfData != 0; ++lookup, ++slot) {
            imports.push_back({module, libraryName, importName(module, *lookup), slot});
        }
    }
    return imports;
}

std::vector<HMODULE> testedModules() {
    std::vector<HMODULE> modules = {GetModuleHandleA(nullptr)};
    for (const char* name : kTestedLibraries) {
        if (HMODULE const module = GetModuleHandleA(name)) {
            modules.push_back(module);
        }
    }
    return modules;
}

ImportPatches::~ImportPatches() {
    restore();
}

void ImportPatches::redirect(const Import& import, void* replacement) {
    if (*import.slot == replacement) {
        return;
    }
    constexpr std::uintptr_t kPage = 4096;
    const std::uintptr_t page = reinterpret_cast<std::uintptr_t>(import.slot) / kPage * kPage;
    if (page != writablePage) {
        DWORD protection = 0;
        VirtualProtect(reinterpret_cast<void*>(page), kPage, PAGE_READWRITE, &protection);
        writablePage = page;
    }
    patched.push_back({import.importer, import.slot, *import.slot, replacement});
    *import.slot = replacement;
}

void ImportPatches::restore() {
    HMODULE asked = nullptr;
    bool isThere = false;
    std::for_each(patched.rbegin(), patched.rend(), [&](const auto& patch) {
        if (asked != patch.importer) {
            asked = patch.importer;
            isThere = isLoaded(asked);
        }
        if (isThere && *patch.slot == patch.replacement) {
            *patch.slot = patch.original;
        }
    });
    patched.clear();
    writablePage = 0;
}

}  // namespace qel::test
