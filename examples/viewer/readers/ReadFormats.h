#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// The readers, one a format. Polygons of meshes become triangles, concave ones too. Meshes of files that
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

/// Reads a glTF 2 asset, as text or as one binary file: the meshes that the nodes of its scene place, with
/// normals, colours of vertices, colours and textures of materials; animations are left out. Triangles, lines
/// and points become those of a scene. The format says that Y points up.
/// @param file next to which the files of its buffers and images are.
/// @param mostCorners of all meshes as often as they are placed, with their indices: a small file can place a
/// mesh any number of times.
/// @throws ReadError at the first thing that is wrong, of those that are shown.
[[nodiscard]] Scene readGltf(std::string_view bytes, const std::filesystem::path& file,
                             const ProgressStretch& progress, std::uint64_t mostCorners = 50'000'000);

/// Reads a text of points, one a line: x y z, or with six columns x y z red green blue. A first line with the
/// names of the columns is honoured, whatever their order. Columns are separated by semicolons, commas, or
/// blanks, as in the first line. Empty lines and lines that begin with '#' or '//' are skipped.
///
/// The points become a cloud; if a column names a time, they are a path, and a line joins them as well.
/// @throws ReadError at the first line that is wrong.
[[nodiscard]] Scene readPoints(std::string_view text, const ProgressStretch& progress);

/// Reads GeoJSON: points, lines, polygons with holes, collections of each, alone or as features. A height is
/// kept if a position has one. Features without a geometry are left out.
///
/// Points become one cloud, each line a polyline, each polygon a polygon of the scene.
/// @throws ReadError at the first thing that is wrong: the line for what is no JSON, the feature for the
/// rest.
[[nodiscard]] Scene readGeoJson(std::string_view text, const ProgressStretch& progress);

}  // namespace qelview
