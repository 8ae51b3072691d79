#pragma once

#include <string>

#include "MapFrame.h"

namespace qelview {

/// A scale bar of a round length in the lower right corner.
struct ScaleBar {
    double units = 1.0;
    /// Columns of its two ends.
    double left = 0.0;
    double right = 1.0;
    std::string text;
    /// Column where the text above it starts.
    double textLeft = 0.0;
};

[[nodiscard]] ScaleBar scaleBarOf(const MapView& view, bool isGeographic);

/// Writes names, a title, the text of a place and a scale bar over a frame.
void addTexts(MapFrame& frame, const MapView& view, const std::string& title, const std::string& place,
              const ScaleBar& bar);

/// Coordinates to the precision of a pixel, in degrees east and north for a geographic map.
[[nodiscard]] std::string textOf(const qel::XPnt2d& world, const MapView& view, bool isGeographic);

}  // namespace qelview
