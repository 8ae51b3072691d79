#pragma once

#include <string_view>

#include "Progress.h"
#include "Scene.h"

namespace qelview {

/// Reads a text of points, one a line: x y z, or with six columns x y z red green blue. A first line with the
/// names of the columns is honoured, whatever their order. Columns are separated by semicolons, commas, or
/// blanks, as in the first line. Empty lines and lines that begin with '#' or '//' are skipped.
///
/// The points become a cloud; if a column names a time, they are a path, and a line joins them as well.
/// @throws ReadError at the first line that is wrong.
[[nodiscard]] Scene readPoints(std::string_view text, const ProgressStretch& progress);

}  // namespace qelview
