#pragma once

#include <filesystem>
#include <string_view>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// The readers of meshes, one a format. Polygons become triangles, concave ones too. Meshes of files that
/// have no normals have none: `makeNormals` makes them.
/// @param bytes of the whole file.
/// @throws ReadError that names the place and the fault if something would be shown wrong.

/// Wavefront OBJ: vertices with their colours, normals, faces, lines and points. Faces of one material are
/// one mesh, with the colour and the texture of the material, from MTL files and images next to `file`.
[[nodiscard]] Scene readObj(std::string_view bytes, const std::filesystem::path& file,
                            const ProgressStretch& progress);

/// PLY, ASCII and binary of both byte orders: vertices with normals and colours, faces, triangle strips, the
/// colour of the first material. Vertices without faces are a cloud. Texture coordinates show the images that
/// comments name next to `file`, in place of colours: those of faces the image with the number of the face,
/// those of vertices the first one.
[[nodiscard]] Scene readPly(std::string_view bytes, const std::filesystem::path& file,
                            const ProgressStretch& progress);

/// STL, ASCII and binary, with the colours of binary triangles. Vertices at the same place are one. The first
/// word of the file decides nothing, since binary files begin with "solid" too.
[[nodiscard]] Scene readStl(std::string_view bytes, const ProgressStretch& progress);

/// OFF, with normals and colours of vertices.
[[nodiscard]] Scene readOff(std::string_view bytes, const ProgressStretch& progress);

}  // namespace qelview
