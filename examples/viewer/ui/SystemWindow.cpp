#include "SystemWindow.h"

#include <QString>
#include <cstdio>
#include <filesystem>

namespace qelview {

namespace {

constexpr const char* kNoContext =
    "no OpenGL context could be created; install or update the graphics driver";

/// The program's first resource of that kind; other programs that use these windows may have none.
HICON iconOfProgram(int metricOfItsSize) {
    const int size = GetSystemMetrics(metricOfItsSize);
    auto* const own = static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_SHARED));
    return own != nullptr ? own : LoadIconW(nullptr, IDI_APPLICATION);
}

}  // namespace

const wchar_t* registerWindowClass(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_OWNDC | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hIcon = iconOfProgram(SM_CXICON);
    description.hIconSm = iconOfProgram(SM_CXSMICON);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = name;
    RegisterClassExW(&description);
    return name;
}

OwnedWindow createHiddenWindow(const ClientSize& size) {
    const wchar_t* const name = registerWindowClass(L"QelViewPicture", DefWindowProcW);
    return OwnedWindow(CreateWindowExW(0, name, L"", WS_POPUP, 0, 0, size.width, size.height, nullptr,
                                       nullptr, GetModuleHandleW(nullptr), nullptr));
}

ClientSize clientSizeOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return {area.right - area.left, area.bottom - area.top};
}

void setClientSize(HWND window, const ClientSize& size) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const bool hasMenu = GetMenu(window) != nullptr;
    const ClientSize frame = frameSizeAround(size, style, GetDpiForWindow(window), hasMenu);
    const auto give = [window](int width, int height) {
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    give(frame.width, frame.height);
    // A menu that does not fit on one line takes more, which is only known now.
    const int missing = size.height - clientSizeOf(window).height;
    if (hasMenu && missing > 0) {
        give(frame.width, frame.height + missing);
    }
}

void placeWindow(HWND window, const RECT& place) {
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

ClientSize frameSizeAround(const ClientSize& client, DWORD style, UINT dpi, bool hasMenu) {
    RECT area{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&area, style, hasMenu ? TRUE : FALSE, 0, dpi);
    return {area.right - area.left, area.bottom - area.top};
}

std::wstring toWide(const std::string& utf8) {
    return QString::fromStdString(utf8).toStdWString();
}

std::string toUtf8(const std::wstring& wide) {
    return QString::fromStdWString(wide).toStdString();
}

std::string absoluteName(const std::string& file) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(toWide(file), error);
    return error ? file : toUtf8(whole.wstring());
}

void showError(HWND owner, const std::string& text) {
    MessageBoxW(owner, toWide(text).c_str(), L"qelview", MB_OK | MB_ICONWARNING);
}

void reportNoContext(bool isInteractive) {
    std::fprintf(stderr, "qelview: %s\n", kNoContext);
    std::fflush(stderr);
    if (isInteractive) {
        showError(nullptr, kNoContext);
    }
}

}  // namespace qelview
