#pragma once

#include <filesystem>

namespace qelview {

/// The first unused name of qelview-001.bmp, qelview-002.bmp, ... in a folder.
/// @return empty if all up to 999 are used.
[[nodiscard]] std::filesystem::path freeCaptureName(const std::filesystem::path& folder);

/// True if a file of this name is a PNG file.
[[nodiscard]] bool hasPngEnding(const std::filesystem::path& file);

}  // namespace qelview
