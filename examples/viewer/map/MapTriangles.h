#pragma once

#include "MapData.h"

namespace qelview {

/// Triangulates the area that rings enclose by the even-odd rule: three points per triangle, in no particular
/// order.
[[nodiscard]] Line2d trianglesOf(const Rings2d& rings);

}  // namespace qelview
