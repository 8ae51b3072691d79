#pragma once

#include "Enve2d.h"
#include "XPnt2d.h"

namespace qelview {

/// Which part of a map a pane of pixels shows: a middle and one scale for both directions.
///
/// Pixels are counted from the upper-left corner, rows downwards; whole numbers are the middles of pixels.
/// The lower-left corner of the extent is the middle of the lowest, leftmost pixel.
class MapView {
  public:
    /// Size of the pane; the middle and the scale stay.
    void resize(int widthPx, int heightPx);
    /// Shows a whole map with a margin, and limits zooming: out to a few times the map, in to where double
    /// precision still tells the pixels apart.
    void fit(const qel::Enve2d& bounds);
    /// Moves the map with the hand: to the right and downwards for positive numbers of pixels.
    void pan(double columns, double rows);
    /// Enlarges by a factor, or shrinks below 1, and keeps what is at a pixel where it is.
    void zoomAt(double column, double row, double factor);

    [[nodiscard]] int width() const { return columns; }
    [[nodiscard]] int height() const { return rows; }
    [[nodiscard]] double unitsPerPixel() const { return scale; }
    [[nodiscard]] double finestUnitsPerPixel() const { return finest; }
    /// As wide and high as the pane.
    [[nodiscard]] qel::Enve2d extent() const;
    [[nodiscard]] qel::XPnt2d worldAt(double column, double row) const;
    [[nodiscard]] qel::XPnt2d pixelOf(const qel::XPnt2d& world) const;

  private:
    [[nodiscard]] double limited(double unitsOfAPixel) const;

    int columns = 1;
    int rows = 1;
    qel::XPnt2d middle;
    double scale = 1.0;
    double finest = 0.0;
    double coarsest = 1.0;
};

}  // namespace qelview
