#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "PartsInView.h"

namespace qelview {

/// Triangles of a mesh that are left out or drawn together: neighbours in the file are mostly neighbours on
/// the surface, so the rest still shows its shape.
inline constexpr std::size_t kTrianglesOfABlock = 32;

/// The corners of the triangles in ranges. A range's step counts blocks; its first block is always there.
/// @param indices three a triangle; empty if each three positions are a triangle.
/// @param corners receives them; its storage is used again.
void findDrawnCorners(const std::vector<DrawnRange>& ranges, const std::vector<std::uint32_t>& indices,
                      std::vector<std::uint32_t>& corners);

}  // namespace qelview
