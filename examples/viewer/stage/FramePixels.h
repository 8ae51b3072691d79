#pragma once

#include "PictureFile.h"

namespace qelview {

/// The lower left part of the buffer or bitmap that OpenGL reads from.
[[nodiscard]] PixelImage readPixels(int width, int height);
/// Draws a picture from the lower left corner of the view on, over what is there. Coordinates of pixels must be
/// loaded.
void drawPixels(const PixelImage& image);

}  // namespace qelview
