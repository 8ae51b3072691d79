#pragma once

/// Marks what QelDisplay64t.dll exports: a host imports it; a static build needs no mark.
#if defined(_WIN32) && !defined(QEL_STATIC)
#if defined(QEL_BUILDING_DISPLAY)
#define QEL_DISPLAY_API __declspec(dllexport)
#else
#define QEL_DISPLAY_API __declspec(dllimport)
#endif
#else
#define QEL_DISPLAY_API
#endif
