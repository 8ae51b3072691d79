#include "MeshNormals.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <span>
#include <utility>

#include "AllCores.h"
#include "Numbering.h"

namespace qelview {

namespace {

/// No edges are kept sharp around a place with more triangles than this: comparing all pairs is quadratic.
constexpr std::size_t kMostTrianglesOfASharpPlace = 256;
/// Normals nearer to each other than this share a vertex.
constexpr double kSameNormal = 1.0 - 1e-6;

/// A triangle as the places around it see it.
struct Facet {
    /// Of unit length.
    qel::XPnt3f normal;
    /// The largest of the mesh being 1: large triangles count more. 0 if there is no normal.
    float area = 0.0F;
};

/// A duplicate of a vertex, for corners with another normal.
struct Copy {
    std::uint32_t vertex = 0;
    qel::XPnt3f normal;
};

/// The corners of triangles at each place: one array, with the index of the first corner of each place.
struct CornersOfPlaces {
    std::vector<std::uint32_t> begin;
    std::vector<std::uint32_t> corners;
};

/// @param placeOf the number of the place of a vertex, below `count`.
template <class PlaceOf>
CornersOfPlaces sortCorners(const TriangleMesh& mesh, std::size_t count, const PlaceOf& placeOf) {
    CornersOfPlaces places;
    places.begin.reserve(count + 2);
    places.begin.assign(count + 1, 0);
    for (const std::uint32_t vertex : mesh.indices) {
        ++places.begin[placeOf(vertex) + 1];
    }
    std::partial_sum(places.begin.begin(), places.begin.end(), places.begin.begin());
    places.corners.resize(mesh.indices.size());
    // Filled in from behind, the end of each place becomes its beginning.
    for (std::size_t corner = mesh.indices.size(); corner-- > 0;) {
        std::uint32_t& end = places.begin[placeOf(mesh.indices[corner]) + 1];
        places.corners[--end] = static_cast<std::uint32_t>(corner);
    }
    places.begin.push_back(static_cast<std::uint32_t>(mesh.indices.size()));
    places.begin.erase(places.begin.begin());
    return places;
}

/// Vertices at the same place are one.
CornersOfPlaces cornersOf(const TriangleMesh& mesh) {
    const Points& positions = mesh.positions;
    if (mesh.arePlacesDistinct) {
        return sortCorners(mesh, positions.size(), [](std::uint32_t vertex) { return vertex; });
    }
    // Adding 0 makes -0 a 0.
    const auto word = [](double coordinate) { return std::bit_cast<std::uint64_t>(coordinate + 0.0); };
    Numbered<std::uint64_t, 3> places =
        numberAll<std::uint64_t, 3>(positions.size(), positions.size(), [&](std::size_t i) {
            return std::array{word(positions[i].x), word(positions[i].y), word(positions[i].z)};
        });
    const std::size_t count = std::exchange(places.keys, {}).size();
    return sortCorners(mesh, count, [&places](std::uint32_t vertex) { return places.numbers[vertex]; });
}

/// Faster than `std::hypot`, which alone is exact where squares lose digits or overflow.
double lengthOf(const qel::XPnt3d& vector) {
    constexpr double kSmallest = 1e-280;
    constexpr double kLargest = 1e280;
    const double square = vector.x * vector.x + vector.y * vector.y + vector.z * vector.z;
    return square > kSmallest && square < kLargest ? std::sqrt(square)
                                                   : std::hypot(vector.x, vector.y, vector.z);
}

qel::XPnt3d crossOf(const TriangleMesh& mesh, std::size_t triangle) {
    const std::uint32_t* const corners = &mesh.indices[3 * triangle];
    return qel::cross(mesh.positions[corners[0]], mesh.positions[corners[1]], mesh.positions[corners[2]]);
}

/// Twice the area of the largest triangle.
double largestAreaOf(const TriangleMesh& mesh) {
    const std::vector<Piece> pieces = piecesOf(mesh.indices.size() / 3);
    std::vector<double> areas(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        double largest = 0.0;
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            largest = std::max(largest, lengthOf(crossOf(mesh, i)));
        }
        areas[number] = largest;
    });
    return *std::max_element(areas.begin(), areas.end());
}

