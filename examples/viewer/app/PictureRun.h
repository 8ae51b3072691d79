#pragma once

#include <string>

#include "Options.h"
#include "PictureFile.h"
#include "Scene.h"
#include "Stopwatch.h"

namespace qelview {

/// Writes a picture. Returns false, with the reason on standard error, if that fails.
/// @param file in UTF-8.
[[nodiscard]] bool writePicture(const std::string& file, const PixelImage& image);

/// Writes the pictures that the options request, from a hidden window.
[[nodiscard]] ExitCode writePictures(const Options& options, Scene scene, Stopwatch& watch);

}  // namespace qelview
