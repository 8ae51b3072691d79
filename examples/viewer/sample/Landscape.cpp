#include "Landscape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

#include "Contours.h"
#include "MeshNormals.h"

namespace qelview {

namespace {

constexpr std::size_t kColumns = 145;
constexpr std::size_t kRows = 109;
constexpr double kContourStep = 0.2;
constexpr int kIndexContour = 5;

struct Hill {
    double x;
    double y;
    double height;
    double reach;
};

constexpr std::array<Hill, 6> kHills{{
    {-6.0, 3.6, 3.3, 3.0},
    {-2.6, 5.8, 1.7, 2.4},
    {6.4, 5.0, 2.3, 3.4},
    {8.6, -5.6, 1.5, 2.6},
    {-9.0, -5.0, 1.1, 3.0},
    {2.6, -2.4, -0.9, 2.6},
}};

struct Tint {
    double height;
    qel::QelColor3f color;
};

constexpr std::array<Tint, 6> kTints{{
    {-0.5, {0.33F, 0.52F, 0.47F}},
    {0.3, {0.40F, 0.58F, 0.33F}},
    {1.2, {0.62F, 0.68F, 0.38F}},
    {2.0, {0.80F, 0.70F, 0.44F}},
    {2.9, {0.74F, 0.58F, 0.45F}},
    {3.6, {0.97F, 0.96F, 0.94F}},
}};

constexpr std::array<Tint, 5> kSoils{{
    {kLandFloor, {0.36F, 0.32F, 0.31F}},
    {-0.9, {0.47F, 0.39F, 0.34F}},
    {-0.3, {0.63F, 0.50F, 0.38F}},
    {0.8, {0.72F, 0.59F, 0.43F}},
    {3.6, {0.78F, 0.68F, 0.52F}},
}};

qel::QelColor3f colorAt(std::span<const Tint> tints, double height) {
    const auto above =
        std::find_if(tints.begin(), tints.end(), [height](const Tint& tint) { return tint.height > height; });
    if (above == tints.begin()) {
        return tints.front().color;
    }
    if (above == tints.end()) {
        return tints.back().color;
    }
    const Tint& low = *(above - 1);
    const auto share = static_cast<float>((height - low.height) / (above->height - low.height));
    const auto mix = [share](float from, float to) { return from + (to - from) * share; };
    return {mix(low.color.r, above->color.r), mix(low.color.g, above->color.g),
            mix(low.color.b, above->color.b)};
}

/// A point of the ground; the first and the last ones lie on its edges.
qel::XPnt3d gridPoint(std::size_t column, std::size_t row) {
    const auto place = [](std::size_t index, std::size_t count) {
        return 2.0 * static_cast<double>(index) / static_cast<double>(count - 1) - 1.0;
    };
    return onGround(kLandHalfWidth * place(column, kColumns), kLandHalfDepth * place(row, kRows));
}

/// Every so many points of the ground.
HeightGrid groundGrid(std::size_t stride) {
    HeightGrid grid;
    grid.columns = (kColumns - 1) / stride + 1;
    for (std::size_t row = 0; row < kRows; row += stride) {
        for (std::size_t column = 0; column < kColumns; column += stride) {
            grid.points.push_back(gridPoint(column, row));
        }
    }
    return grid;
}

/// A triangle of the cut side, unless it has no area.
void addSideTriangle(TriangleMesh& sides, const std::array<qel::XPnt3d, 3>& corners) {
    qel::XPnt3d normal = qel::cross(corners[0], corners[1], corners[2]);
    if (normal.norm() > 0.0) {
        sides.normals.insert(sides.normals.end(), 3, qel::XPnt3f(normal.normalize()));
        for (const qel::XPnt3d& corner : corners) {
            sides.positions.push_back(corner);
            sides.colors.push_back(colorAt(kSoils, corner.z));
        }
    }
}

/// The cut side between two points of the edge of the ground, layer by layer.
void addSide(TriangleMesh& sides, const qel::XPnt3d& from, const qel::XPnt3d& to) {
    const auto below = [](const qel::XPnt3d& edge, double z) {
        return qel::XPnt3d(edge.x, edge.y, std::min(z, edge.z));
    };
    for (std::size_t layer = 0; layer + 1 < kSoils.size(); ++layer) {
        const double low = kSoils.at(layer).height;
        const double high = kSoils.at(layer + 1).height;
        addSideTriangle(sides, {below(from, low), below(to, low), below(to, high)});
        addSideTriangle(sides, {below(from, low), below(to, high), below(from, high)});
    }
}

void addFloor(TriangleMesh& sides) {
    const auto corner = [](double x, double y) {
        return qel::XPnt3d(x * kLandHalfWidth, y * kLandHalfDepth, kLandFloor);
    };
    addSideTriangle(sides, {corner(-1.0, -1.0), corner(1.0, 1.0), corner(1.0, -1.0)});
    addSideTriangle(sides, {corner(-1.0, -1.0), corner(-1.0, 1.0), corner(1.0, 1.0)});
}

}  // namespace

double groundHeight(double x, double y) {
    double height =
        0.30 + 0.14 * std::sin(0.7 * x + 0.4) * std::cos(0.6 * y) + 0.03 * std::sin(1.9 * x - 1.3 * y);
    for (const Hill& hill : kHills) {
        const double dx = (x - hill.x) / hill.reach;
        const double dy = (y - hill.y) / hill.reach;
        height += hill.height * std::exp(-(dx * dx + dy * dy));
    }
    return height;
}

qel::XPnt3d onGround(double x, double y, double lift) {
    return {x, y, groundHeight(x, y) + lift};
}

TriangleMesh makeGround() {
    TriangleMesh ground;
    ground.name = "ground";
    HeightGrid grid = groundGrid(1);
    ground.indices = gridTriangles(grid.points.size(), grid.columns);
    ground.positions = std::move(grid.points);
    for (const qel::XPnt3d& position : ground.positions) {
        ground.colors.push_back(colorAt(kTints, position.z));
    }
    makeNormals(ground);
    return ground;
}

TriangleMesh makeBlockSides() {
    TriangleMesh sides;
    sides.name = "block";
    sides.faceted = true;
    for (std::size_t column = 0; column + 1 < kColumns; ++column) {
        addSide(sides, gridPoint(column, 0), gridPoint(column + 1, 0));
        addSide(sides, gridPoint(column + 1, kRows - 1), gridPoint(column, kRows - 1));
    }
    for (std::size_t row = 0; row + 1 < kRows; ++row) {
        addSide(sides, gridPoint(kColumns - 1, row), gridPoint(kColumns - 1, row + 1));
        addSide(sides, gridPoint(0, row + 1), gridPoint(0, row));
    }
    addFloor(sides);
    return sides;
}

std::vector<Points> makeContours(bool isIndex) {
    // Coarser than the surface: pieces of a pixel or two would look dotted.
    const HeightGrid grid = groundGrid(3);
    std::vector<Points> contours;
    for (int level = -5; level <= 20; ++level) {
        if ((level % kIndexContour == 0) == isIndex) {
            std::vector<Points> lines = contourLines(grid, static_cast<double>(level) * kContourStep);
            contours.insert(contours.end(), std::make_move_iterator(lines.begin()),
                            std::make_move_iterator(lines.end()));
        }
    }
    return contours;
}

}  // namespace qelview
