#pragma once
// Wine's header defines this function itself for every clang; for this target clang has it built in.
#define _InterlockedCompareExchange128 qelUnusedCompareExchange128
#include_next <winnt.h>
#undef _InterlockedCompareExchange128
#undef InterlockedCompareExchange128
#define InterlockedCompareExchange128 _InterlockedCompareExchange128
