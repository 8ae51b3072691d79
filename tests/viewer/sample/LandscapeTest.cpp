#include "Landscape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <vector>

namespace {

using qelview::Points;
using qelview::TriangleMesh;

struct Place {
    double x;
    double y;
    double height;
};

/// Tops and slopes of the hills, and the pond. Stored pictures show them; Python computed the heights.
constexpr std::array<Place, 12> kPlaces{{
    {-6.0, 3.6, 3.662025393977},
    {-3.0, 3.6, 2.330141863660},
    {-2.6, 5.8, 2.668617125928},
    {-2.6, 8.2, 0.981510279511},
    {6.4, 5.0, 2.719116987019},
    {6.4, 8.4, 1.130078485276},
    {8.6, -5.6, 1.750537851491},
    {11.2, -5.6, 0.716763559032},
    {-9.0, -5.0, 1.376191903664},
    {-9.0, -8.0, 0.697102213558},
    {2.6, -2.4, -0.548687692298},
    {2.6, -5.0, -0.161543594829},
}};

TEST(Landscape, HasItsHillsAndItsPond) {
    for (const Place& place : kPlaces) {
        EXPECT_NEAR(qelview::groundHeight(place.x, place.y), place.height, 1e-9) << place.x << " " << place.y;
        const qel::XPnt3d above = qelview::onGround(place.x, place.y, 0.5);
        EXPECT_NEAR(above.z, place.height + 0.5, 1e-9);
        EXPECT_EQ(above.x, place.x);
        EXPECT_EQ(above.y, place.y);
    }
}

/// A colour at a height; between two of them it changes evenly.
struct Tint {
    double height;
    qel::QelColor3f color;
};

void expectColors(const TriangleMesh& mesh, const std::vector<Tint>& legend) {
    ASSERT_EQ(mesh.colors.size(), mesh.positions.size());
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        const double height = std::clamp(mesh.positions[i].z, legend.front().height, legend.back().height);
        std::size_t above = 1;
        while (legend[above].height < height) {
            ++above;
        }
        const Tint& low = legend[above - 1];
        const Tint& high = legend[above];
        const auto share = static_cast<float>((height - low.height) / (high.height - low.height));
        const auto expect = [&](float shown, float from, float to) {
            ASSERT_NEAR(shown, from * (1.0F - share) + to * share, 1e-5F) << height;
        };
        expect(mesh.colors[i].r, low.color.r, high.color.r);
        expect(mesh.colors[i].g, low.color.g, high.color.g);
        expect(mesh.colors[i].b, low.color.b, high.color.b);
    }
}

std::vector<std::array<qel::XPnt3d, 3>> trianglesOf(const TriangleMesh& mesh) {
    std::vector<std::array<qel::XPnt3d, 3>> triangles;
    const std::size_t corners = mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size();
    const auto corner = [&mesh](std::size_t i) {
        return mesh.positions[mesh.indices.empty() ? i : mesh.indices[i]];
    };
    for (std::size_t i = 0; i < corners; i += 3) {
        triangles.push_back({corner(i), corner(i + 1), corner(i + 2)});
    }
    return triangles;
}

/// Twice the area of a triangle, along its normal.
qel::XPnt3d areaOf(const std::array<qel::XPnt3d, 3>& triangle) {
    return qel::cross(triangle[0], triangle[1], triangle[2]);
}

TEST(Landscape, CoversItsGroundWithCellsOfASixth) {
    const TriangleMesh ground = qelview::makeGround();
    EXPECT_EQ(ground.positions.size(), 145U * 109U);
    for (const qel::XPnt3d& position : ground.positions) {
        ASSERT_NEAR(position.z, qelview::groundHeight(position.x, position.y), 1e-12);
    }
    double covered = 0.0;
    for (const auto& triangle : trianglesOf(ground)) {
        // From above, each is half a cell.
        ASSERT_NEAR(areaOf(triangle).z, 1.0 / 36.0, 1e-12);
        covered += areaOf(triangle).z / 2.0;
    }
    EXPECT_NEAR(covered, 24.0 * 18.0, 1e-9);
    EXPECT_NEAR(ground.positions.front().x, -12.0, 1e-12);
    EXPECT_NEAR(ground.positions.back().y, 9.0, 1e-12);
}

TEST(Landscape, ColoursItsGroundByHeight) {
    expectColors(qelview::makeGround(), {{-0.5, {0.33F, 0.52F, 0.47F}},
                                         {0.3, {0.40F, 0.58F, 0.33F}},
                                         {1.2, {0.62F, 0.68F, 0.38F}},
                                         {2.0, {0.80F, 0.70F, 0.44F}},
                                         {2.9, {0.74F, 0.58F, 0.45F}},
                                         {3.6, {0.97F, 0.96F, 0.94F}}});
}

