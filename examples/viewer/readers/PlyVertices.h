#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
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
    /// @param areOfFaces vertices of faces keep normals and shares of colours, others bytes of colours alone.
    /// @param areTextured vertices keep texture coordinates, and no colours.
    PlyVertices(const PlyElement& element, bool areOfFaces, bool areTextured);

    void reserve(std::size_t count);
    /// New ones begin with values of 0.
    void resize(std::size_t count);
    /// Values of one property of following vertices.
    /// @return how many are sound: all, or up to the first coordinate that cannot be drawn.
    std::size_t setColumn(const PlyMeaning& meaning, ScalarType type, std::size_t first, const double* values,
                          std::size_t count);
    [[nodiscard]] TriangleMesh takeMesh();
    [[nodiscard]] PointCloud takeCloud();

  private:
    void setTexCoords(std::size_t axis, std::size_t first, const double* values, std::size_t count);
    void setColors(std::size_t channel, double whole, std::size_t first, const double* values,
                   std::size_t count);

    bool haveFaces;
    bool haveNormals;
    bool haveTexCoords;
    bool haveColors;
    TriangleMesh mesh;
    std::vector<qel::QelColor3b> colorsOfPoints;
};

}  // namespace qelview
