#include "SpatialParts.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "AllCores.h"
#include "Reach.h"

namespace qelview {

namespace {

/// A part of fewer elements takes as long to ask for as to draw.
constexpr std::size_t kFewElements = 4096;
constexpr std::size_t kParts = 256;

/// Cells of a box are numbered so that those of a smaller cube follow each other: the bits of the three places
/// on the sides alternate (G. M. Morton, "A computer oriented geodetic data base", 1966).
constexpr unsigned kBitsOfASide = 3;
constexpr std::size_t kCells = std::size_t{1} << (3 * kBitsOfASide);
/// Cells of cells of cells; smaller ones no picture tells apart.
constexpr int kDeepest = 8;

class Cells {
  public:
    explicit Cells(const Reach& reach) : low(reach.low) {
        const qel::XPnt3d size = reach.high - reach.low;
        const double longest = std::max({size.x, size.y, size.z});
        cellsPerUnit = longest > 0.0 ? kCellsOfASide / longest : 0.0;
    }
    [[nodiscard]] std::size_t numberOf(const qel::XPnt3d& point) const {
        return spread(point.x - low.x) | spread(point.y - low.y) << 1U | spread(point.z - low.z) << 2U;
    }

  private:
    static constexpr double kCellsOfASide = 1U << kBitsOfASide;

    /// The place on a side, each bit followed by two zeros.
    [[nodiscard]] std::size_t spread(double distance) const {
        static constexpr std::array<std::uint16_t, 8> kSpread{0, 1, 8, 9, 64, 65, 72, 73};
        // Written so that a distance that is not a number is in the first cell.
        const double place = distance * cellsPerUnit;
        return kSpread.at(place < kCellsOfASide ? static_cast<std::size_t>(place > 0.0 ? place : 0.0)
                          : place > 0.0         ? kSpread.size() - 1
                                                : 0);
    }

    qel::XPnt3d low;
    double cellsPerUnit = 0.0;
};

class CloudPoints {
  public:
    explicit CloudPoints(PointCloud& sorted) : cloud(sorted) {}

    [[nodiscard]] std::size_t count() const { return cloud.positions.size(); }
    [[nodiscard]] const qel::XPnt3d& placeOf(std::size_t point) const { return cloud.positions[point]; }
    void include(std::size_t point, Reach& reach) const { reach.include(cloud.positions[point]); }
    void swap(std::size_t a, std::size_t b) const {
        std::swap(cloud.positions[a], cloud.positions[b]);
        if (!cloud.colors.empty()) {
            std::swap(cloud.colors[a], cloud.colors[b]);
        }
    }

  private:
    PointCloud& cloud;
};

class MeshTriangles {
  public:
    explicit MeshTriangles(TriangleMesh& sorted) : mesh(sorted) {}

    [[nodiscard]] std::size_t count() const {
        return (mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size()) / 3;
    }
    [[nodiscard]] const qel::XPnt3d& placeOf(std::size_t triangle) const { return corner(triangle * 3); }
    void include(std::size_t triangle, Reach& reach) const {
        for (std::size_t i = 0; i < 3; ++i) {
            reach.include(corner(triangle * 3 + i));
        }
    }
    void swap(std::size_t a, std::size_t b) const {
        if (!mesh.indices.empty()) {
            swapTriples(mesh.indices, a, b);
            return;
        }
        swapTriples(mesh.positions, a, b);
        swapTriples(mesh.normals, a, b);
        swapTriples(mesh.colors, a, b);
        swapTriples(mesh.texCoords, a, b);
    }

  private:
    template <class Element>
    static void swapTriples(std::vector<Element>& elements, std::size_t a, std::size_t b) {
        if (!elements.empty()) {
            Element* const triples = elements.data();
            std::swap_ranges(triples + a * 3, triples + a * 3 + 3, triples + b * 3);
        }
    }
    [[nodiscard]] const qel::XPnt3d& corner(std::size_t number) const {
        return mesh.positions[mesh.indices.empty() ? number : mesh.indices[number]];
    }