TEST(Landscape, ClosesTheBlockBelowTheGround) {
    const TriangleMesh ground = qelview::makeGround();
    const TriangleMesh sides = qelview::makeBlockSides();
    // A closed surface has as much area to one side as to the other, and six times its volume is the sum of
    // the products of all corners.
    qel::XPnt3d sum;
    double volume = 0.0;
    double expected = 0.0;
    double lowest = 0.0;
    for (const TriangleMesh* const mesh : {&ground, &sides}) {
        for (const auto& triangle : trianglesOf(*mesh)) {
            sum += areaOf(triangle);
            volume += qel::dot(triangle[0], qel::cross(triangle[1], triangle[2])) / 6.0;
            lowest = std::min({lowest, triangle[0].z, triangle[1].z, triangle[2].z});
        }
    }
    for (const auto& [a, b, c] : trianglesOf(ground)) {
        expected += ((a.z + b.z + c.z) / 3.0 + 1.4) / 72.0;
    }
    EXPECT_NEAR(sum.norm(), 0.0, 1e-9);
    EXPECT_NEAR(volume, expected, 1e-6);
    EXPECT_NEAR(lowest, -1.4, 1e-12);
}

TEST(Landscape, ShowsTheLayersOfTheSoilInFlatTriangles) {
    const TriangleMesh sides = qelview::makeBlockSides();
    EXPECT_TRUE(sides.faceted);
    expectColors(sides, {{-1.4, {0.36F, 0.32F, 0.31F}},
                         {-0.9, {0.47F, 0.39F, 0.34F}},
                         {-0.3, {0.63F, 0.50F, 0.38F}},
                         {0.8, {0.72F, 0.59F, 0.43F}},
                         {3.6, {0.78F, 0.68F, 0.52F}}});
    ASSERT_EQ(sides.normals.size(), sides.positions.size());
    std::size_t corner = 0;
    for (const auto& triangle : trianglesOf(sides)) {
        const qel::XPnt3d area = areaOf(triangle);
        for (std::size_t i = 0; i < 3; ++i) {
            ASSERT_NEAR(qel::dot(area, qel::XPnt3d(sides.normals[corner++])), area.norm(), 1e-6);
        }
        // None reaches across a layer's edge by more than the ground rises over a cell.
        const auto [low, high] = std::minmax({triangle[0].z, triangle[1].z, triangle[2].z});
        for (const double edge : {-0.9, -0.3, 0.8}) {
            ASSERT_TRUE(low >= edge - 0.2 || high <= edge) << low << " " << high;
        }
    }
}

bool isWhole(double number) {
    return std::abs(number - std::round(number)) < 1e-9;
}

TEST(Landscape, HasContoursAtEachFifthOfAUnit) {
    std::set<int> levels;
    for (const bool isIndex : {true, false}) {
        for (const Points& line : qelview::makeContours(isIndex)) {
            ASSERT_GE(line.size(), 2U);
            const auto level = static_cast<int>(std::lround(line.front().z / 0.2));
            EXPECT_EQ(level % 5 == 0, isIndex) << level;
            levels.insert(level);
            for (const qel::XPnt3d& point : line) {
                ASSERT_NEAR(point.z, level * 0.2, 1e-12);
                ASSERT_NEAR(point.z, qelview::groundHeight(point.x, point.y), 0.06);
                // On an edge of a net of half a unit.
                ASSERT_TRUE(isWhole(2.0 * point.x) || isWhole(2.0 * point.y) ||
                            isWhole(2.0 * (point.x - point.y)))
                    << point.x << " " << point.y;
            }
        }
    }
    double lowest = 0.0;
    double highest = 0.0;
    for (double x = -12.0; x <= 12.0; x += 0.5) {
        for (double y = -9.0; y <= 9.0; y += 0.5) {
            lowest = std::min(lowest, qelview::groundHeight(x, y));
            highest = std::max(highest, qelview::groundHeight(x, y));
        }
    }
    EXPECT_EQ(*levels.begin(), static_cast<int>(std::ceil(lowest / 0.2)));
    EXPECT_EQ(*levels.rbegin(), static_cast<int>(std::floor(highest / 0.2)));
    EXPECT_EQ(static_cast<int>(levels.size()), *levels.rbegin() - *levels.begin() + 1);
}

}  // namespace
