#pragma once

#include "Scene.h"

namespace qelview {

/// A map's scene for the three-dimensional view: its polygons get surfaces.
[[nodiscard]] Scene reliefOf(const Scene& map);

}  // namespace qelview
