#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// Collects faces of any number of corners and triangulates them.
class MeshFaces {
  public:
    /// @param corners three or more numbers of vertices of the mesh, which may come later.
    void add(std::span<const std::uint32_t> corners);
    void reserveTriangles(std::size_t count) { triangles.reserve(count * 3); }
    [[nodiscard]] bool isEmpty() const { return triangles.empty() && polygons.empty(); }
    /// Moves the triangles into the mesh whose vertices the faces name. Polygons are cut,
    /// concave ones too. Where their edges cross, vertices are added to the mesh.
    /// @return how many faces are left out because their edges cross too often.
    std::size_t moveInto(TriangleMesh& mesh);

  private:
    std::vector<std::uint32_t> triangles;
    /// Of faces of more than three corners: how many, then the corners.
    std::vector<std::uint32_t> polygons;
};

}  // namespace qelview
