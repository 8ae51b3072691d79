#include <process.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "PublicSymbol.h"
#include "QelDisplay64t.h"
#include "QelSystem.h"

namespace {

constexpr DWORD kSleepMilliseconds = 5500;

/// The universal C runtime holds the library of a thread function itself, and releases it in its own code when
/// the function returns. msvcrt.dll does not.
#if defined(_UCRT) || defined(_MSC_VER)
constexpr bool kRuntimeHoldsLibrary = true;
#else
constexpr bool kRuntimeHoldsLibrary = false;
#endif

/// What the sleeping thread holds: the library, so that its code stays mapped, and its own handle.
HMODULE heldLibrary = nullptr;
std::uintptr_t sleepThread = 0;

void sleepAndLeave(void* /*unused*/) {
    Sleep(kSleepMilliseconds);
    if constexpr (kRuntimeHoldsLibrary) {
        // Not the last reference. FreeLibraryAndExitThread would skip the runtime's own release, and the library
        // would never unload.
        FreeLibrary(heldLibrary);
    } else {
        // The runtime closes a thread's handle when the thread function returns; this one cannot return, since
        // releasing the library may unmap its code.
        CloseHandle(reinterpret_cast<HANDLE>(sleepThread));  // NOLINT(performance-no-int-to-ptr)
        FreeLibraryAndExitThread(heldLibrary, 0);
    }
}

void startSleepThread() {
    // Without a reference to the library the thread could wake up in unmapped code.
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&sleepAndLeave),
                           &heldLibrary) == FALSE) {
        return;
    }
    constexpr unsigned kDefaultStack = 0;
    sleepThread = _beginthread(&sleepAndLeave, kDefaultStack, nullptr);
    if (static_cast<std::intptr_t>(sleepThread) < 0) {
        std::exit(0);
    }
}

}  // namespace

/// Called by the loader for every attach and detach of the process and its threads. Each call replaces the
/// public symbol. FALSE refuses the load.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, LPVOID reserved) {
    wchar_t path[MAX_PATH] = {};
    if (GetModuleFileNameW(nullptr, path, MAX_PATH) == 0) {
        std::printf("GetModuleFileName failed (%d)\n", static_cast<int>(GetLastError()));
        return FALSE;
    }
    const bool isDetach = reason == DLL_PROCESS_DETACH;
    const bool processEnds = isDetach && reserved != nullptr;
    if (reason == DLL_PROCESS_ATTACH) {
        startSleepThread();
    } else if (processEnds) {
        // The other threads are gone already, wherever they were.
        qel::unlockPublicSymbolForGood();
    }
    // A detach does not end the calling thread: it is one of the host's or the one that ends the process, and
    // it holds the loader lock, which nobody would then release.
    qel::setPublicSymbol(newQelSymbol());
    // A host may load and unload the library for weeks; at process exit the system frees the memory.
    if (isDetach && !processEnds) {
        qel::setPublicSymbol(nullptr);
    }
    return TRUE;
}
