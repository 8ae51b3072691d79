#pragma once

#include <cstdint>
#include <string>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// Which normals a mesh gets: those of the file where it has some, or always new ones.
enum class Normals : std::uint8_t { OfTheFile, MadeAnew };

/// Imports a mesh file (OBJ, PLY, STL, OFF, glTF): polygons become triangles, concave ones too; normals are
/// made where the file has none, with edges kept sharp; vertex colours go before colours of materials. Lines
/// and single points of the file are shown as such.
/// @param path in UTF-8.
/// @throws ReadError if the importer refuses the file or gives wrong indices or numbers.
[[nodiscard]] Scene readMesh(const std::string& path, Normals normals, const ProgressStretch& progress);

/// False if the importer was built for single precision: meshes far from the origin lose digits then.
[[nodiscard]] bool readsMeshesInDoublePrecision();

}  // namespace qelview
