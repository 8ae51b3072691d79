#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// Reads a glTF 2 asset, as text or as one binary file: the meshes that the nodes of its scene place, with
/// normals, colours of vertices, colours and textures of materials; animations are left out. Triangles, lines
/// and points become those of a scene. Meshes without normals in the file have none. The format says
/// that Y points up.
/// @param file next to which the files of its buffers and images are.
/// @param mostCorners of all meshes as often as they are placed, with their indices: a small file can place a
/// mesh any number of times.
/// @throws ReadError at the first thing that is wrong, of those that are shown.
[[nodiscard]] Scene readGltf(std::string_view bytes, const std::filesystem::path& file,
                             const ProgressStretch& progress, std::uint64_t mostCorners = 50'000'000);

}  // namespace qelview
