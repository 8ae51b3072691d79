#include "TileSheet.h"

#include <algorithm>
#include <cstddef>

namespace qelview {

namespace {

constexpr int kGap = 4;
constexpr std::uint8_t kGapShade = 92;

}  // namespace

TileSheet::TileSheet(int columns, int rows, int tileWidth, int tileHeight)
    : columnCount(columns), rowCount(rows), width(tileWidth), height(tileHeight) {
    sheet.width = columns * (tileWidth + kGap) + kGap;
    sheet.height = rows * (tileHeight + kGap) + kGap;
    sheet.rgb.assign(static_cast<std::size_t>(sheet.width) * static_cast<std::size_t>(sheet.height) *
                         PixelImage::kChannels,
                     kGapShade);
}

void TileSheet::add(const PixelImage& tile) {
    if (taken == columnCount * rowCount) {
        return;
    }
    const int left = kGap + taken % columnCount * (width + kGap);
    // Rows of pixels go from bottom to top.
    const int bottom = kGap + (rowCount - 1 - taken / columnCount) * (height + kGap);
    const std::size_t bytes = static_cast<std::size_t>(std::min(tile.width, width)) * PixelImage::kChannels;
    for (int y = 0; y < std::min(tile.height, height); ++y) {
        const std::size_t from =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(tile.width) * PixelImage::kChannels;
        const std::size_t to = (static_cast<std::size_t>(bottom + y) * static_cast<std::size_t>(sheet.width) +
                                static_cast<std::size_t>(left)) *
                               PixelImage::kChannels;
        std::copy_n(tile.rgb.begin() + static_cast<std::ptrdiff_t>(from), bytes,
                    sheet.rgb.begin() + static_cast<std::ptrdiff_t>(to));
    }
    ++taken;
}

}  // namespace qelview
