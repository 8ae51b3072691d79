#pragma once

#include <vector>

#include "SceneParts.h"

namespace qelview {

/// Triangulates the area that rings enclose, seen from above, by the even-odd rule: three points per triangle,
/// in no particular order.
[[nodiscard]] Points trianglesOf(const std::vector<Points>& rings);

}  // namespace qelview
