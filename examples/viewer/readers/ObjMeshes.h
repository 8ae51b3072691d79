#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <tuple>
#include <vector>

#include "Scene.h"
#include "Warnings.h"

namespace qelview {

inline constexpr std::uint32_t kNoNumber = 0xFFFFFFFF;

/// What a corner of an OBJ element names, counted from 0.
struct ObjCorner {
    std::uint32_t position = 0;
    /// Or `kNoNumber`.
    std::uint32_t normal = kNoNumber;
};

/// Collects what an OBJ file says, where elements may name what is defined below them, and makes meshes of
/// it, whose vertices are what corners name together.
class ObjMeshes {
  public:
    void addPosition(const qel::XPnt3d& position);
    /// Of the last position; those without one are white. Shares, or bytes if one in the file is above 1.
    void setColor(const std::array<double, 3>& color);
    /// Of any length.
    void addNormal(const qel::XPnt3d& normal);
    /// Of the faces from here on; nothing for the viewer's own colour.
    void setLook(const std::optional<qel::QelColor3f>& color) { look = color; }
    /// @param corners three at least.
    void addFace(std::span<const ObjCorner> corners);
    void addLineOrPoints(bool isLine, std::span<const ObjCorner> corners);

    /// A mesh for each look; lines; points, or all positions if there is nothing else. All numbers must exist
    /// by now. Empties this object.
    [[nodiscard]] Scene finished(Warnings& warnings);

  private:
    /// Red, green, blue, and whether the faces have normals of their own.
    using Look = std::tuple<float, float, float, bool>;
    /// Faces of the same number of corners, one after the other.
    struct Section {
        std::size_t mesh = 0;
        bool hasNormals = false;
        std::size_t cornersOfAFace = 0;
        std::size_t firstCorner = 0;
    };

    class VertexNumbers;

    [[nodiscard]] std::size_t meshOf(bool hasNormals);
    /// The vertex of a corner, which the mesh gets if it has none.
    [[nodiscard]] std::uint32_t vertexOf(const ObjCorner& corner, const Section& section,
                                         VertexNumbers& numbers, TriangleMesh& mesh) const;
    void placeFaces(Scene& scene, Warnings& warnings);
    void placeLines(Scene& scene) const;
    void placePoints(Scene& scene) const;
    [[nodiscard]] qel::QelColor3f colorOf(std::uint32_t position) const;

    Points positions;
    /// Empty, or one a position.
    std::vector<std::array<float, 3>> colors;
    float largestChannel = 0.0F;
    std::vector<qel::XPnt3f> normals;
    std::optional<qel::QelColor3f> look;
    std::map<Look, std::size_t> meshes;
    std::vector<Section> sections;
    std::vector<ObjCorner> cornersOfFaces;
    std::vector<std::vector<std::uint32_t>> lines;
    std::vector<std::uint32_t> points;
};

}  // namespace qelview
