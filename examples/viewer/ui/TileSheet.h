#pragma once

#include "PngFile.h"

namespace qelview {

/// Pictures of one size beside and below each other.
class TileSheet {
  public:
    /// @param tileWidth, tileHeight of a picture in pixels.
    TileSheet(int columns, int rows, int tileWidth, int tileHeight);

    /// Puts a picture on the next place, row by row from the upper left. What is larger than a tile is cut
    /// at the right and at the top; when all places are taken nothing happens.
    void add(const PixelImage& tile);
    [[nodiscard]] const PixelImage& image() const { return sheet; }
    [[nodiscard]] int count() const { return taken; }

  private:
    PixelImage sheet;
    int columnCount;
    int rowCount;
    int width;
    int height;
    int taken = 0;
};

}  // namespace qelview
