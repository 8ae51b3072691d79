#pragma once

/// Marks what the two companion libraries export: a host imports it; a static build needs no mark.
#if defined(_WIN32) && !defined(QEL_STATIC)
#if defined(QEL_BUILDING_BASE)
#define QEL_BASE_API __declspec(dllexport)
#else
#define QEL_BASE_API __declspec(dllimport)
#endif
#if defined(QEL_BUILDING_GEOMETRY)
#define QEL_GEOMETRY_API __declspec(dllexport)
#else
#define QEL_GEOMETRY_API __declspec(dllimport)
#endif
#else
#define QEL_BASE_API
#define QEL_GEOMETRY_API
#endif
