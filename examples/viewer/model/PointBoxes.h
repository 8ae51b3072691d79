#pragma once

#include "SceneParts.h"

namespace qelview {

/// The bounding box of points; invalid if there are none.
[[nodiscard]] qel::Enve3d boxOf(const Points& points);

/// Appends few points with the same extent as many: the points themselves if they are few, else the corners of
/// small boxes around them, which are at most a thirty-second of the whole box wide.
void appendOutline(Points& outline, const Points& points);

}  // namespace qelview
