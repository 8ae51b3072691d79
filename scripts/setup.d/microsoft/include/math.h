#pragma once
// Wine's macros for the kinds of numbers hide the functions of <cmath>, and its header leaves out most
// functions of long double, which is double here.
#include_next <math.h>
#undef isnan
#undef isinf
#undef isfinite
#undef signbit
#undef isnormal
#undef fpclassify
#undef isunordered
#undef isgreater
#undef isless
#undef isgreaterequal
#undef islessequal
#undef islessgreater
#if defined(__cplusplus) && !defined(QEL_MATH)
#define QEL_MATH
#define QEL_KIND(name)                   \
    inline bool name(float number) {     \
        return __builtin_##name(number); \
    }                                    \
    inline bool name(double number) {    \
        return __builtin_##name(number); \
    }
QEL_KIND(isnan)
QEL_KIND(isinf)
QEL_KIND(isfinite)
QEL_KIND(signbit)
#undef QEL_KIND

extern "C" double __cdecl nan(const char*);
#define QEL_OF_ONE(name)                                    \
    static inline long double name##l(long double number) { \
        return ::name(static_cast<double>(number));         \
    }
#define QEL_OF_TWO(name)                                                        \
    static inline long double name##l(long double first, long double second) {  \
        return ::name(static_cast<double>(first), static_cast<double>(second)); \
    }
QEL_OF_ONE(acos)
QEL_OF_ONE(asin)
QEL_OF_ONE(atan)
QEL_OF_ONE(cbrt)
QEL_OF_ONE(ceil)
QEL_OF_ONE(cos)
QEL_OF_ONE(cosh)
QEL_OF_ONE(exp)
QEL_OF_ONE(fabs)
QEL_OF_ONE(floor)
QEL_OF_ONE(log)
QEL_OF_ONE(log10)
QEL_OF_ONE(log2)
QEL_OF_ONE(round)
QEL_OF_ONE(sin)
QEL_OF_ONE(sinh)
QEL_OF_ONE(sqrt)
QEL_OF_ONE(tan)
QEL_OF_ONE(tanh)
QEL_OF_ONE(trunc)
QEL_OF_TWO(atan2)
QEL_OF_TWO(fmod)
QEL_OF_TWO(pow)
#undef QEL_OF_ONE
#undef QEL_OF_TWO
#endif
