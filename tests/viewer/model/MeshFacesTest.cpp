#include "MeshFaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <string>
#include <vector>

namespace {

using qelview::TriangleMesh;

/// A face over all of the points in their order.
TriangleMesh meshOf(const qelview::Points& outline) {
    TriangleMesh mesh;
    mesh.positions = outline;
    std::vector<std::uint32_t> corners(outline.size());
    std::iota(corners.begin(), corners.end(), 0U);
    qelview::MeshFaces faces;
    faces.add(corners);
    faces.moveInto(mesh);
    return mesh;
}

/// The sum of the areas of all triangles, as seen against a direction: those turned over count below 0.
double areaAlong(const TriangleMesh& mesh, const qel::XPnt3d& direction) {
    double area = 0.0;
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        area += 0.5 * qel::dot(direction, qel::cross(mesh.positions[mesh.indices[i]],
                                                     mesh.positions[mesh.indices[i + 1]],
                                                     mesh.positions[mesh.indices[i + 2]]));
    }
    return area;
}

/// The same without regard to which way triangles look.
double wholeArea(const TriangleMesh& mesh) {
    double area = 0.0;
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        area += 0.5 * qel::cross(mesh.positions[mesh.indices[i]], mesh.positions[mesh.indices[i + 1]],
                                 mesh.positions[mesh.indices[i + 2]])
                          .norm();
    }
    return area;
}

struct Shape {
    const char* name;
    qelview::Points outline;
    std::size_t triangles;
    double area;
};

class MeshFacesFaceOf : public testing::TestWithParam<Shape> {};

TEST_P(MeshFacesFaceOf, IsFilledOnceAndLooksItsOwnWay) {
    const TriangleMesh mesh = meshOf(GetParam().outline);
    EXPECT_EQ(mesh.indices.size(), 3 * GetParam().triangles);
    EXPECT_NEAR(areaAlong(mesh, {0, 0, 1}), GetParam().area, 1e-9);
    EXPECT_NEAR(wholeArea(mesh), std::abs(GetParam().area), 1e-9);
}

const std::vector<Shape> kShapes{
    {"ASquare", {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, 2, 4.0},
    {"ASquareTurnedOver", {{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}}, 2, -4.0},
    {"AnArrowConcaveAtItsFirstCorner", {{1, 1, 0}, {0, 4, 0}, {0, 0, 0}, {4, 0, 0}}, 2, 4.0},
    {"AnArrowConcaveAtItsSecondCorner", {{4, 0, 0}, {1, 1, 0}, {0, 4, 0}, {0, 0, 0}}, 2, 4.0},
    {"AnArrowConcaveAtItsThirdCorner", {{0, 0, 0}, {4, 0, 0}, {1, 1, 0}, {0, 4, 0}}, 2, 4.0},
    {"AnL", {{0, 0, 0}, {3, 0, 0}, {3, 1, 0}, {1, 1, 0}, {1, 3, 0}, {0, 3, 0}}, 4, 5.0},
    {"AnLFromItsFarEnd", {{0, 3, 0}, {0, 0, 0}, {3, 0, 0}, {3, 1, 0}, {1, 1, 0}, {1, 3, 0}}, 4, 5.0},
    {"ASquareWithACornerOnAnEdge", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, 3, 4.0},
    {"ASquareWithAHoleBehindASeam",
     {{0, 0, 0},
      {3, 0, 0},
      {3, 3, 0},
      {0, 3, 0},
      {0, 0, 0},
      {1, 1, 0},
      {1, 2, 0},
      {2, 2, 0},
      {2, 1, 0},
      {1, 1, 0}},
     8,
     8.0},
    {"NothingAtAll", {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}}, 0, 0.0},
    {"ALine", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, 0, 0.0},
};
INSTANTIATE_TEST_SUITE_P(Shapes, MeshFacesFaceOf, testing::ValuesIn(kShapes),
                         [](const auto& each) { return each.param.name; });

