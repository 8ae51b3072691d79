#pragma once

#include <string>
#include <vector>

#include "MapData.h"
#include "MapView.h"

namespace qelview {

/// The part of a map that is visible in a view: clipped slightly outside the pane in double precision, so
/// that no distant coordinate reaches the pane's pixels or a driver's single precision.
struct MapFrame {
    std::vector<Rings2d> areas;
    /// Edges of the areas.
    std::vector<Line2d> outlines;
    std::vector<Line2d> lines;
    /// The grid of coordinate lines.
    std::vector<Line2d> grid;
    Line2d points;
    /// True if there are too many points to frame each one.
    bool isCrowded = false;
    /// Names that do not overlap; earlier ones win.
    std::vector<Name2d> names;
};

[[nodiscard]] MapFrame makeFrame(const MapData& map, const MapView& view);

}  // namespace qelview
