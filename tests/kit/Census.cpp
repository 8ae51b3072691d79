#include "Census.h"

#include <windows.h>
#include <winternl.h>

#include <array>
#include <cstdint>
#include <ostream>
#include <vector>

#include "CallRecord.h"
#include "CallTrace.h"

namespace qel::test {

namespace {

/// The table of GDI handles that each process sees, at a fixed place of its environment block. Read only
/// where the system does not count for us.
struct GdiTableEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;  ///< zero if the entry is free
    std::uint8_t flags;
    std::uint64_t data;
};

constexpr std::size_t kGdiTableEntries = 0x10000;
constexpr std::size_t kGdiTableOffset = 0xF8;

int gdiHandlesInTable() {
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof(process),
                              nullptr);
    const auto* const environment = reinterpret_cast<const char*>(process.PebBaseAddress);
    const auto* const entries = *reinterpret_cast<const GdiTableEntry* const*>(environment + kGdiTableOffset);
    int count = 0;
    for (std::size_t i = 0; entries != nullptr && i < kGdiTableEntries; ++i) {
        count += entries[i].type != 0 ? 1 : 0;
    }
    return count;
}

BOOL CALLBACK countOwnWindow(HWND window, LPARAM counter) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) {
        ++*reinterpret_cast<int*>(counter);
    }
    return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM counter) {
    countOwnWindow(window, counter);
    EnumChildWindows(window, &countOwnWindow, counter);
    return TRUE;
}

int windowsOfTheProcess() {
    int count = 0;
    const auto counter = reinterpret_cast<LPARAM>(&count);
    EnumWindows(&countWithChildren, counter);
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
        countWithChildren(window, counter);
    }
    return count;
}

int orElse(DWORD counted, int (*otherwise)()) {
    return counted != 0 ? static_cast<int>(counted) : otherwise();
}

void addHeap(HANDLE heap, MemoryCensus& census) {
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry) != FALSE) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
            census.heapBytes += entry.cbData;
            ++census.heapBlocks;
        }
    }
    HeapUnlock(heap);
}

std::size_t committedPrivateBytes() {
    std::size_t bytes = 0;
    const char* address = nullptr;
    MEMORY_BASIC_INFORMATION region{};
    while (VirtualQuery(address, &region, sizeof(region)) != 0) {
        bytes += region.State == MEM_COMMIT && region.Type == MEM_PRIVATE ? region.RegionSize : 0;
        address = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
    return bytes;
}

}  // namespace

Census Census::now() {
    const CallTrace::Pause unrecorded;
    keepHooks({Traced::k_wglCreateContext, Traced::k_wglDeleteContext, Traced::k_GetDC, Traced::k_ReleaseDC});
    Census census;
    census.gdiHandles = orElse(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), &gdiHandlesInTable);
    census.userHandles = orElse(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), &windowsOfTheProcess);
    census.glContexts = heldObjects().glContexts;
    census.windowDcs = heldObjects().windowDcs;
    return census;
}

std::ostream& operator<<(std::ostream& stream, const Census& census) {
    return stream << census.gdiHandles << " GDI handles, " << census.userHandles << " USER handles, "
                  << census.glContexts << " OpenGL contexts, " << census.windowDcs
                  << " device contexts of windows";
}

MemoryCensus MemoryCensus::now() {
    MemoryCensus census;
    census.committedBytes = committedPrivateBytes();
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    for (HANDLE const heap : heaps) {
        addHeap(heap, census);
    }
    return census;
}

std::ostream& operator<<(std::ostream& stream, const MemoryCensus& census) {
    return stream << census.committedBytes << " bytes committed, " << census.heapBytes << " bytes in "
                  << census.heapBlocks << " blocks of the heaps";
}

}  // namespace qel::test
