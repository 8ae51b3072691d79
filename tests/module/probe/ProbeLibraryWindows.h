#pragma once

#include <windows.h>

#include <initializer_list>

/// The library under test, as the scenes load it themselves.

inline constexpr wchar_t kLibrary[] = L"QelDisplay64t.dll";

/// The C runtime that the library stands on.
#if defined(_UCRT) || defined(_MSC_VER)
inline constexpr char kRuntime[] = "ucrtbase.dll";
#else
inline constexpr char kRuntime[] = "msvcrt.dll";
#endif

/// What the library stands on, so that only the library itself is led to a stand-in.
inline void loadFoundations() {
    for (const wchar_t* const name : {L"QelGeometry64t.dll", L"Qt5Core.dll", L"glu32.dll", L"opengl32.dll"}) {
        LoadLibraryW(name);
    }
}

/// A function that a library exports.
template <class Function>
Function exported(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

/// The same for the library under its own name.
template <class Function>
Function exported(const char* name) {
    return exported<Function>(GetModuleHandleW(kLibrary), name);
}