/// The areas are computed twice rather than kept, which would take more memory than the normals.
std::vector<Facet> facetsOf(const TriangleMesh& mesh) {
    const double largest = largestAreaOf(mesh);
    std::vector<Facet> facets(mesh.indices.size() / 3);
    forEachOnAllCores(facets.size(), [&](std::size_t i) {
        const qel::XPnt3d cross = crossOf(mesh, i);
        const double area = lengthOf(cross);
        if (area > 0.0) {
            facets[i] = {qel::XPnt3f(cross * (1.0 / area)), static_cast<float>(area / largest)};
        }
    });
    return facets;
}

/// Computes the normals around one place at a time.
class Smoother {
  public:
    Smoother(TriangleMesh& target, const CornersOfPlaces& cornersOfPlaces,
             const std::vector<Facet>& facetsOfMesh, double creaseAngleDegrees)
        : mesh(target),
          places(cornersOfPlaces),
          facets(facetsOfMesh),
          creaseCosine(std::cos(creaseAngleDegrees * std::numbers::pi / 180.0)),
          halfCreaseCosine(std::cos(creaseAngleDegrees * std::numbers::pi / 360.0)) {}

    void smooth(std::size_t place) {
        const std::size_t begin = places.begin[place];
        corners = {&places.corners[begin], places.begin[place + 1] - begin};
        qel::XPnt3d sum;
        for (const std::uint32_t corner : corners) {
            sum += weighted(facetOf(corner));
        }
        const qel::XPnt3f whole = unitNormal(sum);
        if (corners.size() > kMostTrianglesOfASharpPlace || isSmooth(whole)) {
            for (const std::uint32_t corner : corners) {
                mesh.normals[mesh.indices[corner]] = whole;
            }
            return;
        }
        copiesOfPlace.clear();
        for (const std::uint32_t corner : corners) {
            giveNormal(corner, normalAt(corner));
        }
    }

    /// The vertices that were split off, in order, and the corners that have them: once all other vertices
    /// are known.
    void appendCopies() {
        const auto first = static_cast<std::uint32_t>(mesh.positions.size());
        appendCopies(mesh.positions);
        appendCopies(mesh.colors);
        appendCopies(mesh.texCoords);
        for (const Copy& copy : copies) {
            mesh.normals.push_back(copy.normal);
        }
        for (const auto& [corner, copy] : cornersOfCopies) {
            mesh.indices[corner] = first + copy;
        }
    }

  private:
    /// To an array that the mesh may be without.
    template <class Element>
    void appendCopies(std::vector<Element>& elements) const {
        // Room for all first: what is copied lies in the same array.
        elements.reserve(elements.empty() ? 0 : elements.size() + copies.size());
        for (std::size_t i = 0; i < copies.size() && !elements.empty(); ++i) {
            elements.push_back(elements[copies[i].vertex]);
        }
    }

    [[nodiscard]] const Facet& facetOf(std::uint32_t corner) const { return facets[corner / 3]; }

    static double cosine(const qel::XPnt3f& a, const qel::XPnt3f& b) {
        return static_cast<double>(a.x * b.x + a.y * b.y + a.z * b.z);
    }

    static qel::XPnt3d weighted(const Facet& facet) {
        const auto area = static_cast<double>(facet.area);
        return {static_cast<double>(facet.normal.x) * area, static_cast<double>(facet.normal.y) * area,
                static_cast<double>(facet.normal.z) * area};
    }

