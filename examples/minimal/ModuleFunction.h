#pragma once

/// MODULE_FUNCTION(name): a function that the module exports; through its import library, or looked up by the
/// program itself for hosts that load the module when they need it.
#ifdef QELMINIMAL_LOADS_THE_MODULE

#include <windows.h>

template <class Function>
Function* findInModule(const char* name) {
    static HMODULE const module = LoadLibraryW(L"QelDisplay64t.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
#define MODULE_FUNCTION(name) findInModule<decltype(name)>(#name)

#else

#define MODULE_FUNCTION(name) name

#endif
