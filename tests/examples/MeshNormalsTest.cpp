#include "MeshNormals.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
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

TEST(MakeNormals, KeepsTheEdgesOfACubeSharp) {
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

TEST(MakeNormals, SmoothsEverythingBelowTheCreaseAngle) {
    TriangleMesh mesh = cube();
    qelview::makeNormals(mesh, 100.0);
    EXPECT_EQ(mesh.positions.size(), 8U);
}

TEST(MakeNormals, SmoothsAcrossVerticesThatShareOnlyTheirPlace) {
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

TEST(MakeNormals, CountsLargeTrianglesMore) {
    TriangleMesh roof;
    roof.positions = {{0, 0, 0}, {0, 1, 0}, {-1, 0, -0.2}, {0, 1, 0}, {0, 0, 0}, {9, 0, -1.8}};
    qelview::makeNormals(roof);
    EXPECT_GT(roof.normals[roof.indices[0]].x, 0.1F);
}

TEST(MakeNormals, GivesTrianglesWithoutAnAreaSomeUnitNormal) {
    TriangleMesh mesh;
    mesh.positions = {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
    qelview::makeNormals(mesh);
    for (const qel::XPnt3f& normal : mesh.normals) {
        EXPECT_EQ(qel::XPnt3d(normal).norm(), 1.0);
    }
}

TEST(MakeNormals, CarriesColoursOverToSplitVertices) {
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

TEST(MakeNormals, StaysQuickAroundAVertexOfManyTriangles) {
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

}  // namespace
