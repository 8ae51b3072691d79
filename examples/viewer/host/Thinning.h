#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qelview {

/// Triangles of a mesh that are left out or drawn together: neighbours in the file are mostly neighbours on
/// the surface, so the rest still shows its shape.
inline constexpr std::size_t kTrianglesOfAPart = 32;

/// The corners of one of each `partsPerDrawn` parts of a mesh, the first part among them.
/// @param indices three a triangle; empty if each three positions are a triangle.
/// @param positionCount how many positions the mesh has.
[[nodiscard]] std::vector<std::uint32_t> thinnedTriangles(const std::vector<std::uint32_t>& indices,
                                                          std::size_t positionCount,
                                                          std::size_t partsPerDrawn);

}  // namespace qelview
