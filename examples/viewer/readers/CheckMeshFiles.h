#pragma once

#include <string_view>

#include "Progress.h"

namespace qelview {

/// Looks through a mesh file before the importer gets it: importers accept wrong indices, counts and numbers
/// silently, or cannot say where they stand. Each check throws a `ReadError` that names the place and the
/// fault, and returns if the importer may have the file.

/// Wavefront OBJ: numbers of vertex lines, indices of faces, lines and points.
void checkObj(std::string_view text, const ProgressStretch& progress);

/// PLY, ASCII and binary of both byte orders: header, counts against the size of the file, coordinates,
/// indices of faces.
void checkPly(std::string_view bytes, const ProgressStretch& progress);

/// STL, ASCII and binary: structure, counts, coordinates. The first word of the file decides nothing, since
/// binary files begin with "solid" too.
void checkStl(std::string_view bytes, const ProgressStretch& progress);

/// glTF as text and as one binary file: the JSON text, the lengths in the header, and that buffers and images
/// are Base64 text or files beside the model. Their numbers the importer checks itself.
void checkGltf(std::string_view text, const ProgressStretch& progress);
void checkGlb(std::string_view bytes, const ProgressStretch& progress);

/// OFF: counts, coordinates, indices of faces.
void checkOff(std::string_view text, const ProgressStretch& progress);

}  // namespace qelview
