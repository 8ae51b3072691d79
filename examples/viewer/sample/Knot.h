#pragma once

#include "SceneParts.h"

namespace qelview {

/// The middle of the knot that hangs over the ground of the sample scene.
inline constexpr qel::XPnt3d kKnotCenter{2.6, -2.4, 4.0};

/// A tube along a trefoil knot: indexed, smooth, with a texture that winds around the tube.
[[nodiscard]] TriangleMesh makeKnot();

}  // namespace qelview
