#pragma once

#include <windows.h>

#include <string>

#include "PictureFile.h"

namespace qelview {

/// Puts a text in UTF-8 on the clipboard, in place of what is there. Returns false if another program holds the clipboard.
[[nodiscard]] bool copyText(HWND owner, const std::string& text);

/// The same for a picture.
[[nodiscard]] bool copyPicture(HWND owner, const PixelImage& image);

}  // namespace qelview
