#pragma once

#include "Options.h"
#include "Scene.h"

namespace qelview {

/// Writes one picture with a tile for each feature of the viewer: views, overlays, marks, the rectangle over
/// the kept frame, a capture.
[[nodiscard]] ExitCode writeTour(const Options& options, Scene scene);

}  // namespace qelview
