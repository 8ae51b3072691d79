#pragma once
// Wine's macro would rename libc++'s own mode_t.
#include_next <sys/types.h>
#undef mode_t
