#pragma once

#include <filesystem>
#include <memory>

#include "PlyHeader.h"
#include "Texture.h"
#include "Warnings.h"

namespace qelview {

/// True if the file has faces or triangle strips.
[[nodiscard]] bool hasFaces(const PlyHeader& header);

/// True if faces have their own texture coordinates, and the header names images for them.
[[nodiscard]] bool hasTexturedFaces(const PlyHeader& header);

/// The first image that the header names, if vertices have texture coordinates and faces do not; else null.
/// Textures that cannot be shown are warnings.
[[nodiscard]] std::shared_ptr<const Texture> textureOfVertices(const PlyHeader& header,
                                                               const std::filesystem::path& file,
                                                               Warnings& warnings);

}  // namespace qelview
