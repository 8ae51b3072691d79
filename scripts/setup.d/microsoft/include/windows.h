#pragma once
// Wine's header lacks the guard macro of the Windows SDK, which base/QelGl.h asks for, and some names that
// tests use.
#include_next <windows.h>
#ifndef _WINDOWS_
#define _WINDOWS_
#endif
#ifndef GR_GDIOBJECTS
#define GR_GDIOBJECTS 0
#define GR_USEROBJECTS 1
#endif
