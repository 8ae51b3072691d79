#include "MapView.h"

#include <algorithm>
#include <cmath>

namespace qelview {

namespace {

/// Fraction of the pane that a fitted map fills.
constexpr double kFilledShare = 0.94;
/// How much smaller than fitted a map may become.
constexpr double kFarthestZoom = 4.0;
/// Smallest size of a pixel as a fraction of the largest coordinate: some ten thousand steps of double
/// precision.
constexpr double kFinestShare = 0x1p-39;

}  // namespace

void MapView::resize(int widthPx, int heightPx) {
    columns = std::max(widthPx, 1);
    rows = std::max(heightPx, 1);
}

void MapView::fit(const qel::Enve2d& bounds) {
    if (!bounds.isValid()) {
        return;
    }
    const double largest = std::max({std::fabs(bounds.xmin), std::fabs(bounds.xmax), std::fabs(bounds.ymin),
                                     std::fabs(bounds.ymax), bounds.Width(), bounds.Hight()});
    finest = std::max(largest * kFinestShare, 1e-30);
    middle = bounds.MidPoint();
    const double fitted = std::max(bounds.Width() / columns, bounds.Hight() / rows) / kFilledShare;
    // A single point has no size.
    coarsest = std::max(fitted * kFarthestZoom, finest * 1e6);
    scale = limited(fitted > 0.0 ? fitted : coarsest);
}

double MapView::limited(double unitsOfAPixel) const {
    return std::clamp(unitsOfAPixel, finest, coarsest);
}

void MapView::pan(double columnsMoved, double rowsMoved) {
    middle.x -= columnsMoved * scale;
    middle.y += rowsMoved * scale;
}

void MapView::zoomAt(double column, double row, double factor) {
    const qel::XPnt2d kept = worldAt(column, row);
    scale = limited(scale / factor);
    const qel::XPnt2d now = worldAt(column, row);
    middle.x += kept.x - now.x;
    middle.y += kept.y - now.y;
}

qel::Enve2d MapView::extent() const {
    const double halfWidth = columns * scale * 0.5;
    const double halfHeight = rows * scale * 0.5;
    return {middle.x - halfWidth, middle.y - halfHeight, middle.x + halfWidth, middle.y + halfHeight};
}

qel::XPnt2d MapView::worldAt(double column, double row) const {
    return {middle.x + (column - columns * 0.5) * scale, middle.y + (rows * 0.5 - 1.0 - row) * scale};
}

qel::XPnt2d MapView::pixelOf(const qel::XPnt2d& world) const {
    return {(world.x - middle.x) / scale + columns * 0.5, rows * 0.5 - 1.0 - (world.y - middle.y) / scale};
}

}  // namespace qelview
