#pragma once

#include "Scene.h"

namespace qelview {

/// A map made by code: islands with lakes, lines of equal height, and towns with names, at the coordinates of
/// a survey far from the origin.
[[nodiscard]] Scene makeSampleMap();

}  // namespace qelview
