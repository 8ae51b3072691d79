#pragma once

#include <string>

#include "Scene.h"

namespace qelview {

/// Counts of what a scene has, and its origin if it was moved: "5,856 triangles, 2,930 points".
[[nodiscard]] std::string summaryOf(const Scene& scene);

}  // namespace qelview
