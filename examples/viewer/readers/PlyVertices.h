#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "PlyHeader.h"
#include "Scene.h"

namespace qelview {

/// What a value of a PLY file is for.
enum class PlyUse : std::uint8_t {
    None,
    Position,
    Normal,
    Color,
    TexCoord,
    MaterialColor,
    /// The vertices of a face.
    Corners,
    /// u and v of each corner of a face.
    CornerTexCoords,
    /// The number of the image that a face shows.
    Image,
    /// Vertices of triangle strips.
    Strips,
};

struct PlyMeaning {
    PlyUse use = PlyUse::None;
    /// 0 to 2: x, y, z, or red, green, blue; 0 and 1: u and v.
    std::size_t axis = 0;
};

[[nodiscard]] PlyMeaning meaningOf(const PlyElement& element, const PlyProperty& property);

/// True if a property of the element has this use.
[[nodiscard]] bool uses(const PlyElement& element, PlyUse use);

/// The vertices of a PLY file, value by value or column by column.
class PlyVertices {
  public:
    /// @param count of the vertices, which begin with values of 0.
    /// @param areOfFaces vertices of faces keep normals and shares of colours, others bytes of colours alone.
    /// @param areTextured vertices keep texture coordinates, and no colours.
    PlyVertices(const PlyElement& element, std::size_t count, bool areOfFaces, bool areTextured);

    /// Values of one property of following vertices.
    /// @return how many are sound: all, or up to the first coordinate that cannot be drawn.
    std::size_t setColumn(const PlyMeaning& meaning, ScalarType type, std::size_t first,
                          std::span<const double> values);
    [[nodiscard]] TriangleMesh takeMesh();
    [[nodiscard]] PointCloud takeCloud();

  private:
    /// Without the arrays of what is not kept.
    TriangleMesh mesh;
    std::vector<qel::QelColor3b> colorsOfPoints;
};

}  // namespace qelview
