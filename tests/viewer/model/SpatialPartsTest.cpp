#include "SpatialParts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

namespace {

using qelview::PointCloud;
using qelview::SpatialPart;
using qelview::TriangleMesh;

constexpr std::size_t kMany = 40'000;

/// A square terrain of random places, each with a colour that tells its number.
PointCloud terrain(std::size_t count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-500.0, 500.0);
    PointCloud cloud;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = place(random);
        cloud.positions.emplace_back(x, place(random), 0.01 * x);
        const auto byte = [i](unsigned shift) { return static_cast<std::uint8_t>(i >> shift & 0xFFU); };
        cloud.colors.push_back({byte(0), byte(8), byte(16)});
    }
    return cloud;
}

std::tuple<double, double, double> placeOf(const qel::XPnt3d& point) {
    return {point.x, point.y, point.z};
}

std::size_t numberIn(const qel::QelColor3b& color) {
    return color.r | std::size_t{color.g} << 8U | std::size_t{color.b} << 16U;
}

bool isIn(const qel::Enve3d& box, const qel::XPnt3d& point) {
    return box.xmin <= point.x && point.x <= box.xmax && box.ymin <= point.y && point.y <= box.ymax &&
           box.zmin <= point.z && point.z <= box.zmax;
}

/// Parts that follow each other from 0 to the count, none of them empty.
void expectWhole(const std::vector<SpatialPart>& parts, std::size_t count) {
    std::size_t end = 0;
    for (const SpatialPart& part : parts) {
        EXPECT_EQ(part.begin, end);
        EXPECT_GT(part.end, part.begin);
        end = part.end;
    }
    EXPECT_EQ(end, count);
}

std::size_t largestOf(const std::vector<SpatialPart>& parts) {
    std::size_t largest = 0;
    for (const SpatialPart& part : parts) {
        largest = std::max(largest, part.end - part.begin);
    }
    return largest;
}

TEST(SpatialParts, AreNotMadeOfFewElements) {
    PointCloud cloud = terrain(4096);
    const PointCloud before = cloud;
    sortIntoParts(cloud);
    EXPECT_TRUE(cloud.parts.empty());
    for (std::size_t i = 0; i < cloud.positions.size(); ++i) {
        EXPECT_EQ(placeOf(cloud.positions[i]), placeOf(before.positions[i]));
    }
    PointCloud none;
    sortIntoParts(none);
    EXPECT_TRUE(none.parts.empty());
}

TEST(SpatialParts, KeepEachPointWithItsColour) {
    PointCloud cloud = terrain(kMany);
    const PointCloud before = cloud;
    sortIntoParts(cloud);
    ASSERT_EQ(cloud.positions.size(), kMany);
    std::vector<bool> found(kMany);
    for (std::size_t i = 0; i < kMany; ++i) {
        const std::size_t number = numberIn(cloud.colors[i]);
        EXPECT_EQ(placeOf(cloud.positions[i]), placeOf(before.positions.at(number)));
        EXPECT_FALSE(found.at(number));
        found.at(number) = true;
    }
}

TEST(SpatialParts, AreSmallAndTheirBoxesTight) {
    PointCloud cloud = terrain(kMany);
    sortIntoParts(cloud);
    expectWhole(cloud.parts, kMany);
    EXPECT_LE(largestOf(cloud.parts), 4096U);
    double area = 0.0;
    for (const SpatialPart& part : cloud.parts) {
        area += (part.box.xmax - part.box.xmin) * (part.box.ymax - part.box.ymin);
        for (std::size_t i = part.begin; i < part.end; ++i) {
            ASSERT_TRUE(isIn(part.box, cloud.positions[i]));
        }
    }
    // Parts hardly overlap.
    EXPECT_LT(area, 1.3 * 1000.0 * 1000.0);
}

