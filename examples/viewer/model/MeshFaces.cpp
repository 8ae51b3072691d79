#include "MeshFaces.h"

#include <utility>

#include "MeshNormals.h"
#include "PolygonCutter.h"

namespace qelview {

namespace {

/// Its length is twice the area, whatever the shape.
/// Source: M. E. Newell's method, in I. Sutherland et al., A Characterization of Ten Hidden-Surface
/// Algorithms, Computing Surveys 6(1), 1974.
qel::XPnt3d normalOf(const Points& outline) {
    qel::XPnt3d normal;
    for (std::size_t i = 1; i + 1 < outline.size(); ++i) {
        normal += qel::cross(outline[0], outline[i], outline[i + 1]);
    }
    return normal;
}

/// A direction across the face, even if its parts are turned over and cancel each other out.
qel::XPnt3d anyNormalOf(const Points& outline) {
    qel::XPnt3d longest;
    for (std::size_t i = 1; i + 1 < outline.size(); ++i) {
        const qel::XPnt3d normal = qel::cross(outline[0], outline[i], outline[i + 1]);
        longest = normal.norm() > longest.norm() ? normal : longest;
    }
    return longest;
}

class Cutting {
  public:
    explicit Cutting(TriangleMesh& target) : mesh(target), cutter(Filling::NonZero), outline(1) {}

    void add(std::span<const std::uint32_t> corners) {
        // Around its first corner, since far from the origin products of coordinates lose digits.
        const qel::XPnt3d first = mesh.positions[corners[0]];
        Points& points = outline.front();
        points.clear();
        for (const std::uint32_t corner : corners) {
            points.push_back(mesh.positions[corner] - first);
        }
        normal = normalOf(points);
        for (const std::size_t tip : {0U, 1U}) {
            if (isFan(tip)) {
                addFan(corners, tip);
                return;
            }
        }
        normal = normal.norm() > 0.0 ? normal : anyNormalOf(points);
        if (normal.norm() > 0.0) {
            addPieces(corners, first);
        }
    }

    /// Faces that were too tangled.
    [[nodiscard]] std::size_t leftOut() const { return tangled; }

  private:
    /// True if triangles from one corner to all edges fill the face: none is turned over, and all lie on one
    /// side of the first edge, so that none overlaps another.
    [[nodiscard]] bool isFan(std::size_t tip) const {
        const Points& points = outline.front();
        const std::size_t count = points.size();
        const auto at = [&](std::size_t i) -> const qel::XPnt3d& { return points[(tip + i) % count]; };
        for (std::size_t i = 2; i < count; ++i) {
            const bool isSound = qel::dot(qel::cross(at(0), at(i - 1), at(i)), normal) > 0.0 &&
                                 qel::dot(qel::cross(at(0), at(1), at(i)), normal) > 0.0;
            if (!isSound) {
                return false;
            }
        }
        return true;
    }

    void addFan(std::span<const std::uint32_t> corners, std::size_t tip) {
        const std::size_t count = corners.size();
        for (std::size_t i = 2; i < count; ++i) {
            mesh.indices.insert(mesh.indices.end(),
                                {corners[tip], corners[(tip + i - 1) % count], corners[(tip + i) % count]});
        }
    }

    void addPieces(std::span<const std::uint32_t> corners, const qel::XPnt3d& first) {
        const PolygonCutter::Triangles& cut = cutter.cut(outline, normal);
        tangled += cut.isTooTangled ? 1 : 0;
        numbers.assign(corners.begin(), corners.end());
        for (const PolygonCutter::Crossing& crossing : cut.crossings) {
            numbers.push_back(addVertex(crossing, first));
        }
        for (const std::uint32_t corner : cut.corners) {
            mesh.indices.push_back(numbers[corner]);
        }
    }

    /// Interpolates the attributes of the vertices around it.
    std::uint32_t addVertex(const PolygonCutter::Crossing& crossing, const qel::XPnt3d& first) {
        qel::XPnt3d blended;
        qel::QelColor3f color{0.0F, 0.0F, 0.0F};
        qel::ArrayTexCoord2f texCoord{0.0F, 0.0F};
        for (std::size_t i = 0; i < crossing.points.size(); ++i) {
            const std::uint32_t vertex = numbers[crossing.points.at(i)];
            const float share = crossing.shares.at(i);
            if (!mesh.normals.empty()) {
                blended += qel::XPnt3d(mesh.normals[vertex] * share);
            }
            if (!mesh.colors.empty()) {
                color.r += mesh.colors[vertex].r * share;
                color.g += mesh.colors[vertex].g * share;
                color.b += mesh.colors[vertex].b * share;
            }
            if (!mesh.texCoords.empty()) {
                texCoord.u += mesh.texCoords[vertex].u * share;
                texCoord.v += mesh.texCoords[vertex].v * share;
            }
        }
        if (!mesh.normals.empty()) {
            mesh.normals.push_back(unitNormal(blended));
        }
        if (!mesh.colors.empty()) {
            mesh.colors.push_back(color);
        }
        if (!mesh.texCoords.empty()) {
            mesh.texCoords.push_back(texCoord);
        }
        mesh.positions.push_back(crossing.position + first);
        return static_cast<std::uint32_t>(mesh.positions.size() - 1);
    }

    TriangleMesh& mesh;
    PolygonCutter cutter;
    std::vector<Points> outline;
    qel::XPnt3d normal;
    /// Of vertices of the mesh.
    std::vector<std::uint32_t> numbers;
    std::size_t tangled = 0;
};

}  // namespace

void MeshFaces::add(std::span<const std::uint32_t> corners) {
    if (corners.size() == 3) {
        triangles.insert(triangles.end(), corners.begin(), corners.end());
        return;
    }
    polygons.push_back(static_cast<std::uint32_t>(corners.size()));
    polygons.insert(polygons.end(), corners.begin(), corners.end());
}

std::size_t MeshFaces::moveInto(TriangleMesh& mesh) {
    mesh.indices = std::exchange(triangles, {});
    const std::vector<std::uint32_t> waiting = std::exchange(polygons, {});
    if (waiting.empty()) {
        return 0;
    }
    std::size_t corners = mesh.indices.size();
    for (std::size_t begin = 0; begin < waiting.size(); begin += waiting[begin] + 1) {
        corners += std::size_t{3} * (waiting[begin] - 2);
    }
    mesh.indices.reserve(corners);
    Cutting cutting(mesh);
    for (std::size_t begin = 0; begin < waiting.size(); begin += waiting[begin] + 1) {
        cutting.add(std::span(waiting).subspan(begin + 1, waiting[begin]));
    }
    return cutting.leftOut();
}

}  // namespace qelview
