#pragma once

#include "Options.h"
#include "Scene.h"
#include "Stopwatch.h"

namespace qelview {

/// Writes the pictures that the options request, from a hidden window.
[[nodiscard]] ExitCode writePictures(const Options& options, Scene scene, Stopwatch& watch);

}  // namespace qelview
