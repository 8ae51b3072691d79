#pragma once
// Wine's macros would rename every C++ function called open.
#include_next <io.h>
#ifdef __cplusplus
#undef open
#undef sopen
#endif
