#include "Start.h"

/// The entry that the linker writes into a program with windows.
extern "C" int WinMainCRTStartup() {
    constexpr int kWithWindows = 2;
    start::beginProgram(kWithWindows);
    exit(WinMain(GetModuleHandleW(nullptr), nullptr, _get_narrow_winmain_command_line(), SW_SHOWDEFAULT));
}
