#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace qelview {

/// A vertex as it is shown.
struct PlyVertex {
    std::array<double, 3> position{};
    std::array<double, 3> normal{};
    /// Shares of full intensity.
    std::array<double, 3> color{};
};

/// Writes a binary PLY file of little-endian numbers that holds nothing but vertices and faces.
class PlyWriting {
  public:
    /// Which vertices have besides their position.
    PlyWriting(bool verticesHaveNormals, bool verticesHaveColors)
        : hasNormals(verticesHaveNormals), hasColors(verticesHaveColors) {}

    void addVertex(const PlyVertex& vertex);
    /// Of numbers of vertices, from 0.
    void addFace(std::span<const std::uint32_t> corners);
    [[nodiscard]] std::string take();

  private:
    [[nodiscard]] std::string header() const;

    bool hasNormals;
    bool hasColors;
    std::string vertices;
    std::uint64_t vertexCount = 0;
    std::string faces;
    std::uint64_t faceCount = 0;
};

}  // namespace qelview