    TriangleMesh& mesh;
};

/// Sorts elements by cell, then those of a large cell by cells of its own, and so on.
template <class Elements>
class PartSorter {
  public:
    explicit PartSorter(const Elements& sorted)
        : elements(sorted), most(std::max(kFewElements, elements.count() / kParts)) {}

    [[nodiscard]] std::vector<SpatialPart> parts() {
        std::vector<SpatialPart> sorted;
        if (elements.count() > most) {
            // The cells of the whole are shared among the cores.
            const std::vector<Piece> cells = sortIntoCells({0, elements.count()});
            std::vector<std::vector<SpatialPart>> ofCells(cells.size());
            std::atomic<std::size_t> next = 0;
            onAllCores(piecesOf(elements.count()), [&](std::size_t /*core*/) {
                for (std::size_t cell = next++; cell < cells.size(); cell = next++) {
                    append(cells[cell], 1, ofCells[cell]);
                }
            });
            for (std::vector<SpatialPart>& ofCell : ofCells) {
                sorted.insert(sorted.end(), ofCell.begin(), ofCell.end());
            }
        }
        return sorted;
    }

  private:
    /// Where the elements of each cell begin, and the end.
    using Begins = std::array<std::size_t, kCells + 1>;

    [[nodiscard]] Reach reachOf(const Piece& range) const {
        Reach reach;
        for (std::size_t i = range.begin; i < range.end; ++i) {
            elements.include(i, reach);
        }
        return reach;
    }

    /// @return the cells, joined to cubes where these are small enough for one part.
    std::vector<Piece> sortIntoCells(const Piece& range) const {
        const Cells cells(reachOf(range));
        Begins begins{};
        for (std::size_t i = range.begin; i < range.end; ++i) {
            ++begins[cells.numberOf(elements.placeOf(i)) + 1];
        }
        begins[0] = range.begin;
        for (std::size_t cell = 0; cell < kCells; ++cell) {
            begins[cell + 1] += begins[cell];
        }
        std::array<std::size_t, kCells> next{};
        std::copy_n(begins.begin(), kCells, next.begin());
        for (std::size_t cell = 0; cell < kCells; ++cell) {
            // Each element of another cell goes to its own, in exchange for the next one there.
            for (std::size_t& i = next[cell]; i < begins[cell + 1];) {
                const std::size_t wanted = cells.numberOf(elements.placeOf(i));
                if (wanted == cell) {
                    ++i;
                } else {
                    elements.swap(i, next[wanted]++);
                }
            }
        }
        std::vector<Piece> joined;
        join(begins, {0, kCells}, joined);
        return joined;
    }

    /// Appends cells, all of a cube as one where that is small enough.
    void join(const Begins& begins, const Piece& cube, std::vector<Piece>& joined) const {
        const Piece elementsIn{begins[cube.begin], begins[cube.end]};
        const std::size_t cells = cube.end - cube.begin;
        if (cells == 1 || elementsIn.end - elementsIn.begin <= most) {
            if (elementsIn.begin < elementsIn.end) {
                joined.push_back(elementsIn);
            }
            return;
        }
        for (std::size_t i = 0; i < 8; ++i) {
            join(begins, {cube.begin + i * cells / 8, cube.begin + (i + 1) * cells / 8}, joined);
        }
    }

    void append(const Piece& cell, int depth, std::vector<SpatialPart>& parts) const {
        if (cell.end - cell.begin <= most || depth == kDeepest) {
            parts.push_back({cell.begin, cell.end, reachOf(cell).box()});
            return;
        }
        for (const Piece& inner : sortIntoCells(cell)) {
            append(inner, depth + 1, parts);
        }
    }

    Elements elements;
    std::size_t most;
};

}  // namespace

void sortIntoParts(TriangleMesh& mesh) {
    mesh.parts = PartSorter(MeshTriangles(mesh)).parts();
}

void sortIntoParts(PointCloud& cloud) {
    cloud.parts = PartSorter(CloudPoints(cloud)).parts();
}

}  // namespace qelview
