#include "ViewerWindow.h"

#include <windowsx.h>

namespace qelview {

namespace {

/// Buttons as the camera numbers its drags.
constexpr int kPan = 1;
constexpr int kRotate = 2;
constexpr int kZoom = 3;
/// Share of the way to the scene for a notch of the wheel.
constexpr float kZoomOfANotch = 0.1F;

RECT frameAround(const ClientSize& client, DWORD style, UINT dpi) {
    RECT area{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&area, style, FALSE, 0, dpi);
    return area;
}

}  // namespace

ViewerWindow::~ViewerWindow() {
    // The display lets go of the window before the window goes.
    stage.reset();
}

ExitCode ViewerWindow::run(const Options& options, const Scene& scene) {
    create(options, scene);
    stage = window ? Stage::open(window.get(), scene) : nullptr;
    if (stage == nullptr) {
        window.reset();
        reportNoContext(true);
        return ExitCode::NoContext;
    }
    stage->resize(clientSizeOf(window.get()));
    stage->setView(options.view);
    if (options.isOrthographic) {
        stage->switchProjection();
        stage->fit();
    }
    ShowWindow(window.get(), SW_SHOW);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return ExitCode::Success;
}

void ViewerWindow::create(const Options& options, const Scene& scene) {
    constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW;
    const RECT frame = frameAround({options.width, options.height}, kStyle, GetDpiForSystem());
    const std::wstring caption = toWide(scene.title + " - qelview");
    window.reset(CreateWindowExW(0, registerWindowClass(L"QelViewWindow", dispatch), caption.c_str(), kStyle,
                                 CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                                 frame.bottom - frame.top, nullptr, nullptr, GetModuleHandleW(nullptr),
                                 nullptr));
    if (!window) {
        return;
    }
    SetWindowLongPtrW(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // The window may have opened on a screen of another resolution than the system's.
    const RECT exact = frameAround({options.width, options.height}, kStyle, GetDpiForWindow(window.get()));
    SetWindowPos(window.get(), nullptr, 0, 0, exact.right - exact.left, exact.bottom - exact.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK ViewerWindow::dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrW(receiver, GWLP_USERDATA));
    if (self != nullptr && self->stage && self->handle(message, wParam, lParam)) {
        return 0;
    }
    return DefWindowProcW(receiver, message, wParam, lParam);
}

bool ViewerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            stage->resize({LOWORD(lParam), HIWORD(lParam)});
            redraw();
            return true;
        case WM_PAINT:
            paint();
            return true;
        case WM_ERASEBKGND:
            // The frame covers everything; erasing before it would flicker.
            return true;
        case WM_KEYDOWN:
            return handleKey(wParam);
        case WM_DPICHANGED: {
            const RECT& wanted = *reinterpret_cast<const RECT*>(lParam);
            SetWindowPos(window.get(), nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                         wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
            return true;
        }
        case WM_CLOSE:
            PostQuitMessage(0);
            return true;
        default:
            return handleMouse(message, wParam, lParam);
    }
}

bool ViewerWindow::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            press(kRotate, lParam);
            return true;
        case WM_MBUTTONDOWN:
            press(kPan, lParam);
            return true;
        case WM_RBUTTONDOWN:
            press(kZoom, lParam);
            return true;
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        case WM_RBUTTONUP:
            release();
            return true;
        case WM_MOUSEMOVE:
            if (stage->camera().getDragButton() != 0) {
                const POINT place = fromBelow(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
                stage->camera().onMouseMove(place.x, place.y);
                redraw();
            }
            return true;
        case WM_MOUSEWHEEL:
            zoom(wParam, lParam);
            return true;
        default:
            return false;
    }
}

bool ViewerWindow::handleKey(WPARAM key) {
    const bool isDigit = key >= '0' && key <= '7';
    const bool isPadDigit = key >= VK_NUMPAD0 && key <= VK_NUMPAD7;
    if (isDigit || isPadDigit) {
        stage->setView(static_cast<unsigned>(key - (isDigit ? WPARAM{'0'} : WPARAM{VK_NUMPAD0})));
    } else if (key == 'F') {
        stage->fit();
    } else if (key == 'O') {
        stage->switchProjection();
    } else if (key == VK_ESCAPE) {
        PostQuitMessage(0);
    } else {
        return false;
    }
    redraw();
    return true;
}

void ViewerWindow::press(int cameraButton, LPARAM position) {
    const POINT place = fromBelow(GET_X_LPARAM(position), GET_Y_LPARAM(position));
    SetCapture(window.get());
    stage->camera().onButtonDown(cameraButton, place.x, place.y);
}

void ViewerWindow::release() {
    stage->camera().onButtonUp();
    ReleaseCapture();
    redraw();
}

void ViewerWindow::zoom(WPARAM wParam, LPARAM position) {
    // The wheel alone gives its position on the screen.
    POINT onScreen{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ScreenToClient(window.get(), &onScreen);
    const POINT place = fromBelow(onScreen.x, onScreen.y);
    const float notches =
        static_cast<float>(GET_WHEEL_DELTA_WPARAM(wParam)) / static_cast<float>(WHEEL_DELTA);
    stage->camera().zoomAt(notches * kZoomOfANotch, place.x, place.y);
    redraw();
}

void ViewerWindow::paint() {
    PAINTSTRUCT painting;
    BeginPaint(window.get(), &painting);
    stage->show();
    EndPaint(window.get(), &painting);
}

void ViewerWindow::redraw() {
    InvalidateRect(window.get(), nullptr, FALSE);
}

POINT ViewerWindow::fromBelow(int x, int y) const {
    return {x, clientSizeOf(window.get()).height - 1 - y};
}

}  // namespace qelview
