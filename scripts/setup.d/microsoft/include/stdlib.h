#pragma once
// libc++, Qt and the parser of command lines call functions of the universal C runtime that Wine's header does not declare.
#include_next <stdlib.h>
#ifndef QEL_STDLIB
#define QEL_STDLIB
#ifdef __cplusplus
extern "C" {
#endif
float __cdecl _strtof_l(const char*, char**, _locale_t);
double __cdecl _strtod_l(const char*, char**, _locale_t);
int __cdecl ___mb_cur_max_func(void);
int __cdecl ___mb_cur_max_l_func(_locale_t);
int* __cdecl __sys_nerr(void);
int __cdecl getenv_s(size_t*, char*, size_t, const char*);
int __cdecl _dupenv_s(char**, size_t*, const char*);
int __cdecl _wgetenv_s(size_t*, wchar_t*, size_t, const wchar_t*);
int __cdecl _putenv_s(const char*, const char*);
int __cdecl _wputenv_s(const wchar_t*, const wchar_t*);
unsigned int __cdecl _set_abort_behavior(unsigned int, unsigned int);
#ifdef __cplusplus
}
#endif
#ifndef _sys_nerr
#define _sys_nerr (*__sys_nerr())
#endif
#ifndef MB_CUR_MAX
#define MB_CUR_MAX ___mb_cur_max_func()
#endif
#endif
