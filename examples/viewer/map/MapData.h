#pragma once

#include <string>
#include <vector>

#include "Enve2d.h"
#include "Scene.h"
#include "XPnt2d.h"

namespace qelview {

/// Points of the plane, in the units of the files, x to the right and y up.
using Line2d = std::vector<qel::XPnt2d>;

/// Rings that enclose an area together: what lies inside an odd number of them belongs to it.
using Rings2d = std::vector<Line2d>;

struct Name2d {
    qel::XPnt2d at;
    std::string text;
};

/// What a scene looks like from above, with the coordinates of its files.
struct MapData {
    std::string title;
    std::vector<Rings2d> polygons;
    std::vector<Line2d> lines;
    Line2d points;
    std::vector<Name2d> names;
    /// Of everything but the names; not valid for an empty map.
    qel::Enve2d bounds;
    /// True if the coordinates look like degrees of longitude and latitude.
    bool isGeographic = false;
};

[[nodiscard]] MapData mapOf(const Scene& scene);

}  // namespace qelview
