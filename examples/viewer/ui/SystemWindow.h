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

/// A window class with a device context of its own, as OpenGL wants it. Registered once a name.
/// @return the name, to create windows with.
const wchar_t* registerWindowClass(const wchar_t* name, WNDPROC procedure);

/// A window that is never shown, for pictures. Empty if there can be none.
[[nodiscard]] OwnedWindow createHiddenWindow(const ClientSize& size);

[[nodiscard]] ClientSize clientSizeOf(HWND window);
/// Gives a window the frame around this client area that it has on its screen, and the menu it has.
void setClientSize(HWND window, const ClientSize& size);
/// The frame around a client area on a screen of so many dots an inch.
[[nodiscard]] ClientSize frameSizeAround(const ClientSize& client, DWORD style, UINT dpi,
                                         bool hasMenu = false);

[[nodiscard]] std::wstring toWide(const std::string& utf8);
[[nodiscard]] std::string toUtf8(const std::wstring& wide);
/// The name of a file, of UTF-8, from the root of its drive.
[[nodiscard]] std::string absoluteName(const std::string& file);
/// A text of UTF-8 in the letters that the display's font has: accents are dropped, what is still strange is
/// a '?'.
[[nodiscard]] std::string toPlainLetters(const std::string& utf8);

/// Tells a person in front of the screen what went wrong; waits until it is read.
/// @param owner the window that it is about, or null.
void tellProblem(HWND owner, const std::string& text);

/// Says on standard error that there is no OpenGL, and in a message box too if somebody sits in front of it.
void reportNoContext(bool isInteractive);

}  // namespace qelview
