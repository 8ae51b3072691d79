#include <windows.h>

/// The load entry of a DLL without one of its own: the linker takes it from the library only then.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD /*reason*/, LPVOID /*reserved*/) {
    return TRUE;
}
