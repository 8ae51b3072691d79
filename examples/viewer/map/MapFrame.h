#pragma once

#include <string>
#include <vector>

#include "MapData.h"
#include "MapView.h"

namespace qelview {

/// A text of a pane.
struct PlacedText {
    /// The pixel where its baseline starts.
    qel::XPnt2d at;
    std::string text;
};

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
    /// What is written over the map, and its scale bar; see `addTexts`.
    std::vector<PlacedText> texts;
    std::vector<Line2d> bar;
};

[[nodiscard]] MapFrame makeFrame(const MapData& map, const MapView& view);

}  // namespace qelview
