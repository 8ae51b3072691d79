#pragma once

#include <string_view>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// Reads GeoJSON: points, lines, polygons with holes, collections of each, alone or as features. A height is
/// kept if a position has one. Features without a geometry are left out.
///
/// Points become one cloud, each line a polyline, each polygon a polygon of the scene.
/// @throws ReadError at the first thing that is wrong: the line for what is no JSON, the feature for the
/// rest.
[[nodiscard]] Scene readGeoJson(std::string_view text, const ProgressStretch& progress);

}  // namespace qelview
