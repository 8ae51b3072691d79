#pragma once

#include "SceneParts.h"

namespace qelview {

/// The box of points; not valid without any.
[[nodiscard]] qel::Enve3d boxOf(const Points& points);

/// A few points that reach as far as many: the points themselves where they are few, else the corners of
/// small boxes around them, which are at most a thirty-second of the whole box wide.
void appendOutline(Points& outline, const Points& points);

}  // namespace qelview
