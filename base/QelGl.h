#pragma once

/// The one place where OpenGL 1.x and GLU are included.
///
/// On Windows these headers expect three macros of the system headers. They are defined here and undefined
/// again, so that portable code needs no Windows header, and one included later still defines its own.

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
