#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <tuple>
#include <vector>

#include "MeshFaces.h"
#include "Numbering.h"
#include "ObjMaterials.h"
#include "Scene.h"
#include "Warnings.h"

namespace qelview {

inline constexpr std::uint32_t kNoNumber = 0xFFFFFFFF;

/// What a corner of an OBJ element names, counted from 0.
struct ObjCorner {
    std::uint32_t position = 0;
    /// Or `kNoNumber`.
    std::uint32_t normal = kNoNumber;
    std::uint32_t texCoord = kNoNumber;
};

/// Collects what an OBJ file says, where elements may name what is defined below them, and makes meshes of
/// it, whose vertices are what corners name together.
class ObjMeshes {
  public:
    /// How many of each are expected, for the size of the arrays. There can be more.
    struct Counts {
        std::size_t positions = 0;
        std::size_t normals = 0;
        std::size_t texCoords = 0;
        std::size_t corners = 0;
    };

    explicit ObjMeshes(const Counts& expected);

    void addPosition(const qel::XPnt3d& position);
    /// Of the last position; those without one are white. Shares, or bytes if one in the file is above 1.
    void setColor(const std::array<double, 3>& color);
    /// Of any length.
    void addNormal(const qel::XPnt3d& normal);
    /// With v upwards in the image.
    void addTexCoord(double u, double v) {
        texCoords.push_back({static_cast<float>(u), static_cast<float>(v)});
    }
    /// Of the faces from here on. A texture shows on those with texture coordinates only, in place of the
    /// colours of positions.
    void setLook(const ObjLook& other) { look = other; }
    /// @param face three corners at least.
    void addFace(std::span<const ObjCorner> face);
    void addLineOrPoints(bool isLine, std::span<const ObjCorner> named);

    /// A mesh for each look; lines; points, or all positions if there is nothing else. All numbers must exist
    /// by now. Empties this object.
    [[nodiscard]] Scene finished(Warnings& warnings);

  private:
    /// Numbers the vertices of each mesh.
    class VertexNumbers {
      public:
        explicit VertexNumbers(std::size_t positions = 0) : firstOfPositions(positions) {}

        /// @param next the number that a new vertex gets.
        std::uint32_t numberOf(const ObjCorner& corner, std::uint32_t mesh, std::uint32_t next);

      private:
        struct Vertex {
            std::uint32_t normal = kNoNumber;
            std::uint32_t texCoord = kNoNumber;
            std::uint32_t mesh = kNoNumber;
            std::uint32_t number = 0;
        };

        std::vector<Vertex> firstOfPositions;
        Numbering<std::uint32_t, 4> others{0};
        std::vector<std::uint32_t> numbersOfOthers;
    };
    /// Faces that become one mesh.
    struct MeshKind {
        ObjLook look;
        bool hasNormals = false;
        bool hasTexCoords = false;
        std::size_t triangles = 0;
        std::vector<ObjCorner> vertices;
        MeshFaces faces;
    };
    /// Red, green, blue, whether the faces have normals of their own, and their texture.
    using MeshKey = std::tuple<float, float, float, bool, const Texture*>;
    /// Faces of the same number of corners, one after the other.
    struct Section {
        std::size_t mesh = 0;
        std::size_t cornersOfAFace = 0;
        std::size_t firstCorner = 0;
    };

    [[nodiscard]] TriangleMesh meshOf(const MeshKind& kind) const;
    void placeFaces(Scene& scene, Warnings& warnings);
    void placeLines(Scene& scene) const;
    void placePoints(Scene& scene) const;
    [[nodiscard]] qel::QelColor3f colorOf(std::uint32_t position) const;

    Points positions;
    /// Empty, or one a position.
    std::vector<std::array<float, 3>> colors;
    float largestChannel = 0.0F;
    std::vector<qel::XPnt3f> normals;
    std::vector<std::array<float, 2>> texCoords;
    ObjLook look;
    std::map<MeshKey, std::size_t> meshes;
    std::vector<MeshKind> kinds;
    VertexNumbers vertexNumbers;
    std::vector<Section> sections;
    /// The vertices of all faces, in the order of the sections: one array, since the size of those of each mesh
    /// is known at the end only.
    std::vector<std::uint32_t> corners;
    std::vector<std::vector<std::uint32_t>> lines;
    std::vector<std::uint32_t> points;
};

}  // namespace qelview
