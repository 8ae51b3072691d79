#pragma once

#include <windows.h>

/// What the start of a DLL and of a program share, and what of the universal C runtime no header declares.

extern "C" {

using Initializer = void(__cdecl*)();
using CheckedInitializer = int(__cdecl*)();

struct ExitFunctions {
    void** first;
    void** last;
    void** end;
};

int __cdecl _initialize_onexit_table(ExitFunctions* table);
int __cdecl _register_onexit_function(ExitFunctions* table, CheckedInitializer function);
int __cdecl _execute_onexit_table(ExitFunctions* table);
int __cdecl _crt_atexit(Initializer function);
void __cdecl _initterm(Initializer* first, Initializer* last);
int __cdecl _initterm_e(CheckedInitializer* first, CheckedInitializer* last);
int __cdecl _configure_narrow_argv(int mode);
int __cdecl _initialize_narrow_environment();
int* __cdecl __p___argc();
char*** __cdecl __p___argv();
void __cdecl _set_app_type(int type);
char* __cdecl _get_narrow_winmain_command_line();
[[noreturn]] void __cdecl exit(int code);
}

namespace start {

/// What a DLL registered with atexit runs when the DLL leaves; what a program registered is the runtime's.
extern ExitFunctions exitFunctions;
extern bool isDll;

/// Runs the constructors of the module's globals; false if an initializer refused.
bool initialize();

/// The same for a program, after the runtime has taken its arguments apart; ends the program if refused.
void beginProgram(int type);

}  // namespace start