TEST(MeshFaces, FillAFaceThatCrossesItselfWithVerticesMore) {
    TriangleMesh mesh;
    // Like an hourglass: its edges cross in (1, 1).
    mesh.positions = {{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}};
    mesh.normals.assign(4, qel::XPnt3f(0.0F, 0.0F, 1.0F));
    mesh.colors = {{1, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
    qelview::MeshFaces faces;
    faces.add(std::vector<std::uint32_t>{0, 1, 2, 3});
    faces.moveInto(mesh);
    EXPECT_NEAR(wholeArea(mesh), 2.0, 1e-9);
    ASSERT_EQ(mesh.positions.size(), 5U);
    EXPECT_NEAR(mesh.positions[4].x, 1.0, 1e-9);
    ASSERT_EQ(mesh.normals.size(), 5U);
    EXPECT_EQ(mesh.normals[4].z, 1.0F);
    ASSERT_EQ(mesh.colors.size(), 5U);
    EXPECT_NEAR(mesh.colors[4].r, 0.25F, 1e-6F);
}

TEST(MeshFaces, FillFacesThatRunAroundSeveralTimes) {
    qelview::Points outline;
    for (int i = 0; i < 40; ++i) {
        outline.emplace_back(i % 4 == 1 || i % 4 == 2 ? 1.0 : 0.0, i % 4 > 1 ? 1.0 : 0.0, 0.0);
    }
    EXPECT_NEAR(wholeArea(meshOf(outline)), 1.0, 1e-9);
}

TEST(MeshFaces, KeepMillimetresFarFromTheOrigin) {
    qelview::Points outline{{0, 0, 0}, {3, 0, 0}, {3, 1, 0}, {1, 1, 0}, {1, 3, 0}, {0, 3, 0}};
    for (qel::XPnt3d& point : outline) {
        point = point * 0.001 + qel::XPnt3d(635578.0, 4848889.0, 406.0);
    }
    // A billionth of a unit is the last place of such coordinates.
    EXPECT_NEAR(wholeArea(meshOf(outline)), 5e-6, 1e-11);
}

TEST(MeshFaces, LeaveOutWhatWouldTakeLongToCut) {
    // Each edge crosses a third of all others.
    qelview::Points outline;
    constexpr int kCorners = 4000;
    for (int i = 0; i < kCorners; ++i) {
        outline.emplace_back(std::fmod(i * 0.6180339887, 1.0), std::fmod(i * 0.7548776662, 1.0), 0.0);
    }
    TriangleMesh mesh;
    mesh.positions = outline;
    mesh.positions.insert(mesh.positions.end(), {{5, 5, 0}, {6, 5, 0}, {6, 6, 0}, {5, 6, 0}});
    std::vector<std::uint32_t> corners(kCorners);
    std::iota(corners.begin(), corners.end(), 0U);
    qelview::MeshFaces faces;
    faces.add(corners);
    faces.add(std::vector<std::uint32_t>{kCorners, kCorners + 1, kCorners + 2, kCorners + 3});
    EXPECT_EQ(faces.moveInto(mesh), 1U);
    EXPECT_NEAR(wholeArea(mesh), 1.0, 1e-9);
}

TEST(MeshFaces, CutFacesOfManyCorners) {
    // A comb, whose teeth overlap only their neighbours.
    qelview::Points outline;
    constexpr int kTeeth = 20000;
    for (int i = 0; i < kTeeth; ++i) {
        outline.emplace_back(i, 0.0, 0.0);
        outline.emplace_back(i + 0.5, 10.0, 0.0);
    }
    outline.emplace_back(kTeeth, 0.0, 0.0);
    outline.emplace_back(kTeeth / 2.0, -kTeeth, 0.0);
    EXPECT_NEAR(wholeArea(meshOf(outline)), 5.0 * kTeeth + 0.5 * kTeeth * kTeeth, 1e-3);
}

TEST(MeshFaces, GiveTrianglesAsTheyAre) {
    TriangleMesh mesh;
    mesh.positions.resize(9);
    qelview::MeshFaces faces;
    EXPECT_TRUE(faces.isEmpty());
    faces.add(std::vector<std::uint32_t>{7, 8, 2});
    EXPECT_FALSE(faces.isEmpty());
    faces.moveInto(mesh);
    EXPECT_TRUE(faces.isEmpty());
    EXPECT_EQ(mesh.indices, (std::vector<std::uint32_t>{7, 8, 2}));
}

}  // namespace
