#pragma once

#include <cstdint>
#include <string_view>

#include "PlainModel.h"
#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// Which normals a mesh gets: those of the file where it has some, or always new ones.
enum class Normals : std::uint8_t { OfTheFile, MadeAnew };

/// Imports a mesh (OBJ, PLY, STL, OFF): polygons become triangles, concave ones too; normals are made where
/// the file has none, with edges kept sharp; vertex colours go before colours of materials. Lines and single
/// points of the file are shown as such.
/// @param extension of the format that the model is written in, ".obj" and the like.
/// @throws ReadError if the importer refuses the model or gives wrong indices or numbers.
[[nodiscard]] Scene readMesh(const PlainModel& model, std::string_view extension, Normals normals,
                             const ProgressStretch& progress);

/// False if the importer was built for single precision: meshes far from the origin lose digits then.
[[nodiscard]] bool readsMeshesInDoublePrecision();

}  // namespace qelview
