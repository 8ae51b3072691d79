#pragma once
// libc++ calls functions of the universal C runtime that Wine's header does not declare.
#include_next <wchar.h>
#ifndef QEL_WCHAR
#define QEL_WCHAR
#include <stdarg.h>

#ifdef __cplusplus
extern "C" {
#endif
double __cdecl wcstod(const wchar_t*, wchar_t**);
static inline long double wcstold(const wchar_t* text, wchar_t** end) {
    return wcstod(text, end);
}
int __cdecl wcrtomb_s(size_t*, char*, size_t, wchar_t, mbstate_t*);
#ifdef __cplusplus
}
#endif
#endif
