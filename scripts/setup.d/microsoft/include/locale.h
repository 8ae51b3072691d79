#pragma once
// libc++'s locales read MB_CUR_MAX, which is in <stdlib.h>.
#include_next <locale.h>
#include <stdlib.h>
