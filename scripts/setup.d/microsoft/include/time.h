#pragma once
// libc++ needs timespec and the locale's strftime, Qt the time zone, GoogleTest localtime_s: Wine's header
// has none of them.
#include_next <time.h>
#ifndef QEL_TIME
#define QEL_TIME
#include <corecrt.h>

struct timespec {
    time_t tv_sec;
    long tv_nsec;
};

#ifdef __cplusplus
extern "C" {
#endif
size_t __cdecl _strftime_l(char*, size_t, const char*, const struct tm*, _locale_t);
int __cdecl _get_timezone(__msvcrt_long*);
int __cdecl _get_daylight(int*);
int __cdecl _get_tzname(size_t*, char*, size_t, int);
int __cdecl _localtime64_s(struct tm*, const __int64*);
#ifndef localtime_s
static inline int localtime_s(struct tm* to, const time_t* from) {
    return _localtime64_s(to, from);
}
#endif
#ifdef __cplusplus
}
#endif
#endif