    /// True if all triangles around the place are so near to their mean that no two can be an edge.
    [[nodiscard]] bool isSmooth(const qel::XPnt3f& whole) const {
        return std::all_of(corners.begin(), corners.end(), [&](std::uint32_t corner) {
            const Facet& facet = facetOf(corner);
            return facet.area == 0.0F || cosine(facet.normal, whole) > halfCreaseCosine;
        });
    }

    /// The mean of the triangles around that differ less than the crease angle from that of the corner, or of
    /// all if that has no area.
    [[nodiscard]] qel::XPnt3f normalAt(std::uint32_t corner) const {
        const Facet& own = facetOf(corner);
        qel::XPnt3d sum;
        for (const std::uint32_t other : corners) {
            if (own.area == 0.0F || cosine(own.normal, facetOf(other).normal) >= creaseCosine) {
                sum += weighted(facetOf(other));
            }
        }
        return unitNormal(sum);
    }

    /// The first normal of a vertex is its own; others are those of copies.
    void giveNormal(std::uint32_t corner, const qel::XPnt3f& normal) {
        const std::uint32_t vertex = mesh.indices[corner];
        bool isFirst = true;
        for (const auto& [known, copy] : copiesOfPlace) {
            if (known != vertex) {
                continue;
            }
            isFirst = false;
            const qel::XPnt3f& there = copy == kOriginal ? mesh.normals[vertex] : copies[copy].normal;
            if (cosine(there, normal) > kSameNormal) {
                if (copy != kOriginal) {
                    cornersOfCopies.emplace_back(corner, copy);
                }
                return;
            }
        }
        if (isFirst) {
            mesh.normals[vertex] = normal;
            copiesOfPlace.emplace_back(vertex, kOriginal);
            return;
        }
        const auto copy = static_cast<std::uint32_t>(copies.size());
        copies.push_back({vertex, normal});
        copiesOfPlace.emplace_back(vertex, copy);
        cornersOfCopies.emplace_back(corner, copy);
    }

    static constexpr std::uint32_t kOriginal = 0xFFFFFFFF;

    TriangleMesh& mesh;
    const CornersOfPlaces& places;
    const std::vector<Facet>& facets;
    double creaseCosine;
    double halfCreaseCosine;
    /// Of the current place.
    std::span<const std::uint32_t> corners;
    /// Vertices of the current place, with the number of a copy.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> copiesOfPlace;
    std::vector<Copy> copies;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> cornersOfCopies;
};

}  // namespace

qel::XPnt3f unitNormal(const qel::XPnt3d& normal) {
    // The reciprocal of a shorter one is not finite.
    constexpr double kShortest = 1e-300;
    const double length = lengthOf(normal);
    const bool isUsable = std::isfinite(length) && length > kShortest;
    return isUsable ? qel::XPnt3f(normal * (1.0 / length)) : qel::XPnt3f(0.0F, 0.0F, 1.0F);
}

void makeNormals(TriangleMesh& mesh, double creaseAngleDegrees) {
    if (mesh.indices.empty()) {
        mesh.indices.resize(mesh.positions.size() / 3 * 3);
        std::iota(mesh.indices.begin(), mesh.indices.end(), 0U);
    }
    mesh.normals.assign(mesh.positions.size(), qel::XPnt3f(0.0F, 0.0F, 1.0F));
    const CornersOfPlaces places = cornersOf(mesh);
    const std::vector<Facet> facets = facetsOf(mesh);
    // Each vertex and each corner belongs to one place, so pieces share no writes.
    const std::vector<Piece> pieces = piecesOf(places.begin.size() - 1);
    std::vector<Smoother> smoothers(pieces.size(), Smoother(mesh, places, facets, creaseAngleDegrees));
    onAllCores(pieces, [&](std::size_t number) {
        for (std::size_t place = pieces[number].begin; place < pieces[number].end; ++place) {
            smoothers[number].smooth(place);
        }
    });
    for (Smoother& smoother : smoothers) {
        smoother.appendCopies();
    }
    mesh.arePlacesDistinct = false;
}

}  // namespace qelview
