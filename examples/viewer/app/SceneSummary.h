#pragma once

#include <string>
#include <string_view>

#include "Scene.h"

namespace qelview {

/// Counts of what a scene has, and its origin if it was moved: "5,856 triangles, 2,930 points".
[[nodiscard]] std::string summaryOf(const Scene& scene);

/// A text with '?' for what the display's font lacks.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace qelview
