#pragma once

#include <string>
#include <vector>

#include "Enve2d.h"
#include "Scene.h"
#include "XPnt2d.h"

namespace qelview {

/// Points in the plane, in the units of the files, x to the right and y up.
using Line2d = std::vector<qel::XPnt2d>;

/// Rings that enclose an area together, by the even-odd rule.
using Rings2d = std::vector<Line2d>;

struct Name2d {
    qel::XPnt2d at;
    std::string text;
};

/// A scene seen from above, in the coordinates of its files.
struct MapData {
    std::string title;
    std::vector<Rings2d> polygons;
    std::vector<Line2d> lines;
    Line2d points;
    std::vector<Name2d> names;
    /// Extent of everything except names; invalid for an empty map.
    qel::Enve2d bounds;
    /// True if the coordinates look like degrees of longitude and latitude.
    bool isGeographic = false;
};

[[nodiscard]] MapData mapOf(const Scene& scene);

}  // namespace qelview
