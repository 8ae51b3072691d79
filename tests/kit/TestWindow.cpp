#include "TestWindow.h"

#include <windows.h>

#include <stdexcept>

#include "CallTrace.h"

namespace qel::test {

namespace {

constexpr wchar_t kClassName[] = L"QelTestWindow";

/// The class is registered once and stays for the life of the process.
const wchar_t* windowClass() {
    static const ATOM registered = [] {
        WNDCLASSW description{};
        description.style = CS_OWNDC | CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = kClassName;
        return RegisterClassW(&description);
    }();
    if (registered == 0) {
        throw std::runtime_error("the window class cannot be registered");
    }
    return kClassName;
}

HWND handle(std::uintptr_t window) {
    return reinterpret_cast<HWND>(window);
}

RECT clientArea(std::uintptr_t window) {
    const CallTrace::Pause unrecorded;
    RECT area{};
    GetClientRect(handle(window), &area);
    return area;
}

}  // namespace

TestWindow::TestWindow(int width, int height) {
    const CallTrace::Pause unrecorded;
    // A popup window has no frame, so its client area is the window.
    HWND const made =
        CreateWindowExW(0, windowClass(), L"test", WS_POPUP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, width,
                        height, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (made == nullptr) {
        throw std::runtime_error("no window");
    }
    window = reinterpret_cast<std::uintptr_t>(made);
    deviceContext = reinterpret_cast<std::uintptr_t>(GetDC(made));
}

TestWindow::~TestWindow() {
    const CallTrace::Pause unrecorded;
    ReleaseDC(handle(window), reinterpret_cast<HDC>(deviceContext));
    DestroyWindow(handle(window));
    handleMessages();
}

int TestWindow::width() const {
    return clientArea(window).right;
}

int TestWindow::height() const {
    return clientArea(window).bottom;
}

void TestWindow::resize(int width, int height) {
    const CallTrace::Pause unrecorded;
    SetWindowPos(handle(window), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    handleMessages();
}

void TestWindow::show() {
    const CallTrace::Pause unrecorded;
    ShowWindow(handle(window), SW_SHOWNOACTIVATE);
    UpdateWindow(handle(window));
    handleMessages();
}

void TestWindow::hide() {
    const CallTrace::Pause unrecorded;
    ShowWindow(handle(window), SW_HIDE);
    handleMessages();
}

void TestWindow::handleMessages() {
    const CallTrace::Pause unrecorded;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace qel::test
