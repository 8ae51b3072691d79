#pragma once

#include <windows.h>

#include <string>

namespace qelview {

/// Puts a text in UTF-8 on the clipboard, in place of what is there. Returns false if another program holds the clipboard.
[[nodiscard]] bool copyText(HWND owner, const std::string& text);

}  // namespace qelview
