#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "MeshFormats.h"

namespace {

using qel::test::Corners;
using qel::test::kStl;
using qel::test::refusal;
using qel::test::sceneOf;

/// A binary STL file that promises `promised` triangles and holds `records`, the last coordinate being
/// `last`.
std::string binaryStl(std::uint32_t promised, std::size_t records, float last = 0.0F) {
    std::string bytes(84 + 50 * records, '\0');
    std::memcpy(bytes.data(), "solid", 5);
    std::memcpy(bytes.data() + 80, &promised, sizeof promised);
    if (records > 0) {
        std::memcpy(bytes.data() + bytes.size() - 2 - sizeof last, &last, sizeof last);
    }
    return bytes;
}

TEST(ReadStl, KnowsBinaryFilesThatBeginLikeText) {
    EXPECT_EQ(refusal(kStl, binaryStl(2, 2)), "");
}

TEST(ReadStl, ComparesThePromisedTrianglesWithTheSizeOfTheFile) {
    EXPECT_EQ(refusal(kStl, binaryStl(13, 12)), "header: it promises 13 triangles, the file has room for 12");
    EXPECT_EQ(refusal(kStl, binaryStl(4294967295U, 1)),
              "header: it promises 4294967295 triangles, the file has room for 1");
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

}  // namespace
