#pragma once

#include <filesystem>
#include <string>

#include "Progress.h"
#include "Scene.h"
#include "Stopwatch.h"

namespace qelview {

/// Reads a file of any format that the viewer knows by its extension.
/// @param watch gets the parts "read" and "normals".
/// @throws ReadError with one line: the file, the place, the reason.
/// @throws ReadCancelled if the user cancels.
[[nodiscard]] Scene readFile(const std::filesystem::path& file, const ProgressStretch& progress,
                             Stopwatch& watch);

/// The contents of a text file.
/// @throws ReadError with the reason, without the name of the file.
[[nodiscard]] std::string readTextFile(const std::filesystem::path& file);

/// The supported extensions, for the help text.
[[nodiscard]] std::string knownExtensions();

}  // namespace qelview
