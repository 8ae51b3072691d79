#pragma once

/// The one place where OpenGL 1.x and GLU are included.
///
/// On Windows their headers expect three macros of the system's own headers. They are lent here, so that the
/// portable code needs no Windows header and a later one still defines them its own way.

#if defined(_WIN32) && !defined(_WINDOWS_)
#define QEL_GL_LENDS_MACROS
#define WINGDIAPI __declspec(dllimport)
#define APIENTRY __stdcall
#ifndef CALLBACK
#define QEL_GL_LENDS_CALLBACK
#define CALLBACK __stdcall
#endif
#endif

#include <GL/gl.h>
#include <GL/glu.h>

#ifdef QEL_GL_LENDS_MACROS
#undef WINGDIAPI
#undef APIENTRY
#ifdef QEL_GL_LENDS_CALLBACK
#undef CALLBACK
#undef QEL_GL_LENDS_CALLBACK
#endif
#undef QEL_GL_LENDS_MACROS
#endif
