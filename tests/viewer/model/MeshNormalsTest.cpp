#include "MeshNormals.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <tuple>
#include <vector>

namespace {

using qelview::TriangleMesh;

/// A unit cube of 12 triangles over 8 shared corners.
TriangleMesh cube() {
    TriangleMesh mesh;
    for (int corner = 0; corner < 8; ++corner) {
        mesh.positions.emplace_back(corner & 1, (corner >> 1) & 1, (corner >> 2) & 1);
    }
    mesh.indices = {0, 2, 3, 0, 3, 1, 4, 5, 7, 4, 7, 6, 0, 1, 5, 0, 5, 4,
                    2, 6, 7, 2, 7, 3, 0, 4, 6, 0, 6, 2, 1, 3, 7, 1, 7, 5};
    return mesh;
}

TEST(MeshNormals, KeepsTheEdgesOfACubeSharp) {
    TriangleMesh mesh = cube();
    qelview::makeNormals(mesh);
    EXPECT_EQ(mesh.positions.size(), 24U);
    ASSERT_EQ(mesh.normals.size(), 24U);
    std::set<std::tuple<float, float, float>> directions;
    for (const qel::XPnt3f& normal : mesh.normals) {
        directions.emplace(normal.x, normal.y, normal.z);
    }
    EXPECT_EQ(directions.size(), 6U);
    const qel::XPnt3f& bottom = mesh.normals[mesh.indices[0]];
    EXPECT_EQ(bottom.z, -1.0F);
}

TEST(MeshNormals, SmoothsEverythingBelowTheCreaseAngle) {
    TriangleMesh mesh = cube();
    qelview::makeNormals(mesh, 100.0);
    EXPECT_EQ(mesh.positions.size(), 8U);
}

TEST(MeshNormals, SmoothsAcrossVerticesThatShareOnlyTheirPlace) {
    TriangleMesh roof;
    // Two faces that meet in the line x = 0 at 20 degrees, without a shared vertex.
    const double drop = std::tan(10.0 * std::acos(-1.0) / 180.0);
    roof.positions = {{0, 0, 0}, {0, 1, 0}, {-1, 0, -drop}, {0, 1, 0}, {0, 0, 0}, {1, 0, -drop}};
    qelview::makeNormals(roof);
    ASSERT_EQ(roof.indices.size(), 6U);
    const qel::XPnt3f& first = roof.normals[roof.indices[0]];
    const qel::XPnt3f& second = roof.normals[roof.indices[4]];
    EXPECT_NEAR(first.x, second.x, 1e-6F);
    EXPECT_NEAR(first.x, 0.0F, 1e-6F);
    EXPECT_NEAR(first.z, 1.0F, 1e-6F);
}

TEST(MeshNormals, CountsTrianglesByTheirAreas) {
    TriangleMesh roof;
    roof.positions = {{0, 0, 0}, {0, 1, 0}, {-1, 0, -0.2}, {0, 1, 0}, {0, 0, 0}, {9, 0, -1.8}};
    // The vector product of two edges is as long as the area is large.
    qel::XPnt3d expected = qel::cross(roof.positions[0], roof.positions[1], roof.positions[2]) +
                           qel::cross(roof.positions[3], roof.positions[4], roof.positions[5]);
    expected.normalize();
    qelview::makeNormals(roof);
    for (const std::size_t corner : {0U, 1U, 3U, 4U}) {
        const qel::XPnt3f& normal = roof.normals[roof.indices[corner]];
        EXPECT_NEAR(normal.x, expected.x, 1e-6) << corner;
        EXPECT_NEAR(normal.y, expected.y, 1e-6) << corner;
        EXPECT_NEAR(normal.z, expected.z, 1e-6) << corner;
    }
    // The other corners have their own triangle alone, whose slope is 1 in 5.
    EXPECT_NEAR(roof.normals[roof.indices[2]].x, -0.2 / std::sqrt(1.04), 1e-6);
    EXPECT_NEAR(roof.normals[roof.indices[5]].x, 0.2 / std::sqrt(1.04), 1e-6);
}

/// Two triangles of the same size that meet in the line x = 0 and share its ends.
TriangleMesh fold(double degrees) {
    const double half = 0.5 * degrees * std::acos(-1.0) / 180.0;
    TriangleMesh mesh;
    mesh.positions = {
        {0, 0, 0}, {0, 1, 0}, {-std::cos(half), 0, -std::sin(half)}, {std::cos(half), 0, -std::sin(half)}};
    mesh.indices = {0, 1, 2, 1, 0, 3};
    return mesh;
}

struct Edge {
    const char* name;
    double degrees;
    double crease;
    bool isSharp;
};

class MeshNormalsEdgeOf : public testing::TestWithParam<Edge> {};

TEST_P(MeshNormalsEdgeOf, IsSharpAboveTheCreaseAngle) {
    TriangleMesh mesh = fold(GetParam().degrees);
    qelview::makeNormals(mesh, GetParam().crease);
    EXPECT_EQ(mesh.positions.size(), GetParam().isSharp ? 6U : 4U);
    EXPECT_EQ(mesh.normals.size(), mesh.positions.size());
    EXPECT_TRUE(mesh.colors.empty());
    // A smooth one looks up, a sharp one aside by half of its angle.
    const double half = 0.5 * GetParam().degrees * std::acos(-1.0) / 180.0;
    const qel::XPnt3f& left = mesh.normals[mesh.indices[0]];
    const qel::XPnt3f& right = mesh.normals[mesh.indices[4]];
    EXPECT_NEAR(left.x, GetParam().isSharp ? -std::sin(half) : 0.0, 1e-6);
    EXPECT_NEAR(right.x, GetParam().isSharp ? std::sin(half) : 0.0, 1e-6);
    EXPECT_NEAR(left.z, GetParam().isSharp ? std::cos(half) : 1.0, 1e-6);
}

const std::vector<Edge> kEdges{
    {"FarBelow", 10.0, qelview::kCreaseAngleDegrees, false},
    {"JustBelow", 39.9, qelview::kCreaseAngleDegrees, false},
    {"JustAbove", 40.1, qelview::kCreaseAngleDegrees, true},
    // Each face is nearer to the mean than the crease angle.
    {"FarAbove", 75.0, qelview::kCreaseAngleDegrees, true},
    {"ASteepOne", 120.0, qelview::kCreaseAngleDegrees, true},
    {"JustBelowAnotherAngle", 99.0, 100.0, false},
    {"JustAboveAnotherAngle", 101.0, 100.0, true},
};
INSTANTIATE_TEST_SUITE_P(Angles, MeshNormalsEdgeOf, testing::ValuesIn(kEdges),
                         [](const auto& each) { return each.param.name; });

TEST(MeshNormals, TakesBothZerosForOnePlace) {
    TriangleMesh roof = fold(20.0);
    roof.indices.clear();
    roof.positions = {roof.positions[0], roof.positions[1],  roof.positions[2],
                      {-0.0, 1, -0.0},   {-0.0, -0.0, -0.0}, roof.positions[3]};
    qelview::makeNormals(roof);
    EXPECT_NEAR(roof.normals[0].x, 0.0F, 1e-6F);
    EXPECT_NEAR(roof.normals[4].x, 0.0F, 1e-6F);
}

TEST(MeshNormals, LeavesOutCornersOfNoWholeTriangle) {
    TriangleMesh mesh;
    mesh.positions = {{0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {5, 5, 5}, {6, 5, 5}};
    qelview::makeNormals(mesh);
    EXPECT_EQ(mesh.indices, (std::vector<std::uint32_t>{0, 1, 2}));
    EXPECT_EQ(mesh.normals[0].x, 1.0F);
    // A vertex without a triangle looks up.
    ASSERT_EQ(mesh.normals.size(), 5U);
    EXPECT_EQ(mesh.normals[4].x, 0.0F);
    EXPECT_EQ(mesh.normals[4].z, 1.0F);
}

TEST(MeshNormals, MakesNoMoreVerticesThanThereAreNormalsAtAPlace) {
    // Four triangles around a vertex: two of a floor and two of a wall.
    TriangleMesh mesh;
    mesh.positions = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};
    mesh.indices = {0, 1, 2, 0, 2, 3, 0, 4, 1, 0, 3, 4};
    qelview::makeNormals(mesh);
    // The middle, and the two ends of the edge between them.
    EXPECT_EQ(mesh.positions.size(), 8U);
    EXPECT_EQ(mesh.indices[0], 0U);
    EXPECT_EQ(mesh.indices[3], 0U);
    EXPECT_EQ(mesh.indices[6], mesh.indices[9]);
    EXPECT_GE(mesh.indices[6], 5U);
    EXPECT_EQ(mesh.normals[0].z, 1.0F);
    EXPECT_EQ(mesh.normals[mesh.indices[6]].y, 1.0F);
}

/// Triangles of a floor around a vertex, and one of a wall on it.
TriangleMesh floorWithAWall(std::uint32_t trianglesOfTheFloor) {
    TriangleMesh mesh;
    mesh.positions = {{0, 0, 0}, {0, 0, 0.01}, {0.01, 0, 0}};
    for (std::uint32_t i = 0; i <= trianglesOfTheFloor; ++i) {
        const double angle = 0.02 * i;
        mesh.positions.emplace_back(std::cos(angle), std::sin(angle), 0.0);
    }
    mesh.indices = {0, 1, 2};
    for (std::uint32_t i = 0; i < trianglesOfTheFloor; ++i) {
        mesh.indices.insert(mesh.indices.end(), {0, 3 + i, 4 + i});
    }
    return mesh;
}

TEST(MeshNormals, KeepsEdgesSharpAroundUpTo256Triangles) {
    TriangleMesh mesh = floorWithAWall(255);
    const std::size_t vertices = mesh.positions.size();
    qelview::makeNormals(mesh);
    EXPECT_EQ(mesh.positions.size(), vertices + 1);
    mesh = floorWithAWall(256);
    qelview::makeNormals(mesh);
    EXPECT_EQ(mesh.positions.size(), vertices + 1);
    EXPECT_EQ(mesh.indices[0], mesh.indices[3]);
}

TEST(MeshNormals, GivesTrianglesWithoutAnAreaSomeUnitNormal) {
    TriangleMesh mesh;
    mesh.positions = {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
    qelview::makeNormals(mesh);
    for (const qel::XPnt3f& normal : mesh.normals) {
        EXPECT_EQ(qel::XPnt3d(normal).norm(), 1.0);
    }
}

TEST(MeshNormals, CarriesColoursOverToSplitVertices) {
    TriangleMesh mesh = cube();
    for (const qel::XPnt3d& position : mesh.positions) {
        mesh.colors.emplace_back(static_cast<float>(position.x), static_cast<float>(position.y),
                                 static_cast<float>(position.z));
    }
    qelview::makeNormals(mesh);
    ASSERT_EQ(mesh.colors.size(), mesh.positions.size());
    for (std::size_t i = 0; i < mesh.colors.size(); ++i) {
        EXPECT_EQ(static_cast<double>(mesh.colors[i].r), mesh.positions[i].x);
        EXPECT_EQ(static_cast<double>(mesh.colors[i].b), mesh.positions[i].z);
    }
}

TEST(MeshNormals, StaysQuickAroundAVertexOfManyTriangles) {
    TriangleMesh fan;
    constexpr std::uint32_t kBlades = 100000;
    fan.positions.emplace_back(0.0, 0.0, 1.0);
    for (std::uint32_t i = 0; i <= kBlades; ++i) {
        const double angle = 2.0 * std::acos(-1.0) * i / kBlades;
        fan.positions.emplace_back(std::cos(angle), std::sin(angle), 0.0);
    }
    for (std::uint32_t i = 1; i <= kBlades; ++i) {
        fan.indices.insert(fan.indices.end(), {0, i, i + 1});
    }
    // All pairs of triangles around the tip would be ten thousand million.
    qelview::makeNormals(fan);
    const qel::XPnt3f& tip = fan.normals[fan.indices[0]];
    EXPECT_NEAR(tip.z, 1.0F, 1e-3F);
}

TEST(MeshNormals, KeepsVerticesInTheirPlacesAndCopiesBehindThem) {
    TriangleMesh mesh = cube();
    const qelview::Points corners = mesh.positions;
    qelview::makeNormals(mesh);
    ASSERT_GT(mesh.positions.size(), corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        EXPECT_EQ(qel::dist(mesh.positions[i], corners[i]), 0.0);
    }
}

TEST(MeshNormals, GivesTrianglesWithoutAnAreaTheNormalsAroundThem) {
    TriangleMesh mesh;
    mesh.positions = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {0, 0, 1}};
    // A wall, a floor, and nothing in the edge between them.
    mesh.indices = {0, 1, 2, 0, 3, 1, 0, 1, 1};
    qelview::makeNormals(mesh);
    const qel::XPnt3f& between = mesh.normals[mesh.indices[6]];
    EXPECT_NEAR(between.x, -std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(between.z, -std::sqrt(0.5), 1e-6);
}

/// A grid of hills, large enough to be worked on in pieces.
TriangleMesh hills(std::uint32_t side) {
    TriangleMesh mesh;
    for (std::uint32_t row = 0; row <= side; ++row) {
        for (std::uint32_t column = 0; column <= side; ++column) {
            mesh.positions.emplace_back(column, row, 0.1 * std::sin(0.3 * column) * std::cos(0.2 * row));
        }
    }
    for (std::uint32_t row = 0; row < side; ++row) {
        for (std::uint32_t column = 0; column < side; ++column) {
            const std::uint32_t at = row * (side + 1) + column;
            mesh.indices.insert(mesh.indices.end(),
                                {at, at + 1, at + side + 2, at, at + side + 2, at + side + 1});
        }
    }
    return mesh;
}

TEST(MeshNormals, FollowsTheSlopeOfALargeSurface) {
    constexpr std::uint32_t kSide = 200;
    TriangleMesh mesh = hills(kSide);
    qelview::makeNormals(mesh);
    ASSERT_EQ(mesh.normals.size(), mesh.positions.size());
    for (std::uint32_t row = 1; row < kSide; ++row) {
        for (std::uint32_t column = 1; column < kSide; ++column) {
            qel::XPnt3d slope(-0.03 * std::cos(0.3 * column) * std::cos(0.2 * row),
                              0.02 * std::sin(0.3 * column) * std::sin(0.2 * row), 1.0);
            slope.normalize();
            const qel::XPnt3d normal(mesh.normals[row * (kSide + 1) + column]);
            ASSERT_GT(qel::dot(slope, normal), 0.99999) << row << " " << column;
        }
    }
}

TEST(MeshNormals, KeepsEdgesSharpInEachPieceOfALargeMesh) {
    TriangleMesh mesh;
    constexpr std::uint32_t kCubes = 6000;
    for (std::uint32_t i = 0; i < kCubes; ++i) {
        const TriangleMesh one = cube();
        const auto first = static_cast<std::uint32_t>(mesh.positions.size());
        for (const qel::XPnt3d& corner : one.positions) {
            mesh.positions.push_back(corner + qel::XPnt3d(2.0 * i, 0.0, 0.0));
        }
        for (const std::uint32_t index : one.indices) {
            mesh.indices.push_back(first + index);
        }
    }
    qelview::makeNormals(mesh);
    ASSERT_EQ(mesh.positions.size(), kCubes * 24U);
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        const auto at = [&](std::size_t corner) { return mesh.positions[mesh.indices[i + corner]]; };
        qel::XPnt3d face = qel::cross(at(0), at(1), at(2));
        face.normalize();
        for (std::size_t corner = 0; corner < 3; ++corner) {
            ASSERT_GT(qel::dot(face, qel::XPnt3d(mesh.normals[mesh.indices[i + corner]])), 0.999999) << i;
        }
    }
}

TEST(MeshNormalsUnitNormal, HasTheLengthOfOneWhateverTheLength) {
    for (const double length : {1e-299, 1e-3, 5.0, 1e150}) {
        const qel::XPnt3f normal = qelview::unitNormal({0.0, 0.6 * length, 0.8 * length});
        EXPECT_NEAR(normal.y, 0.6F, 1e-6F) << length;
        EXPECT_NEAR(normal.z, 0.8F, 1e-6F) << length;
    }
}

TEST(MeshNormalsUnitNormal, IsAlongZWhereThereIsNone) {
    for (const double part :
         {0.0, 1e-310, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        const qel::XPnt3f normal = qelview::unitNormal({part, 0.0, 0.0});
        EXPECT_EQ(normal.x, 0.0F) << part;
        EXPECT_EQ(normal.z, 1.0F) << part;
    }
}

}  // namespace
