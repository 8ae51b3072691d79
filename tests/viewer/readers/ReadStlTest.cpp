#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "MeshFormats.h"

namespace {

using qel::test::Corners;
using qel::test::kStl;
using qel::test::refusal;
using qel::test::sceneOf;

/// A binary STL file that declares `declared` triangles and holds `records`, the last coordinate being
/// `last`.
std::string binaryStl(std::uint32_t declared, std::size_t records, float last = 0.0F) {
    std::string bytes(84 + 50 * records, '\0');
    std::memcpy(bytes.data(), "solid", 5);
    std::memcpy(bytes.data() + 80, &declared, sizeof declared);
    if (records > 0) {
        std::memcpy(bytes.data() + bytes.size() - 2 - sizeof last, &last, sizeof last);
    }
    return bytes;
}

TEST(ReadStl, KnowsBinaryFilesThatBeginLikeText) {
    EXPECT_EQ(refusal(kStl, binaryStl(2, 2)), "");
}

TEST(ReadStl, ComparesThePromisedTrianglesWithTheSizeOfTheFile) {
    EXPECT_EQ(refusal(kStl, binaryStl(13, 12)), "header: it declares 13 triangles, the file has room for 12");
    EXPECT_EQ(refusal(kStl, binaryStl(4294967295U, 1)),
              "header: it declares 4294967295 triangles, the file has room for 1");
    EXPECT_EQ(refusal(kStl, binaryStl(0, 0)), "header: there is no triangle");
}

TEST(ReadStl, NamesTheTriangleThatIsNotFinite) {
    EXPECT_EQ(refusal(kStl, binaryStl(3, 3, std::numeric_limits<float>::quiet_NaN())),
              "triangle 3: a coordinate is not finite");
}

TEST(ReadStl, WarnsOfBytesBehindTheLastTriangle) {
    const qelview::Scene scene = sceneOf(kStl, binaryStl(1, 1, 1.0F) + std::string(49, ' '));
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0], "end of file: 49 bytes behind the last triangle are left out");
}

TEST(ReadStl, SharesTheVerticesOfItsTriangles) {
    const qelview::Scene scene = sceneOf(
        kStl, "solid a\n" STL_TRIANGLE
              "facet normal 0 0 1\nouter loop\nvertex 1 -0 0\nvertex 1 1 0\nvertex 0 1 0\nendloop\nendfacet\n"
              "endsolid a\n");
    EXPECT_EQ(scene.meshes.at(0).positions.size(), 4U);
    EXPECT_EQ(scene.meshes[0].indices, (Corners{0, 1, 2, 1, 3, 2}));
    EXPECT_EQ(sceneOf(kStl, binaryStl(2, 2, -0.0F)).meshes.at(0).positions.size(), 1U);
}

/// A triangle of a binary file: nine coordinates and the bits of its colour.
struct Record {
    std::array<float, 9> corners;
    std::uint16_t color = 0;
};

std::string binaryStl(const std::vector<Record>& records) {
    std::string bytes = binaryStl(static_cast<std::uint32_t>(records.size()), records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        std::memcpy(bytes.data() + 84 + 50 * i + 12, records[i].corners.data(), 36);
        std::memcpy(bytes.data() + 84 + 50 * i + 48, &records[i].color, 2);
    }
    return bytes;
}

constexpr std::array<float, 9> kTriangle{0, 0, 0, 1, 0, 0, 0, 2, 3};

TEST(ReadStl, NumbersBinaryCornersInTheirOrder) {
    const qelview::Scene scene = sceneOf(
        kStl,
        binaryStl({{kTriangle}, {{1, 0, 0, 5, 6, -7, 0, 2, 3}}, {{-0.0F, 0, -0.0F, 1, 0, 0, 8, 8, 8}}}));
    EXPECT_TRUE(scene.warnings.empty());
    const qelview::TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.indices, (Corners{0, 1, 2, 1, 3, 2, 0, 1, 4}));
    ASSERT_EQ(mesh.positions.size(), 5U);
    qel::test::expectPoint(mesh.positions[2], 0, 2, 3);
    qel::test::expectPoint(mesh.positions[3], 5, 6, -7);
    EXPECT_TRUE(mesh.colors.empty());
    EXPECT_TRUE(mesh.normals.empty());
}

