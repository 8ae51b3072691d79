#pragma once

#include "PictureFile.h"

namespace qelview {

/// Pictures of one size in rows and columns.
class TileSheet {
  public:
    static constexpr int kGap = 4;

    /// @param tileWidth, tileHeight size of a picture in pixels.
    /// @param gap between the pictures and around them, in pixels.
    TileSheet(int columns, int rows, int tileWidth, int tileHeight, int gap = kGap);

    /// Adds a picture at the next place, row by row from the upper left. A picture larger than a tile is
    /// cropped at the right and at the top. When all places are taken, it does nothing.
    void add(const PixelImage& tile);
    [[nodiscard]] const PixelImage& image() const { return sheet; }
    [[nodiscard]] int count() const { return taken; }

  private:
    PixelImage sheet;
    int columnCount;
    int rowCount;
    int width;
    int height;
    int between;
    int taken = 0;
};

}  // namespace qelview
