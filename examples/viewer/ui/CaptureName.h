#pragma once

#include <filesystem>

namespace qelview {

/// The first of qelview-001.bmp, qelview-002.bmp, ... that is free in a folder.
/// @return empty if all up to 999 are taken.
[[nodiscard]] std::filesystem::path freeCaptureName(const std::filesystem::path& folder);

}  // namespace qelview
