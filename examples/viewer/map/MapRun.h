#pragma once

#include "Options.h"
#include "Scene.h"

namespace qelview {

/// Shows a scene as a map, or writes the pictures PREFIX-gdi.png, PREFIX-gl.png and PREFIX-3d.png.
[[nodiscard]] ExitCode runMap(const Options& options, const Scene& scene);

}  // namespace qelview
