#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// Points of a surface in rows and columns, row by row.
struct HeightGrid {
    Points points;
    std::size_t columns = 0;
};

/// The triangles of such points, two between four neighbours, by their numbers.
[[nodiscard]] std::vector<std::uint32_t> gridTriangles(std::size_t points, std::size_t columns);

/// The lines on which the surface has the height `level`. A line that closes repeats its first point.
[[nodiscard]] std::vector<Points> contourLines(const HeightGrid& grid, double level);

}  // namespace qelview
