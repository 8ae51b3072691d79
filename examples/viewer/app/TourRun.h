#pragma once

#include "Options.h"
#include "Scene.h"

namespace qelview {

/// Writes one picture with a tile for each thing that the viewer shows: views, overlays, marks, the rectangle
/// over the kept frame, a capture.
[[nodiscard]] ExitCode writeTour(const Options& options, Scene scene);

}  // namespace qelview
