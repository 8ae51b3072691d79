#include "TileSheet.h"

#include <algorithm>
#include <cstddef>

namespace qelview {

PixelImage sheetOf(const std::array<const PixelImage*, 4>& tiles, int width, int height, int gap) {
    constexpr std::uint8_t kGapShade = 92;
    PixelImage sheet{2 * width + 3 * gap, 2 * height + 3 * gap, {}};
    const auto firstByte = [](const PixelImage& image, int x, int y) {
        return (static_cast<std::ptrdiff_t>(y) * image.width + x) *
               static_cast<std::ptrdiff_t>(PixelImage::kChannels);
    };
    sheet.rgb.assign(static_cast<std::size_t>(firstByte(sheet, 0, sheet.height)), kGapShade);
    for (int i = 0; i < 4; ++i) {
        const PixelImage& tile = *tiles.at(static_cast<std::size_t>(i));
        const int left = gap + i % 2 * (width + gap);
        // Rows of pixels go from bottom to top.
        const int bottom = gap + (1 - i / 2) * (height + gap);
        for (int y = 0; y < std::min(tile.height, height); ++y) {
            std::copy_n(tile.rgb.begin() + firstByte(tile, 0, y),
                        firstByte(tile, std::min(tile.width, width), 0),
                        sheet.rgb.begin() + firstByte(sheet, left, bottom + y));
        }
    }
    return sheet;
}

}  // namespace qelview
