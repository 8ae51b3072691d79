#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "Progress.h"
#include "QelColor.h"

namespace qelview {

/// What the importer gets in place of a mesh file: what the viewer shows of it, written out anew in the
/// plainest form of its format. Importers accept wrong indices, counts and numbers silently, cannot say where
/// they stand, and come to harm by what else a file may hold, so they never see the file itself.
struct PlainModel {
    std::string model;
    /// Colours of the materials that an OBJ file names, as the MTL file `kMaterialsOfPlainModel`. Empty if
    /// there are none.
    std::string materials;
    /// Of triangles without a colour of their own, where the importer's materials are not asked.
    std::optional<qel::QelColor3f> color = std::nullopt;
};

inline constexpr std::string_view kMaterialsOfPlainModel = "model.mtl";

/// Each reads a file whole, of `bytes`.
/// @throws ReadError that names the place and the fault if something is wrong.

/// Wavefront OBJ: vertices with their colours, normals, faces, lines and points in groups. Texture
/// coordinates are looked through and left out. Colours of materials come from MTL files beside `file`.
[[nodiscard]] PlainModel plainObj(std::string bytes, const std::filesystem::path& file,
                                  const ProgressStretch& progress);

/// PLY, ASCII and binary of both byte orders: vertices with normals and colours, faces, triangle strips, the
/// colour of the first material.
[[nodiscard]] PlainModel plainPly(std::string bytes, const std::filesystem::path& file,
                                  const ProgressStretch& progress);

/// STL, ASCII and binary. The first word of the file decides nothing, since binary files begin with "solid"
/// too.
[[nodiscard]] PlainModel plainStl(std::string bytes, const std::filesystem::path& file,
                                  const ProgressStretch& progress);

/// OFF, with normals and colours of vertices.
[[nodiscard]] PlainModel plainOff(std::string bytes, const std::filesystem::path& file,
                                  const ProgressStretch& progress);

}  // namespace qelview