TEST(SpatialParts, AreSmallWhereOnePointLiesFarAway) {
    PointCloud cloud = terrain(kMany);
    cloud.positions[7] = {1e9, 1e9, 1e9};
    cloud.positions[9] = {-1e6, 0.0, 0.0};
    sortIntoParts(cloud);
    expectWhole(cloud.parts, kMany);
    EXPECT_LE(largestOf(cloud.parts), 4096U);
}

TEST(SpatialParts, MayBeLargeWhereAllPointsAreAtOnePlaceOrNowhere) {
    PointCloud cloud;
    cloud.positions.assign(kMany, qel::XPnt3d(1.0, 2.0, 3.0));
    sortIntoParts(cloud);
    expectWhole(cloud.parts, kMany);
    EXPECT_EQ(cloud.parts.size(), 1U);
    EXPECT_EQ(cloud.parts.front().box.zmax, 3.0);

    const double nan = std::numeric_limits<double>::quiet_NaN();
    cloud.positions.assign(kMany, qel::XPnt3d(nan, 1e308, -1e308));
    cloud.positions[5] = {std::numeric_limits<double>::infinity(), -1e308, 1e308};
    sortIntoParts(cloud);
    expectWhole(cloud.parts, kMany);
}

TEST(SpatialParts, OfManyElementsAreAtMostA256thOfThem) {
    PointCloud cloud = terrain(2'000'000);
    sortIntoParts(cloud);
    expectWhole(cloud.parts, 2'000'000);
    EXPECT_LE(largestOf(cloud.parts), 2'000'000U / 256U);
    EXPECT_LE(cloud.parts.size(), 2048U);
}

using Triangle = std::array<std::tuple<double, double, double>, 3>;

/// The triangles of a mesh, sorted; their corners in order.
std::vector<Triangle> trianglesOf(const TriangleMesh& mesh) {
    const std::size_t corners = mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size();
    std::vector<Triangle> triangles(corners / 3);
    for (std::size_t i = 0; i < corners; ++i) {
        triangles[i / 3].at(i % 3) = placeOf(mesh.positions[mesh.indices.empty() ? i : mesh.indices[i]]);
    }
    std::sort(triangles.begin(), triangles.end());
    return triangles;
}

TEST(SpatialParts, OfAMeshWithIndicesChangeTheOrderOfItsTrianglesAlone) {
    TriangleMesh mesh;
    mesh.positions = terrain(20'000).positions;
    std::mt19937 random(2);
    for (std::size_t i = 0; i < 3 * 30'000; ++i) {
        mesh.indices.push_back(static_cast<std::uint32_t>(random() % mesh.positions.size()));
    }
    const TriangleMesh before = mesh;
    sortIntoParts(mesh);
    expectWhole(mesh.parts, 30'000);
    EXPECT_NE(mesh.indices, before.indices);
    EXPECT_EQ(trianglesOf(mesh), trianglesOf(before));
    for (const SpatialPart& part : mesh.parts) {
        for (std::size_t i = part.begin * 3; i < part.end * 3; ++i) {
            ASSERT_TRUE(isIn(part.box, mesh.positions[mesh.indices[i]]));
        }
    }
}

TEST(SpatialParts, OfAMeshWithoutIndicesTakeAllOfATriangleAlong) {
    TriangleMesh mesh;
    mesh.positions = terrain(kMany / 3 * 3).positions;
    for (const qel::XPnt3d& point : mesh.positions) {
        const auto x = static_cast<float>(point.x);
        mesh.normals.emplace_back(x, 0.0F, 0.0F);
        mesh.colors.push_back({x, 0.0F, 0.0F});
        mesh.texCoords.push_back({x, 0.0F});
    }
    const TriangleMesh before = mesh;
    sortIntoParts(mesh);
    expectWhole(mesh.parts, kMany / 3);
    EXPECT_EQ(trianglesOf(mesh), trianglesOf(before));
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        const auto x = static_cast<float>(mesh.positions[i].x);
        ASSERT_EQ(mesh.normals[i].x, x);
        ASSERT_EQ(mesh.colors[i].r, x);
        ASSERT_EQ(mesh.texCoords[i].u, x);
    }
}

}  // namespace
