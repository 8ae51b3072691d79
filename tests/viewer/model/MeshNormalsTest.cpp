#include "MeshNormals.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <tuple>

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

TEST(MeshNormals, CountsLargeTrianglesMore) {
    TriangleMesh roof;
    roof.positions = {{0, 0, 0}, {0, 1, 0}, {-1, 0, -0.2}, {0, 1, 0}, {0, 0, 0}, {9, 0, -1.8}};
    qelview::makeNormals(roof);
    EXPECT_GT(roof.normals[roof.indices[0]].x, 0.1F);
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
