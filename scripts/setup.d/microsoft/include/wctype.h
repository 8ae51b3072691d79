#pragma once
// libc++'s locales call functions of the universal C runtime that Wine's header does not declare.
#include_next <wctype.h>

#include <corecrt.h>

#ifdef __cplusplus
extern "C" {
#endif
int __cdecl _iswcntrl_l(wint_t, _locale_t);
int __cdecl _iswxdigit_l(wint_t, _locale_t);
#ifdef __cplusplus
}
#endif
