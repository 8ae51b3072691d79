#pragma once

#include <string>

#include "MapView.h"

namespace qelview {

/// A bar of a round length.
struct ScaleBar {
    double units = 1.0;
    double pixels = 1.0;
    std::string text;
};

[[nodiscard]] ScaleBar scaleBarOf(const MapView& view, bool isGeographic);

/// Coordinates as exact as a pixel, with degrees of east and north for a geographic map.
[[nodiscard]] std::string textOf(const qel::XPnt2d& world, const MapView& view, bool isGeographic);

}  // namespace qelview