TEST(ReadStl, ColoursTrianglesWhoseHighestBitIsSet) {
    // Red of 31, green of 2 and blue of 1 in five bits each; the same without the highest bit says nothing.
    constexpr std::uint16_t kBits = 31U << 10U | 2U << 5U | 1U;
    const qelview::Scene scene = sceneOf(kStl, binaryStl({{kTriangle, 0x8000U | kBits}, {kTriangle, kBits}}));
    const qelview::TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.indices, (Corners{0, 1, 2, 3, 4, 5}));
    ASSERT_EQ(mesh.colors.size(), 6U);
    EXPECT_EQ(mesh.colors[0].r, 1.0F);
    EXPECT_EQ(mesh.colors[0].g, 2.0F / 31.0F);
    EXPECT_EQ(mesh.colors[2].b, 1.0F / 31.0F);
    EXPECT_EQ(mesh.colors[3].r, qelview::TriangleMesh().color.r);
    EXPECT_EQ(mesh.colors[3].b, qelview::TriangleMesh().color.b);
}

TEST(ReadStl, SaysWhereAllPlacesDiffer) {
    EXPECT_TRUE(sceneOf(kStl, binaryStl({{kTriangle}})).meshes.at(0).arePlacesDistinct);
    EXPECT_TRUE(sceneOf(kStl, "solid a\n" STL_TRIANGLE "endsolid a\n").meshes.at(0).arePlacesDistinct);
    // Vertices of two colours share a place.
    EXPECT_FALSE(sceneOf(kStl, binaryStl({{kTriangle, 0x8001}})).meshes.at(0).arePlacesDistinct);
}

TEST(ReadStl, TakesCoordinatesUpToTheLargest) {
    EXPECT_EQ(refusal(kStl, binaryStl(1, 1, -1e15F)), "");
    EXPECT_EQ(refusal(kStl, binaryStl(1, 1, -2e15F)),
              "triangle 1: a coordinate is beyond 1e15, the largest coordinate that can be drawn");
}

/// Enough triangles for all cores, both as bytes and as text.
TEST(ReadStl, ReadsManyTrianglesAlikeInBothForms) {
    constexpr std::size_t kTriangles = 20'000;
    std::vector<Record> records;
    std::string text = "solid a\n";
    for (std::size_t i = 0; i < kTriangles; ++i) {
        Record& record = records.emplace_back();
        text += "facet normal 0 0 0\nouter loop\n";
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const std::size_t x = i * 7 % 1009 + corner;
            const std::size_t y = i % 13;
            record.corners.at(3 * corner) = static_cast<float>(x);
            record.corners.at(3 * corner + 1) = static_cast<float>(y);
            text += "vertex " + std::to_string(x) + " " + std::to_string(y) + " 0\n";
        }
        text += "endloop\nendfacet\n";
    }
    const qelview::Scene fromBytes = sceneOf(kStl, binaryStl(records));
    const qelview::Scene fromText = sceneOf(kStl, text + "endsolid a\n");
    const qelview::TriangleMesh& mesh = fromBytes.meshes.at(0);
    EXPECT_EQ(mesh.indices, fromText.meshes.at(0).indices);
    ASSERT_EQ(mesh.indices.size(), 3U * kTriangles);
    for (std::size_t corner = 0; corner < mesh.indices.size(); ++corner) {
        ASSERT_EQ(mesh.positions.at(mesh.indices[corner]).x,
                  static_cast<double>(records[corner / 3].corners[3 * (corner % 3)]));
    }
    EXPECT_EQ(mesh.positions.size(), fromText.meshes[0].positions.size());
}

TEST(ReadStl, NamesTheFirstWrongTriangleOfMany) {
    std::vector<Record> records(60'000, {kTriangle});
    records[50'000].corners[4] = std::numeric_limits<float>::infinity();
    EXPECT_EQ(refusal(kStl, binaryStl(records)), "triangle 50001: a coordinate is not finite");
    records[20'000].corners[4] = std::numeric_limits<float>::infinity();
    EXPECT_EQ(refusal(kStl, binaryStl(records)), "triangle 20001: a coordinate is not finite");
}

}  // namespace
