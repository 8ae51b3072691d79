#pragma once

#include <string>

#include "MapView.h"

namespace qelview {

/// A bar of a round length in the lower right corner.
struct ScaleBar {
    double units = 1.0;
    /// Columns of its ends.
    double left = 0.0;
    double right = 1.0;
    std::string text;
    /// Column where the text above it begins.
    double textLeft = 0.0;
};

[[nodiscard]] ScaleBar scaleBarOf(const MapView& view, bool isGeographic);

/// Coordinates as exact as a pixel, with degrees of east and north for a geographic map.
[[nodiscard]] std::string textOf(const qel::XPnt2d& world, const MapView& view, bool isGeographic);

}  // namespace qelview
