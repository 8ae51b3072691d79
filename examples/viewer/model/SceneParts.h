#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Enve3d.h"
#include "QelArrayElements.h"
#include "QelColor.h"
#include "Texture.h"
#include "XPnt3d.h"
#include "XPnt3f.h"

/// What a scene is made of. Positions are doubles in model units.

namespace qelview {

using Points = std::vector<qel::XPnt3d>;

/// The axis of a file that points up.
enum class UpAxis : std::uint8_t { Y, Z };

/// A direction of a file whose `up` points up, in a frame whose Z points up.
[[nodiscard]] constexpr qel::XPnt3d upright(const qel::XPnt3d& vector, UpAxis up) {
    return up == UpAxis::Y ? qel::XPnt3d(vector.x, -vector.z, vector.y) : vector;
}
/// The other way round.
[[nodiscard]] constexpr qel::XPnt3d fromUpright(const qel::XPnt3d& vector, UpAxis up) {
    return up == UpAxis::Y ? qel::XPnt3d(vector.x, vector.z, -vector.y) : vector;
}

/// Neighbours: a range of the triangles of a mesh, or of the points of a cloud, and the box around them.
struct SpatialPart {
    std::size_t begin = 0;
    std::size_t end = 0;
    qel::Enve3d box;
};

/// Triangles with optional normals, colours and texture.
struct TriangleMesh {
    std::string name;
    Points positions;
    /// Three a triangle; empty if each three positions are a triangle.
    std::vector<std::uint32_t> indices;
    /// Empty, or one a position, of unit length.
    std::vector<qel::XPnt3f> normals;
    /// Empty, or one a position.
    std::vector<qel::QelColor3f> colors;
    /// Used where there are no colours.
    qel::QelColor3f color{0.75F, 0.75F, 0.78F};
    /// True while it is known that no two positions are the same, which saves `makeNormals` comparing them.
    bool arePlacesDistinct = false;
    /// One shade a triangle instead of a smooth surface.
    bool faceted = false;
    /// Empty, or one a position.
    std::vector<qel::ArrayTexCoord2f> texCoords;
    /// Multiplies the colours; only with texture coordinates.
    std::shared_ptr<const Texture> texture;
    /// All triangles in their order; empty while the mesh is one part.
    std::vector<SpatialPart> parts;
};

struct PointCloud {
    Points positions;
    /// Empty, or one a position.
    std::vector<qel::QelColor3b> colors;
    /// Used where there are no colours.
    qel::QelColor3f color{0.90F, 0.88F, 0.80F};
    /// In pixels.
    float size = 2.0F;
    /// All points in their order; empty while the cloud is one part.
    std::vector<SpatialPart> parts;
};

/// Colour and width (in pixels) of lines.
struct LineStyle {
    qel::QelColor4b color{230, 230, 235};
    float width = 1.0F;
};

struct Polyline {
    std::vector<Points> parts;
    LineStyle style;
};

/// Rings are drawn as they are: one looks closed if its first point is repeated at the end.
struct Polygon {
    std::vector<Points> rings;
    LineStyle style;
};

/// Closed by the drawing.
struct Ring {
    Points points;
    LineStyle style;
};

struct Curve {
    Points points;
    LineStyle style;
};

struct Segment {
    qel::XPnt3d from;
    qel::XPnt3d to;
    LineStyle style;
};

struct Ball {
    qel::XPnt3d center;
    double radius = 1.0;
    LineStyle style;
};

/// A single point; symbols draw it green.
struct SurveyPoint {
    qel::XPnt3d position;
};

enum class MarkerShape : std::uint8_t { Cross, DiagonalCross, Square, Circle, Box, StippledLine };

/// A marker of a symbol. A circle lies at z = 0 whatever the z of its centre.
struct Marker {
    MarkerShape shape = MarkerShape::Cross;
    /// Centre; one end of a stippled line.
    qel::XPnt3d at{};
    /// The other end of a stippled line.
    qel::XPnt3d to{};
    /// Half length, half side or radius in model units.
    double size = 1.0;
    /// Corners of a box.
    qel::Enve3d box{};
    qel::QelColor3f color{1.0F, 1.0F, 1.0F};
    float width = 1.0F;
};

/// Text next to a model point.
struct Label {
    qel::XPnt3d at;
    std::string text;
};

}  // namespace qelview
