#pragma once

#include <vector>

#include "SceneParts.h"

namespace qelview {

/// The bounding box of points; invalid if there are none.
[[nodiscard]] qel::Enve3d boxOf(const Points& points);

/// Appends points with the same extent as those of a mesh or cloud: the points themselves if they are few or
/// have no parts, else the corners of the parts.
void appendOutline(Points& outline, const Points& points, const std::vector<SpatialPart>& parts);

}  // namespace qelview
