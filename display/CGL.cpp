#include "CGL.h"

#include <algorithm>

namespace {

constexpr std::int32_t kWidestView = 60;
constexpr std::int32_t kNarrowestView = 2;
/// A view below this is narrow and is not stepped further.
constexpr std::int32_t kNarrowLimit = 20;
constexpr std::int32_t kZoomStep = 2;
constexpr double kZoomNear = 1.0;
constexpr double kZoomFar = 100000.0;

std::int32_t zoomFieldOfView = kWidestView;
bool zoomStepped = false;
bool narrowView = false;

PIXELFORMATDESCRIPTOR describeFormat(DWORD flags, BYTE colorBits, BYTE depthBits) {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = flags | PFD_SUPPORT_OPENGL;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = colorBits;
    format.cDepthBits = depthBits;
    format.iLayerType = PFD_MAIN_PLANE;
    return format;
}

std::int32_t steppedFieldOfView(std::int32_t step) {
    constexpr std::int32_t kReset = 0;
    constexpr std::int32_t kZoomIn = 1;
    std::int32_t value = zoomFieldOfView;
    if (step == kZoomIn && !narrowView) {
        zoomStepped = true;
        value = zoomFieldOfView - kZoomStep;
    } else if (step == kReset) {
        // A narrow view reached by stepping survives the first reset.
        value = narrowView && zoomStepped ? zoomFieldOfView : kWidestView;
        zoomStepped = false;
    }
    return value;
}

}  // namespace

CGL::~CGL() {
    makeCurrent();
}

bool CGL::createForWindow(std::int32_t newWidth, std::int32_t newHeight, bool fullScreen, HWND window,
                          bool stereo) {
    if (initialised != 0) {
        destroyContext();
    }
    dropLeftovers();
    width = newWidth;
    height = newHeight;
    hwnd = window;
    // Either one: a stereo context is single-buffered.
    const PIXELFORMATDESCRIPTOR format =
        describeFormat(PFD_DRAW_TO_WINDOW | (stereo ? PFD_STEREO : PFD_DOUBLEBUFFER), 16, 16);
    hdc = GetDC(hwnd);
    const int chosen = ChoosePixelFormat(hdc, &format);
    if (chosen == 0 || SetPixelFormat(hdc, chosen, &format) == FALSE) {
        return false;
    }
    hglrc = wglCreateContext(hdc);
    if (hglrc == nullptr || wglMakeCurrent(hdc, hglrc) == FALSE) {
        return false;
    }
    if (fullScreen && !setFullScreen(newWidth, newHeight)) {
        return false;
    }
    initCreatedContext();
    return true;
}

PIXELFORMATDESCRIPTOR CGL::formatForDC(std::uint8_t colorBits) {
    return describeFormat(PFD_DRAW_TO_BITMAP, colorBits, 32);
}

bool CGL::createForDC(HDC deviceContext, std::uint8_t colorBits) {
    if (initialised != 0) {
        destroyContext();
    }
    dropLeftovers();
    hdc = deviceContext;
    const PIXELFORMATDESCRIPTOR format = formatForDC(colorBits);
    const int chosen = ChoosePixelFormat(hdc, &format);
    if (chosen == 0 || SetPixelFormat(hdc, chosen, &format) == FALSE) {
        return false;
    }
    hglrc = wglCreateContext(hdc);
    wglMakeCurrent(hdc, hglrc);
    initCreatedContext();
    return true;
}

void CGL::initCreatedContext() {
    initGLState();
    glEnable(GL_TEXTURE_2D);
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    initialised = 1;
}

void CGL::destroyContext() {
    if (initialised == 0) {
        return;
    }
    wglMakeCurrent(hdc, nullptr);
    wglDeleteContext(hglrc);
    ReleaseDC(hwnd, hdc);
    forgetHandles();
    initialised = 0;
}

void CGL::dropLeftovers() {
    if (initialised != 0) {
        return;
    }
    if (hglrc != nullptr) {
        wglDeleteContext(hglrc);
    }
    if (hdc != nullptr) {
        ReleaseDC(hwnd, hdc);
    }
    forgetHandles();
}

// A released handle may be reused by someone else at once: the destructor must not make that one current.
void CGL::forgetHandles() noexcept {
    hglrc = nullptr;
    hdc = nullptr;
}

bool CGL::setFullScreen(std::int32_t newWidth, std::int32_t newHeight) {
    width = newWidth;
    height = newHeight;
    DEVMODEW mode{};
    mode.dmSize = sizeof mode;
    mode.dmPelsWidth = static_cast<DWORD>(newWidth);
    mode.dmPelsHeight = static_cast<DWORD>(newHeight);
    mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
    return ChangeDisplaySettingsW(&mode, CDS_FULLSCREEN) == DISP_CHANGE_SUCCESSFUL;
}

bool CGL::initGLState() {
    glShadeModel(GL_SMOOTH);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glCullFace(GL_BACK);
    glEnable(GL_AUTO_NORMAL);
    glEnable(GL_NORMALIZE);
    return true;
}

std::int32_t CGL::makeCurrent() {
    wglMakeCurrent(hdc, hglrc);
    return 0;
}

std::int32_t CGL::selectDrawBuffer(bool front) {
    glDrawBuffer(front ? GL_FRONT : GL_BACK);
    glGetError();
    return 1;
}

std::int32_t CGL::swapBuffers() {
    SwapBuffers(hdc);
    return 1;
}

void CGL::perspectiveZoom(std::int32_t step) {
    const std::int32_t value = steppedFieldOfView(step);
    narrowView = value < kNarrowLimit;
    zoomFieldOfView = std::clamp(value, kNarrowestView, kWidestView);
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(zoomFieldOfView, static_cast<double>(width) / static_cast<double>(height), kZoomNear,
                   kZoomFar);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}
