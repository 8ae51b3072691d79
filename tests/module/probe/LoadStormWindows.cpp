#include <windows.h>

#include <atomic>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "ExportStandInWindows.h"
#include "ProbeLibraryWindows.h"
#include "ProbeScenes.h"
#include "QelDisplay64t.h"
#include "kit/OpenHandles.h"

namespace {

constexpr int kMoments = 6000;

int hurryOfTheSleep = 1;

void WINAPI sleepInAHurry(DWORD milliseconds) {
    // This program's own import still leads to the original.
    Sleep(milliseconds / static_cast<DWORD>(hurryOfTheSleep));
}

/// A copy of the library, which is another library to the loader.
std::wstring copyOfTheLibrary(int number) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path(program);
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    std::wstring copy = std::wstring(folder) + L"qel-copy-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                        std::to_wstring(number) + L".dll";
    CopyFileW((path.substr(0, path.find_last_of(L"\\/") + 1) + kLibrary).c_str(), copy.c_str(), FALSE);
    return copy;
}

/// What the threads of the storm share.
struct Storm {
    explicit Storm(int cycles) : left(cycles) {}

    std::atomic<int> left;
    std::atomic<int> loads = 0;
    std::atomic<int> reloads = 0;  ///< while the thread of the load before still held the library
    std::atomic<int> failures = 0;
};

/// Makes one of everything, and a use of the public symbol.
bool works(HMODULE library) {
    const auto newDisplay = exported<IQelDisplay* (*)()>(library, "newScreenDisplay");
    const auto newFlat = exported<IQelScrDisplay2D* (*)()>(library, "newGDIScrDisplay");
    const auto newSymbol = exported<IQelSymbol* (*)()>(library, "newQelSymbol");
    // A smart pointer is returned through a place of the caller's.
    using Slot = IQelSymbol*;
    const auto publicSymbol = exported<Slot* (*)(Slot*)>(library, "getPubSymbol");
    if (newDisplay == nullptr || newFlat == nullptr || newSymbol == nullptr || publicSymbol == nullptr) {
        return false;
    }
    newDisplay()->Release();
    newFlat()->Release();
    IQelSymbol* const symbol = newSymbol();
    symbol->AddRef();
    symbol->Release();
    Slot shared = nullptr;
    publicSymbol(&shared);
    const bool found = shared != nullptr;
    if (found) {
        shared->Release();
    }
    return found;
}

/// Waits until the library has left the process; false if it stays.
bool leaves(const std::wstring& name) {
    constexpr int kLongest = 20000;
    for (int waited = 0; waited < kLongest; waited += 10) {
        if (GetModuleHandleW(name.c_str()) == nullptr) {
            return true;
        }
        Sleep(10);
    }
    return false;
}

/// One copy's part of the storm.
void loadAgainAndAgain(Storm& storm, const std::wstring& name, unsigned seed) {
    std::mt19937 chance(seed);
    while (storm.left.fetch_sub(1) > 0) {
        const bool isHeld = GetModuleHandleW(name.c_str()) != nullptr;
        HMODULE const library = LoadLibraryW(name.c_str());
        if (library == nullptr || !works(library)) {
            ++storm.failures;
            continue;
        }
        ++storm.loads;
        storm.reloads += isHeld ? 1 : 0;
        Sleep(chance() % static_cast<unsigned>(kMoments / hurryOfTheSleep));
        FreeLibrary(library);
        if (chance() % 2 == 0 && !leaves(name)) {
            ++storm.failures;
        }
    }
    storm.failures += leaves(name) ? 0 : 1;
}

void play(Storm& storm, const std::vector<std::wstring>& names, unsigned seed) {
    std::vector<std::thread> threads;
    threads.reserve(names.size());
    for (const std::wstring& name : names) {
        threads.emplace_back([&storm, &name, seed] { loadAgainAndAgain(storm, name, seed); });
        ++seed;
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

long blocksOf(HANDLE heap) {
    long blocks = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != FALSE) {
        blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    }
    HeapUnlock(heap);
    return blocks;
}

/// Handles and blocks of all heaps of the process.
struct Held {
    int handles = 0;
    long blocks = 0;

    static Held now() {
        Sleep(100);
        Held held;
        held.handles = qel::test::openHandles();
        std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
        heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
        for (HANDLE const heap : heaps) {
            held.blocks += blocksOf(heap);
        }
        return held;
    }
};

}  // namespace

int loadStorm(int cycles, int copies, unsigned seed, int hurry) {
    loadFoundations();
    hurryOfTheSleep = hurry;
    std::unique_ptr<ExportStandIn> sleep;
    if (hurry > 1) {
        sleep =
            std::make_unique<ExportStandIn>("kernel32.dll", "Sleep", reinterpret_cast<void*>(&sleepInAHurry));
    }
    std::vector<std::wstring> names;
    for (int number = 0; number < copies; ++number) {
        names.push_back(copyOfTheLibrary(number));
    }
    Storm first(copies);
    play(first, names, seed);
    const Held before = Held::now();
    Storm storm(cycles);
    play(storm, names, seed + 1000);
    const Held after = Held::now();
    for (const std::wstring& name : names) {
        DeleteFileW(name.c_str());
    }
    std::printf("loads %d, reloads %d, failures %d, handles %d to %d, blocks %ld to %ld\n",
                storm.loads.load(), storm.reloads.load(), first.failures + storm.failures, before.handles,
                after.handles, before.blocks, after.blocks);
    return 28;
}
