#include "SectionPlane.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using qelview::appendSectionLines;
using qelview::Points;
using qelview::SectionPlane;

std::vector<qel::ArrayVertex> verticesOf(const Points& points) {
    std::vector<qel::ArrayVertex> vertices;
    for (const qel::XPnt3d& point : points) {
        vertices.push_back(
            {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z), {}});
    }
    return vertices;
}

Points linesOf(const Points& corners, const SectionPlane& plane,
               const std::vector<qel::ArrayIndex>& indices = {}) {
    Points lines;
    appendSectionLines(plane, verticesOf(corners), indices, lines);
    return lines;
}

TEST(SectionPlane, HidesWhatLiesBeyondItAlongItsNormal) {
    const SectionPlane plane{{0, 0, 1}, 2.0};
    EXPECT_EQ(plane.beyond({5, 5, 3}), 1.0);
    EXPECT_EQ(plane.beyond({5, 5, 0}), -2.0);
}

TEST(SectionPlaneLines, JoinTheTwoEdgesThatItMeets) {
    const Points lines = linesOf({{0, 0, 0}, {4, 0, 0}, {0, 0, 4}}, {{0, 0, 1}, 1.0});
    ASSERT_EQ(lines.size(), 2U);
    // On the edges from (0, 0, 4): at (0, 0, 1) and (3, 0, 1), in either order.
    EXPECT_NEAR(std::abs(lines[0].x - lines[1].x), 3.0, 1e-12);
    EXPECT_NEAR(lines[0].x + lines[1].x, 3.0, 1e-12);
    EXPECT_NEAR(lines[0].z, 1.0, 1e-12);
    EXPECT_NEAR(lines[1].z, 1.0, 1e-12);
}

TEST(SectionPlaneLines, AreNoneForTrianglesOnOneSideOrInThePlane) {
    const SectionPlane plane{{0, 0, 1}, 1.0};
    EXPECT_TRUE(linesOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, plane).empty());
    EXPECT_TRUE(linesOf({{0, 0, 2}, {1, 0, 2}, {0, 1, 2}}, plane).empty());
    EXPECT_TRUE(linesOf({{0, 0, 1}, {1, 0, 1}, {0, 1, 1}}, plane).empty());
    EXPECT_TRUE(linesOf({{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}, plane).empty()) << "it touches a corner";
    EXPECT_TRUE(linesOf({{0, 0, 1}, {1, 0, 2}}, plane).empty()) << "no triangle";
}

TEST(SectionPlaneLines, FormAClosedOutlineOfAClosedBody) {
    // A tetrahedron: the plane meets three of its faces.
    const Points corners{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}, {0, 0, 4}};
    const Points lines = linesOf(corners, {{0, 0, 1}, 1.0}, {0, 2, 1, 0, 1, 3, 1, 2, 3, 2, 0, 3});
    ASSERT_EQ(lines.size(), 6U);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        int sameEnds = 0;
        for (std::size_t j = 0; j < lines.size(); ++j) {
            sameEnds += qel::dist(lines[i], lines[j]) < 1e-12 ? 1 : 0;
        }
        EXPECT_EQ(sameEnds, 2) << i;
    }
}

}  // namespace
