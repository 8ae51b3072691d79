#pragma once

#include <array>

#include "PictureFile.h"

namespace qelview {

/// Pixels between the tiles of a sheet and around them.
inline constexpr int kTileGap = 4;

/// Four pictures in two rows, from the upper left, on a grey sheet.
/// @param width, height of a tile in pixels; a larger picture is cropped at the right and at the top.
[[nodiscard]] PixelImage sheetOf(const std::array<const PixelImage*, 4>& tiles, int width, int height,
                                 int gap = kTileGap);

}  // namespace qelview
