#pragma once
// libc++'s locales call functions of the universal C runtime that Wine's header does not declare.
#include_next <ctype.h>

#include <corecrt.h>

#ifdef __cplusplus
extern "C" {
#endif
int __cdecl _islower_l(int, _locale_t);
int __cdecl _isupper_l(int, _locale_t);
int __cdecl _isxdigit_l(int, _locale_t);
int __cdecl _isdigit_l(int, _locale_t);
int __cdecl _iscntrl_l(int, _locale_t);
const unsigned short* __cdecl __pctype_func(void);
#ifdef __cplusplus
}
#endif
