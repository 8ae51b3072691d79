#include "ProbeScenes.h"

#include <windows.h>
// After the header that it depends on.
#include <process.h>
#include <tlhelp32.h>

#include <atomic>
#include <cstdint>
#include <cstdio>

#include "ExportStandInWindows.h"
#include "ProbeLibraryWindows.h"
#include "QelDisplay64t.h"
#include "kit/OpenHandles.h"

namespace {

constexpr int kFailed = 90;

bool isLoaded(const wchar_t* library = kLibrary) {
    return GetModuleHandleW(library) != nullptr;
}

/// Milliseconds until the library has left the process, or -1 if it stays.
long waitUntilUnloaded(const wchar_t* library = kLibrary) {
    constexpr DWORD kLongest = 12000;
    const DWORD start = GetTickCount();
    while (isLoaded(library)) {
        if (GetTickCount() - start > kLongest) {
            return -1;
        }
        Sleep(5);
    }
    return static_cast<long>(GetTickCount() - start);
}

int countThreads() {
    HANDLE const snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    int count = 0;
    for (BOOL found = Thread32First(snapshot, &thread); found != FALSE;
         found = Thread32Next(snapshot, &thread)) {
        count += thread.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    CloseHandle(snapshot);
    return count;
}

std::atomic<DWORD> sleptMilliseconds = 0;

void WINAPI sleepShortly(DWORD milliseconds) {
    constexpr DWORD kShort = 20;
    sleptMilliseconds = milliseconds;
    // This program's own import still leads to the original.
    Sleep(kShort);
}

DWORD WINAPI noPath(HMODULE /*module*/, LPWSTR /*path*/, DWORD /*size*/) {
    SetLastError(ERROR_ACCESS_DENIED);
    return 0;
}

std::uintptr_t noThread(void (*)(void*), unsigned, void*) {
    return static_cast<std::uintptr_t>(-1);
}

BOOL WINAPI noHandle(DWORD /*flags*/, LPCWSTR /*address*/, HMODULE* /*module*/) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return FALSE;
}

std::atomic<int> threadsStarted = 0;

std::uintptr_t watchedThread(void (*function)(void*), unsigned stack, void* argument) {
    ++threadsStarted;
    std::printf("thread with stack %u and argument %p\n", stack, argument);
    return _beginthread(function, stack, argument);
}

}  // namespace

int loadAndUnload() {
    HMODULE const library = LoadLibraryW(kLibrary);
    if (library == nullptr) {
        return kFailed;
    }
    const int threads = countThreads();
    FreeLibrary(library);
    std::printf("still loaded after FreeLibrary: %d\n", isLoaded() ? 1 : 0);
    const long waited = waitUntilUnloaded();
    const bool afterItsSleep = waited >= 5000 && waited <= 9000;
    std::printf("left after its sleep: %d\n", afterItsSleep ? 1 : 0);
    Sleep(100);
    std::printf("threads less: %d\n", threads - countThreads());
    return 21;
}

int reload(const wchar_t* name, int rounds) {
    loadFoundations();
    const ExportStandIn sleep("kernel32.dll", "Sleep", reinterpret_cast<void*>(&sleepShortly));
    int handlesBefore = 0;
    int handlesAfter = 0;
    int failures = 0;
    for (int round = 0; round < rounds && failures == 0; ++round) {
        HMODULE const library = LoadLibraryW(name);
        failures += library != nullptr ? 0 : 1;
        FreeLibrary(library);
        failures += waitUntilUnloaded(name) < 0 ? 1 : 0;
        if (round == 1 || round == rounds - 1) {
            // The thread has unloaded the library and may still be ending.
            Sleep(100);
            (round == 1 ? handlesBefore : handlesAfter) = qel::test::openHandles();
        }
    }
    std::printf("failures: %d\nhandles more: %d\n", failures, handlesAfter - handlesBefore);
    return 22;
}

