#pragma once

#include "Enve2d.h"
#include "XPnt2d.h"

namespace qelview {

/// The part of a map that a pane of pixels shows: a centre and one scale for both directions.
///
/// Pixels count from the upper-left corner, rows downwards; integers are pixel centres. The lower-left corner
/// of the extent is the centre of the lowest, leftmost pixel.
class MapView {
  public:
    /// Sets the size of the pane; centre and scale stay.
    void resize(int widthPx, int heightPx);
    /// Shows a whole map with a margin, and limits zooming: out to a few times the map, in to where double
    /// precision still distinguishes pixels.
    void fit(const qel::Enve2d& bounds);
    /// Pans the map: right and down for positive numbers of pixels.
    void pan(double columns, double rows);
    /// Zooms by a factor (in above 1) about a pixel.
    void zoomAt(double column, double row, double factor);

    /// How many pixels a pixel of a screen of 96 dots per inch is; 1 at first.
    void setScale(double pixels) { dot = pixels; }
    [[nodiscard]] double dots(double pixels) const { return pixels * dot; }

    [[nodiscard]] int width() const { return columns; }
    [[nodiscard]] int height() const { return rows; }
    [[nodiscard]] double unitsPerPixel() const { return scale; }
    [[nodiscard]] double finestUnitsPerPixel() const { return finest; }
    /// The visible extent, with the pane's aspect ratio.
    [[nodiscard]] qel::Enve2d extent() const;
    [[nodiscard]] qel::XPnt2d worldAt(double column, double row) const;
    [[nodiscard]] qel::XPnt2d pixelOf(const qel::XPnt2d& world) const;

  private:
    [[nodiscard]] double limited(double unitsOfAPixel) const;

    int columns = 1;
    int rows = 1;
    qel::XPnt2d middle;
    double scale = 1.0;
    double dot = 1.0;
    double finest = 0.0;
    double coarsest = 1.0;
};

}  // namespace qelview
