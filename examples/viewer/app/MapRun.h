#pragma once

#include "Options.h"
#include "Scene.h"

namespace qelview {

/// Shows a scene as a map, or writes the pictures that the options request: for a prefix, PREFIX-gdi.png,
/// PREFIX-gl.png and PREFIX-3d.png; for a single file, the OpenGL pane.
[[nodiscard]] ExitCode runMap(const Options& options, const Scene& scene);

}  // namespace qelview
