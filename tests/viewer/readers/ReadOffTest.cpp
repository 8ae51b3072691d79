#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MeshFormats.h"

namespace {

using qel::test::expectPoint;
using qel::test::kOff;
using qel::test::sceneOf;

TEST(ReadOff, HasNormalsAndColoursOfItsVertices) {
    const qelview::Scene scene = sceneOf(
        kOff, "CNOFF # told\n3 1 5\n\n1 2 3 0 0 5 0.5 0 1 1\n+0 0 0 0 1 0 0 0\n0 1 0 1 0 0\n3 0 1 2\n");
    const qelview::TriangleMesh& mesh = scene.meshes.at(0);
    expectPoint(mesh.positions.at(0), 1, 2, 3);
    EXPECT_EQ(mesh.normals.at(0).z, 1.0F);
    EXPECT_EQ(mesh.normals.at(1).y, 1.0F);
    EXPECT_EQ(mesh.colors.at(0).r, 0.5F);
    EXPECT_EQ(mesh.colors.at(0).b, 1.0F);
    EXPECT_EQ(mesh.colors.at(1).b, 0.0F);
    EXPECT_TRUE(scene.warnings.empty());
}

TEST(ReadOff, TakesColoursAboveOneForBytesAndIgnoresAlpha) {
    const qelview::Scene scene = sceneOf(kOff, "COFF\n3\n1 0\n0 0 0 255 51 0 7\n1 0 0 1 0\n0 1 0\n3 0 1 2\n");
    EXPECT_TRUE(scene.warnings.empty());
    const std::vector<qel::QelColor3f>& colors = scene.meshes.at(0).colors;
    ASSERT_EQ(colors.size(), 3U);
    EXPECT_EQ(colors[0].r, 1.0F);
    EXPECT_FLOAT_EQ(colors[0].g, 0.2F);
    EXPECT_EQ(colors[0].b, 0.0F);
    EXPECT_FLOAT_EQ(colors[1].r, 1.0F / 255.0F);
    EXPECT_EQ(colors[2].r, 0.0F);
    const qelview::Scene more = sceneOf(kOff, "COFF\n1 0 0\n0 0 0 1 1 1 1 1\n");
    ASSERT_EQ(more.warnings.size(), 1U);
    EXPECT_EQ(more.warnings[0], "line 3: a vertex with more numbers than the first line declares");
}

TEST(ReadOff, WithoutFacesIsACloud) {
    const qelview::Scene scene = sceneOf(kOff, "COFF\n2 0 0\n1 2 3 1 0 0\n4 5 6 0 0 1\n");
    EXPECT_TRUE(scene.meshes.empty());
    ASSERT_EQ(scene.cloudPointCount(), 2U);
    expectPoint(scene.clouds[0].positions[1], 4, 5, 6);
    ASSERT_EQ(scene.clouds[0].colors.size(), 2U);
    EXPECT_EQ(scene.clouds[0].colors[0].r, 255);
    EXPECT_EQ(scene.clouds[0].colors[1].b, 255);
}

TEST(ReadOff, HasFacesOfAnyNumberOfCorners) {
    std::string file = "OFF\n100 1 0\n";
    std::string face = "100";
    for (int i = 0; i < 100; ++i) {
        file += std::to_string(i < 50 ? i : 99 - i) + " " + (i < 50 ? "0" : "1") + " 0\n";
        face += " " + std::to_string(i);
    }
    EXPECT_EQ(sceneOf(kOff, file + face).triangleCount(), 98U);
}

}  // namespace
