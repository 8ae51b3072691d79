#include "Start.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

/// The entry that the linker writes into a DLL.
BOOL WINAPI _DllMainCRTStartup(HINSTANCE module, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_ATTACH) {
        start::isDll = true;
        _initialize_onexit_table(&start::exitFunctions);
        if (!start::initialize()) {
            return FALSE;
        }
    }
    const BOOL accepted = DllMain(module, reason, reserved);
    if (reason == DLL_PROCESS_DETACH || (reason == DLL_PROCESS_ATTACH && accepted == FALSE)) {
        _execute_onexit_table(&start::exitFunctions);
    }
    return accepted;
}
}
