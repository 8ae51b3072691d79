#pragma once

#include <string>
#include <vector>

#include "MapData.h"
#include "MapView.h"

namespace qelview {

/// What of a map is visible in a view: cut a little outside the pane, in double precision, so that neither
/// the pixels of a pane nor the single precision of a driver ever see a coordinate far away.
struct MapFrame {
    std::vector<Rings2d> areas;
    /// Edges of the areas.
    std::vector<Line2d> outlines;
    std::vector<Line2d> lines;
    /// The net of coordinate lines.
    std::vector<Line2d> net;
    Line2d points;
    /// Too many points to frame each of them.
    bool isCrowded = false;
    /// Names that do not cover each other, the first ones first.
    std::vector<Name2d> names;
};

[[nodiscard]] MapFrame makeFrame(const MapData& map, const MapView& view);

}  // namespace qelview
