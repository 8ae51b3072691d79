#include "MeshNormals.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <numbers>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace qelview {

namespace {

/// Around a vertex with more triangles than this no edge is kept sharp: looking at all pairs would take long.
constexpr std::size_t kMostTrianglesOfASharpVertex = 256;
/// Normals nearer to each other than this share a vertex.
constexpr double kSameNormal = 1.0 - 1e-6;

using Place = std::array<double, 3>;

struct PlaceHash {
    std::size_t operator()(const Place& place) const {
        std::size_t hash = 0;
        for (const double coordinate : place) {
            hash = hash * 1000003U + std::hash<double>()(coordinate);
        }
        return hash;
    }
};

/// The triangles around each place, as one array with a beginning for each place.
struct Neighbours {
    std::vector<std::uint32_t> placeOfVertex;
    std::vector<std::size_t> begin;
    std::vector<std::uint32_t> triangles;
};

std::vector<std::uint32_t> numberPlaces(const Points& positions, std::size_t& count) {
    std::unordered_map<Place, std::uint32_t, PlaceHash> numbers;
    numbers.reserve(positions.size());
    std::vector<std::uint32_t> placeOfVertex;
    placeOfVertex.reserve(positions.size());
    for (const qel::XPnt3d& position : positions) {
        const Place place{position.x, position.y, position.z};
        placeOfVertex.push_back(
            numbers.try_emplace(place, static_cast<std::uint32_t>(numbers.size())).first->second);
    }
    count = numbers.size();
    return placeOfVertex;
}

Neighbours findNeighbours(const TriangleMesh& mesh) {
    Neighbours found;
    std::size_t places = 0;
    found.placeOfVertex = numberPlaces(mesh.positions, places);
    found.begin.assign(places + 1, 0);
    for (const std::uint32_t vertex : mesh.indices) {
        ++found.begin[found.placeOfVertex[vertex] + 1];
    }
    std::partial_sum(found.begin.begin(), found.begin.end(), found.begin.begin());
    std::vector<std::size_t> next(found.begin.begin(), found.begin.end() - 1);
    found.triangles.resize(mesh.indices.size());
    for (std::size_t corner = 0; corner < mesh.indices.size(); ++corner) {
        const std::uint32_t place = found.placeOfVertex[mesh.indices[corner]];
        found.triangles[next[place]++] = static_cast<std::uint32_t>(corner / 3);
    }
    return found;
}

/// Their lengths are twice the areas, so that large triangles count more in a sum.
Points triangleNormals(const TriangleMesh& mesh) {
    Points normals;
    normals.reserve(mesh.indices.size() / 3);
    for (std::size_t corner = 0; corner + 2 < mesh.indices.size(); corner += 3) {
        normals.push_back(qel::cross(mesh.positions[mesh.indices[corner]],
                                     mesh.positions[mesh.indices[corner + 1]],
                                     mesh.positions[mesh.indices[corner + 2]]));
    }
    return normals;
}

/// The mesh with vertices split where their corners have different normals.
class Splitter {
  public:
    explicit Splitter(const TriangleMesh& original) : source(original), copies(original.positions.size()) {}

    void addCorner(std::uint32_t vertex, const qel::XPnt3d& normal) {
        for (const std::uint32_t copy : copies[vertex]) {
            if (qel::dot(qel::XPnt3d(normals[copy]), normal) > kSameNormal) {
                indices.push_back(copy);
                return;
            }
        }
        const auto copy = static_cast<std::uint32_t>(positions.size());
        copies[vertex].push_back(copy);
        positions.push_back(source.positions[vertex]);
        normals.emplace_back(normal);
        if (!source.colors.empty()) {
            colors.push_back(source.colors[vertex]);
        }
        indices.push_back(copy);
    }

    void moveInto(TriangleMesh& mesh) {
        mesh.positions = std::move(positions);
        mesh.normals = std::move(normals);
        mesh.colors = std::move(colors);
        mesh.indices = std::move(indices);
    }

  private:
    const TriangleMesh& source;
    std::vector<std::vector<std::uint32_t>> copies;
    Points positions;
    std::vector<qel::XPnt3f> normals;
    std::vector<qel::QelColor3f> colors;
    std::vector<std::uint32_t> indices;
};

/// Unit vector of a sum of normals. Triangles without an area have none of their own: any will do.
qel::XPnt3d direction(qel::XPnt3d sum) {
    sum.normalize();
    return sum.norm() > 0.5 ? sum : qel::XPnt3d(0.0, 0.0, 1.0);
}

class Smoother {
  public:
    Smoother(const TriangleMesh& mesh, double creaseAngleDegrees)
        : around(findNeighbours(mesh)),
          ofTriangles(triangleNormals(mesh)),
          creaseCosine(std::cos(creaseAngleDegrees * std::numbers::pi / 180.0)) {}

    /// Of the normals around a vertex, those that differ less than the crease angle from that of a triangle
    /// there.
    [[nodiscard]] qel::XPnt3d normalAt(std::uint32_t vertex, std::size_t triangle) {
        const std::uint32_t place = around.placeOfVertex[vertex];
        if (around.begin[place + 1] - around.begin[place] > kMostTrianglesOfASharpVertex) {
            return normalOfAll(place);
        }
        const qel::XPnt3d& own = ofTriangles[triangle];
        qel::XPnt3d sum;
        for (std::size_t i = around.begin[place]; i < around.begin[place + 1]; ++i) {
            const qel::XPnt3d& other = ofTriangles[around.triangles[i]];
            if (qel::dot(own, other) >= creaseCosine * own.norm() * other.norm()) {
                sum += other;
            }
        }
        return direction(sum);
    }

  private:
    qel::XPnt3d normalOfAll(std::uint32_t place) {
        const auto [known, isNew] = normalsOfAll.try_emplace(place);
        if (isNew) {
            qel::XPnt3d sum;
            for (std::size_t i = around.begin[place]; i < around.begin[place + 1]; ++i) {
                sum += ofTriangles[around.triangles[i]];
            }
            known->second = direction(sum);
        }
        return known->second;
    }

    Neighbours around;
    Points ofTriangles;
    double creaseCosine;
    std::unordered_map<std::uint32_t, qel::XPnt3d> normalsOfAll;
};

}  // namespace

void makeNormals(TriangleMesh& mesh, double creaseAngleDegrees) {
    if (mesh.indices.empty()) {
        mesh.indices.resize(mesh.positions.size() / 3 * 3);
        std::iota(mesh.indices.begin(), mesh.indices.end(), 0U);
    }
    Smoother smoother(mesh, creaseAngleDegrees);
    Splitter splitter(mesh);
    for (std::size_t corner = 0; corner < mesh.indices.size(); ++corner) {
        const std::uint32_t vertex = mesh.indices[corner];
        splitter.addCorner(vertex, smoother.normalAt(vertex, corner / 3));
    }
    splitter.moveInto(mesh);
}

}  // namespace qelview
