#include "GuardedHeap.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "GuardedBlocks.h"
#include "ImportTable.h"

namespace qel::test {

namespace {

constexpr std::size_t kUsualAlignment = 16;
constexpr std::size_t kLargestAlignment = 4096;
constexpr UINT kFaultExitCode = 3;

/// Modules whose allocations are served, and modules that may free what those have allocated.
constexpr std::array kServed = {"QelDisplay64t.dll", "QelGeometry64t.dll", "QelBase64t.dll",
                                "libstdc++-6.dll"};
constexpr std::array kFreeing = {"libgcc_s_seh-1.dll", "libwinpthread-1.dll", "Qt5Core.dll"};

/// Whether each module has a C++ library of its own in it: then what the program takes with operator new comes
/// through the program's own imports.
#if defined(_MSC_VER)
constexpr bool kLibraryInEachModule = true;
#else
constexpr bool kLibraryInEachModule = false;
#endif

struct Service {
    std::atomic<bool> serves = false;
    std::atomic<std::size_t> alignment = kUsualAlignment;
    std::atomic<std::size_t> served = 0;
    std::atomic<std::size_t> unguarded = 0;
    /// Allocations of the thread `refusedThread` up to the one that is refused; 0 for none.
    std::atomic<std::size_t> untilRefusal = 0;
    std::atomic<DWORD> refusedThread = 0;
    std::atomic<bool> refused = false;
    /// Larger requests are refused, whoever makes them.
    std::atomic<std::size_t> largestServed = SIZE_MAX;
    std::atomic<std::size_t> largestRefused = 0;
};

Service service;

/// The functions of the C runtime that stand behind the hooks.
struct Originals {
    void* (*allocate)(std::size_t) = nullptr;
    void* (*allocateZeroed)(std::size_t, std::size_t) = nullptr;
    void* (*resize)(void*, std::size_t) = nullptr;
    void (*free)(void*) = nullptr;
    void* (*allocateAligned)(std::size_t, std::size_t) = nullptr;
    void (*freeAligned)(void*) = nullptr;
    std::size_t (*size)(void*) = nullptr;
};

Originals original;

bool refusesThisOne(std::size_t size) {
    if (size > service.largestServed) {
        service.largestRefused = std::max(service.largestRefused.load(), size);
        return true;
    }
    if (service.untilRefusal == 0 || service.refusedThread != GetCurrentThreadId() ||
        --service.untilRefusal > 0) {
        return false;
    }
    service.refused = true;
    return true;
}

void* served(std::size_t size, std::size_t alignment) {
    if (!service.serves.load()) {
        return nullptr;
    }
    void* const block = alignment <= kLargestAlignment ? guarded::allocate(size, alignment) : nullptr;
    ++(block != nullptr ? service.served : service.unguarded);
    return block;
}

/// Faults, so that freeing twice or freeing the middle of a block ends where it happens.
void refuseToFree(void* block) {
    *static_cast<volatile unsigned char*>(block) = 0;
    std::abort();
}

bool releasedHere(void* block) {
    if (!guarded::isHere(block)) {
        return false;
    }
    if (!guarded::release(block)) {
        refuseToFree(block);
    }
    return true;
}

void* hookMalloc(std::size_t size) {
    if (refusesThisOne(size)) {
        return nullptr;
    }
    void* const block = served(size, service.alignment);
    return block != nullptr ? block : original.allocate(size);
}

/// Pages that are new hold zeros.
void* hookCalloc(std::size_t count, std::size_t size) {
    const bool fits = size == 0 || count <= SIZE_MAX / size;
    if (refusesThisOne(fits ? count * size : SIZE_MAX)) {
        return nullptr;
    }
    void* const block = fits ? served(count * size, service.alignment) : nullptr;
    return block != nullptr ? block : original.allocateZeroed(count, size);
}

void* hookRealloc(void* block, std::size_t size) {
    if (block == nullptr) {
        return hookMalloc(size);
    }
    if (!guarded::isHere(block)) {
        return original.resize(block, size);
    }
    void* const moved = size == 0 ? nullptr : hookMalloc(size);
    if (moved != nullptr) {
        std::memcpy(moved, block, std::min(size, guarded::sizeOf(block)));
    }
    if (moved != nullptr || size == 0) {
        releasedHere(block);
    }
    return moved;
}

void hookFree(void* block) {
    if (!releasedHere(block)) {
        original.free(block);
    }
}

void* hookAlignedMalloc(std::size_t size, std::size_t alignment) {
    if (refusesThisOne(size)) {
        return nullptr;
    }
    void* const block = served(size, std::max(alignment, service.alignment.load()));
    return block != nullptr ? block : original.allocateAligned(size, alignment);
}

void hookAlignedFree(void* block) {
    if (!releasedHere(block)) {
        original.freeAligned(block);
    }
}

std::size_t hookSize(void* block) {
    return guarded::isHere(block) ? guarded::sizeOf(block) : original.size(block);
}

struct HeapHook {
    const char* name;
    void* hook;
    void** original;
    bool allocates;
};

template <class Function>
HeapHook heapHook(const char* name, Function* hook, Function** keep, bool allocates) {
    return {name, reinterpret_cast<void*>(hook), reinterpret_cast<void**>(keep), allocates};
}

const std::array<HeapHook, 7>& heapHooks() {
    static const std::array<HeapHook, 7> hooks = {
        heapHook("malloc", &hookMalloc, &original.allocate, true),
        heapHook("calloc", &hookCalloc, &original.allocateZeroed, true),
        heapHook("realloc", &hookRealloc, &original.resize, false),
        heapHook("free", &hookFree, &original.free, false),
        heapHook("_aligned_malloc", &hookAlignedMalloc, &original.allocateAligned, true),
        heapHook("_aligned_free", &hookAlignedFree, &original.freeAligned, false),
        heapHook("_msize", &hookSize, &original.size, false),
    };
    return hooks;
}

/// The hooks stay to the end of the process, because guarded blocks may be freed at any later time.
ImportPatches& heapPatches() {
    static auto* const patches = new ImportPatches;
    return *patches;
}

void hookImports(HMODULE module, bool serves) {
    for (const Import& import : importsOf(module)) {
        for (const HeapHook& hook : heapHooks()) {
            if (import.name == hook.name && (serves || !hook.allocates) && *import.slot != hook.hook) {
                *hook.original = *import.slot;
                heapPatches().redirect(import, hook.hook);
            }
        }
    }
}

void hookModules() {
    for (const char* const name : kServed) {
        if (HMODULE const module = GetModuleHandleA(name)) {
            hookImports(module, true);
        }
    }
    for (const char* const name : kFreeing) {
        if (HMODULE const module = GetModuleHandleA(name)) {
            hookImports(module, false);
        }
    }
    hookImports(GetModuleHandleA(nullptr), kLibraryInEachModule);
}

/// Says which block a fault belongs to and ends the process. Takes no memory.
LONG CALLBACK describeFault(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    const auto* const address = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
    if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION || !guarded::isHere(address)) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    const guarded::Place place = guarded::placeOf(address);
    const auto size = static_cast<long long>(place.size);
    const long long from = address - static_cast<const char*>(place.block);
    const bool behind = from >= size;
    static char text[200];
    const int length = std::snprintf(
        text, sizeof(text), "GuardedHeap: %s at byte %lld behind the %s of a %sblock of %lld bytes\n",
        record.ExceptionInformation[0] == 0 ? "read" : "write", behind ? from - size : from,
        behind ? "end" : "start", place.freed ? "freed " : "", size);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text, static_cast<DWORD>(length), &written, nullptr);
    // At once: a debugger that the system may start would only wait for somebody.
    TerminateProcess(GetCurrentProcess(), kFaultExitCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

void* faultDescriber = nullptr;

CONTEXT beforeBody;
std::atomic<bool> bodyFaulted = false;

/// Goes on where faultsIn stood before it ran the body.
LONG CALLBACK goBack(EXCEPTION_POINTERS* exception) {
    if (exception->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    bodyFaulted = true;
    *exception->ContextRecord = beforeBody;
    return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

GuardedHeap::GuardedHeap(BlockEnd end) {
    guarded::liveBlocks();
    hookModules();
    outer = {service.serves, service.alignment, service.served.exchange(0), service.unguarded.exchange(0)};
    service.alignment = end == BlockEnd::kExact ? 1 : kUsualAlignment;
    if (!outer.serves) {
        faultDescriber = AddVectoredExceptionHandler(0, &describeFault);
    }
    service.serves = true;
}

GuardedHeap::~GuardedHeap() {
    service.untilRefusal = 0;
    service.largestServed = SIZE_MAX;
    service.alignment = outer.alignment;
    service.served += outer.served;
    service.unguarded += outer.unguarded;
    service.serves = outer.serves;
    if (!outer.serves) {
        RemoveVectoredExceptionHandler(faultDescriber);
    }
}

bool GuardedHeap::isAlive() {
    return service.serves;
}

void GuardedHeap::refuse(std::size_t nth) {
    service.refused = false;
    service.refusedThread = GetCurrentThreadId();
    service.untilRefusal = nth;
}

bool GuardedHeap::hasRefused() const {
    return service.refused;
}

void GuardedHeap::refuseAbove(std::size_t bytes) {
    service.largestRefused = 0;
    service.largestServed = bytes;
}

std::size_t GuardedHeap::largestRefused() const {
    return service.largestRefused;
}

std::size_t GuardedHeap::servedBlocks() const {
    return service.served;
}

std::size_t GuardedHeap::unguardedBlocks() const {
    return service.unguarded;
}

std::size_t GuardedHeap::liveBlocks() {
    return guarded::liveBlocks();
}

std::size_t GuardedHeap::liveBytes() {
    return guarded::liveBytes();
}

std::size_t GuardedHeap::damagedBlocks() {
    return guarded::damagedBlocks();
}

bool GuardedHeap::guards(const void* address) {
    return guarded::isBlock(address);
}

std::size_t GuardedHeap::sizeOf(const void* block) {
    return guarded::sizeOf(block);
}

bool faultsIn(const std::function<void()>& body) {
    bodyFaulted = false;
    void* const handler = AddVectoredExceptionHandler(1, &goBack);
    RtlCaptureContext(&beforeBody);
    if (!bodyFaulted) {
        body();
    }
    RemoveVectoredExceptionHandler(handler);
    return bodyFaulted;
}

}  // namespace qel::test