int loadWithoutPath() {
    loadFoundations();
    DWORD error = 0;
    bool loaded = false;
    const int threads = countThreads();
    {
        const ExportStandIn path("kernel32.dll", "GetModuleFileNameW", reinterpret_cast<void*>(&noPath));
        loaded = LoadLibraryW(kLibrary) != nullptr;
        error = GetLastError();
    }
    std::printf("loaded: %d, error %lu, threads more: %d\n", loaded ? 1 : 0, error, countThreads() - threads);
    loaded = LoadLibraryW(kLibrary) != nullptr;
    std::printf("loaded later: %d\n", loaded ? 1 : 0);
    return 23;
}

int loadWithoutThread() {
    loadFoundations();
    const ExportStandIn thread(kRuntime, "_beginthread", reinterpret_cast<void*>(&noThread));
    std::printf("loading\n");
    std::fflush(stdout);
    LoadLibraryW(kLibrary);
    std::printf("loaded without its thread\n");
    return 24;
}

int loadWithoutHold() {
    loadFoundations();
    const ExportStandIn hold("kernel32.dll", "GetModuleHandleExW", reinterpret_cast<void*>(&noHandle));
    const ExportStandIn thread(kRuntime, "_beginthread", reinterpret_cast<void*>(&watchedThread));
    HMODULE const library = LoadLibraryW(kLibrary);
    std::printf("loaded: %d\nthreads started: %d\n", library != nullptr ? 1 : 0, threadsStarted.load());
    FreeLibrary(library);
    std::printf("left the process at once: %d\n", isLoaded() ? 0 : 1);
    return 28;
}

int loadAndWatchThread() {
    loadFoundations();
    const ExportStandIn sleep("kernel32.dll", "Sleep", reinterpret_cast<void*>(&sleepShortly));
    const ExportStandIn thread(kRuntime, "_beginthread", reinterpret_cast<void*>(&watchedThread));
    HMODULE const library = LoadLibraryW(kLibrary);
    FreeLibrary(library);
    std::printf("threads started: %d\n", threadsStarted.load());
    std::printf("left the process: %d\n", waitUntilUnloaded() >= 0 ? 1 : 0);
    std::printf("slept for %lu ms\n", sleptMilliseconds.load());
    return 25;
}

int endWithDisplays() {
    LoadLibraryW(kLibrary);
    const auto newDisplay = exported<IQelDisplay* (*)()>("newScreenDisplay");
    const auto newFlat = exported<IQelScrDisplay2D* (*)()>("newGDIScrDisplay");
    for (int i = 0; i < 2; ++i) {
        HWND const window =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 64, 64, nullptr, nullptr, nullptr, nullptr);
        const auto number = qel::handleNumber(window);
        IQelDisplay* const display = newDisplay();
        display->attachWindow(number, false);
        display->setViewSize(64, 64);
        display->beginFrame(0);
        display->finishFrame();
        newFlat()->attachWindow(number);
    }
    std::printf("alive\n");
    return 26;
}

int endWhileThreadsAsk() {
    LoadLibraryW(kLibrary);
    static const auto newSymbol = exported<IQelSymbol* (*)()>("newQelSymbol");
    // The result is a smart pointer, which is returned through a place of the caller's: never given back
    // here.
    using Slot = IQelSymbol*;
    static const auto publicSymbol = exported<Slot* (*)(Slot*)>("getPubSymbol");
    static std::atomic<int> asked = 0;
    for (int i = 0; i < 4; ++i) {
        const auto ask = [](void*) -> unsigned {
            for (;;) {
                Slot symbol = nullptr;
                publicSymbol(&symbol);
                ++asked;
            }
        };
        _beginthreadex(nullptr, 0, ask, nullptr, 0, nullptr);
    }
    while (asked < 1000) {
        Sleep(1);
    }
    std::printf("asking: %d\n", newSymbol != nullptr ? 1 : 0);
    return 27;
}
