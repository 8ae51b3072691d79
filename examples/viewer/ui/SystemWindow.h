#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace qelview {

/// A window of the viewer, destroyed with its owner.
struct WindowCloser {
    using pointer = HWND;
    void operator()(HWND window) const { DestroyWindow(window); }
};
using OwnedWindow = std::unique_ptr<HWND, WindowCloser>;

/// The pixels of a window's client area.
struct ClientSize {
    int width = 0;
    int height = 0;
};

/// Registers a window class with its own device context, as OpenGL needs it; once per name.
/// @return the name, to create windows with.
const wchar_t* registerWindowClass(const wchar_t* name, WNDPROC procedure);

/// A hidden window, for pictures. Empty if it cannot be created.
[[nodiscard]] OwnedWindow createHiddenWindow(const ClientSize& size);

[[nodiscard]] ClientSize clientSizeOf(HWND window);
/// Resizes a window so that its client area gets this size, considering its menu and its screen's resolution.
void setClientSize(HWND window, const ClientSize& size);
/// Moves a window to where the system suggests.
void placeWindow(HWND window, const RECT& place);
/// The frame around a client area on a screen of this many dots per inch.
[[nodiscard]] ClientSize frameSizeAround(const ClientSize& client, DWORD style, UINT dpi,
                                         bool hasMenu = false);

[[nodiscard]] std::wstring toWide(const std::string& utf8);
[[nodiscard]] std::string toUtf8(const std::wstring& wide);
/// The absolute path of a file, in UTF-8.
[[nodiscard]] std::string absoluteName(const std::string& file);

/// Shows the user an error message and waits until it is closed.
/// @param owner the window that it belongs to, or null.
void showError(HWND owner, const std::string& text);

/// Reports on standard error that there is no OpenGL and, if a user is present, in a message box.
void reportNoContext(bool isInteractive);

}  // namespace qelview
