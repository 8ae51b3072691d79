#include <windows.h>

#include <stdexcept>

#include "CallTrace.h"
#include "GlSurface.h"
#include "QelGl.h"
#include "TestWindow.h"

namespace qel::test {

struct GlSurface::Native {
    TestWindow window;
    HGLRC context = nullptr;
    HDC formerDc = wglGetCurrentDC();
    HGLRC formerContext = wglGetCurrentContext();

    Native(int width, int height) : window(width, height) {}

    HDC dc() const { return reinterpret_cast<HDC>(window.dc()); }
};

namespace {

void choosePixelFormat(HDC dc) {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof(format);
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 24;
    format.cDepthBits = 24;
    format.cStencilBits = 8;
    format.iLayerType = PFD_MAIN_PLANE;
    if (SetPixelFormat(dc, ChoosePixelFormat(dc, &format), &format) == FALSE) {
        throw std::runtime_error("the window takes no pixel format with 24 bits of colour and depth");
    }
}

}  // namespace

GlSurface::GlSurface(int width, int height) : pixelWidth(width), pixelHeight(height) {
    const CallTrace::Pause unrecorded;
    native = std::make_unique<Native>(width, height);
    choosePixelFormat(native->dc());
    native->context = wglCreateContext(native->dc());
    if (native->context == nullptr) {
        throw std::runtime_error("the window gives no OpenGL context");
    }
    makeCurrent();
    startOver();
}

GlSurface::~GlSurface() {
    const CallTrace::Pause unrecorded;
    wglMakeCurrent(native->formerDc, native->formerContext);
    wglDeleteContext(native->context);
    native.reset();
}

void GlSurface::makeCurrent() {
    const CallTrace::Pause unrecorded;
    if (wglMakeCurrent(native->dc(), native->context) == FALSE) {
        throw std::runtime_error("the OpenGL context of the window cannot be made current");
    }
}

void GlSurface::resize(int width, int height) {
    pixelWidth = width;
    pixelHeight = height;
    const CallTrace::Pause unrecorded;
    native->window.resize(width, height);
    makeCurrent();
    // A window's buffers take its new size when they are next swapped.
    SwapBuffers(native->dc());
    startOver();
}

std::uintptr_t GlSurface::hwnd() const {
    return native->window.hwnd();
}

std::uintptr_t GlSurface::dc() const {
    return native->window.dc();
}

std::uintptr_t GlSurface::rc() const {
    return reinterpret_cast<std::uintptr_t>(native->context);
}

}  // namespace qel::test
