#pragma once

#include "MapData.h"

namespace qelview {

/// The area that rings enclose together, in triangles: three points each, in no order. An area that rings
/// enclose twice is a hole.
[[nodiscard]] Line2d trianglesOf(const Rings2d& rings);

}  // namespace qelview
