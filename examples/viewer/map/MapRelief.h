#pragma once

#include "Scene.h"

namespace qelview {

/// A map's scene as a view in three dimensions shows it: its polygons get surfaces.
[[nodiscard]] Scene reliefOf(const Scene& map);

}  // namespace qelview
