#include "ProgressWindow.h"

// After windows.h, which it needs.
#include <commctrl.h>

#include "SystemWindow.h"

namespace qelview {

namespace {

constexpr int kBarSteps = 1000;
/// At 96 dots per inch.
constexpr int kWidth = 420;
constexpr int kHeight = 64;
constexpr int kBorder = 20;
constexpr DWORD kWindowStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool givesUp = message == WM_CLOSE || (message == WM_KEYDOWN && wParam == VK_ESCAPE);
    if (!givesUp) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    auto* const task = reinterpret_cast<LoadTask*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (task != nullptr) {
        task->cancel();
    }
    return 0;
}

/// Creates a window at the centre of the screen, above others; `bar` receives its progress bar.
OwnedWindow openProgressWindow(LoadTask& task, unsigned dpi, HWND& bar) {
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&wanted);
    const auto scaled = [dpi](int pixels) {
        return MulDiv(pixels, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
    };
    const auto [width, height] = frameSizeAround({scaled(kWidth), scaled(kHeight)}, kWindowStyle, dpi);
    HINSTANCE const module = GetModuleHandleW(nullptr);
    OwnedWindow window(CreateWindowExW(
        0, registerWindowClass(L"QelViewProgress", handleMessage), L"qelview: loading", kWindowStyle,
        (GetSystemMetrics(SM_CXSCREEN) - width) / 2, (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width,
        height, nullptr, nullptr, module, nullptr));
    SetWindowLongPtrW(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&task));
    bar = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE | PBS_SMOOTH, scaled(kBorder),
                          scaled(kBorder), scaled(kWidth - 2 * kBorder), scaled(kHeight - 2 * kBorder),
                          window.get(), nullptr, module, nullptr);
    SendMessageW(bar, PBM_SETRANGE32, 0, kBarSteps);
    ShowWindow(window.get(), SW_SHOW);
    return window;
}

void answerMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

Scene waitWithWindow(LoadTask& task, unsigned dotsPerInch) {
    constexpr DWORD kPollMilliseconds = 30;
    const ULONGLONG begin = GetTickCount64();
    OwnedWindow window;
    HWND bar = nullptr;
    while (!task.isDone()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_ALLINPUT);
        answerMessages();
        if (!window && GetTickCount64() - begin > static_cast<ULONGLONG>(kQuietMilliseconds)) {
            window = openProgressWindow(task, dotsPerInch, bar);
        }
        if (window) {
            SendMessageW(bar, PBM_SETPOS, static_cast<WPARAM>(task.progressDone() * kBarSteps), 0);
        }
    }
    return task.takeScene();
}

}  // namespace qelview
