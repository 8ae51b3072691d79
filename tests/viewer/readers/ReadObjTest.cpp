#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MeshFormats.h"

namespace {

using qel::test::Corners;
using qel::test::expectPoint;
using qel::test::kObj;
using qel::test::sceneOf;

TEST(ReadObj, CountsNegativeNumbersBackFromTheirLine) {
    const qelview::Scene scene = sceneOf(kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -1/ -2 -3\nv 9 9 9\nl -1 1\n");
    EXPECT_EQ(scene.meshes.at(0).positions.size(), 3U);
    expectPoint(scene.meshes[0].positions[0], 0, 1, 0);
    expectPoint(scene.polylines.at(0).parts.at(0).at(0), 9, 9, 9);
    expectPoint(scene.polylines[0].parts[0].at(1), 0, 0, 0);
}

TEST(ReadObj, HasVerticesForEachPairOfPositionAndNormal) {
    const qelview::Scene scene = sceneOf(
        kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvn 0 0 2\nvn 0 5 0\nf 1/1/1 2//1 3//1\nf 1//1 2//2 3//1\n");
    const qelview::TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.indices, (Corners{0, 1, 2, 0, 3, 2}));
    ASSERT_EQ(mesh.normals.size(), 4U);
    EXPECT_EQ(mesh.normals[1].z, 1.0F);
    EXPECT_EQ(mesh.normals[3].y, 1.0F);
}

TEST(ReadObj, KeepsFacesWithAndWithoutNormalsApart) {
    const qelview::Scene scene =
        sceneOf(kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nvn 0 0 1\nf 1//1 2//1 3//1\nf 3//1 2 1\n");
    ASSERT_EQ(scene.meshes.size(), 2U);
    EXPECT_EQ(scene.meshes[0].normals.empty() + scene.meshes[1].normals.empty(), 1);
}

TEST(ReadObj, MakesVerticesWithoutAColourWhite) {
    const qelview::Scene scene = sceneOf(kObj, "v 0 0 0\nv 1 0 0 1 0 0.5\nv 2 0 0\np 1 2 3\n");
    const std::vector<qel::QelColor3b>& colors = scene.clouds.at(0).colors;
    ASSERT_EQ(colors.size(), 3U);
    EXPECT_EQ(colors[0].g, 255);
    EXPECT_EQ(colors[1].g, 0);
    EXPECT_EQ(colors[1].b, 128);
    EXPECT_EQ(colors[2].r, 255);
}

TEST(ReadObj, TakesColoursAboveOneForBytes) {
    const qelview::Scene scene = sceneOf(kObj, "v 0 0 0 255 0 51\nv 1 0 0 1 0 0\np 1 2\n");
    EXPECT_EQ(scene.clouds.at(0).colors.at(0).b, 51);
    EXPECT_EQ(scene.clouds[0].colors.at(1).r, 1);
}

TEST(ReadObj, DividesPositionsByTheirWeight) {
    expectPoint(sceneOf(kObj, "v 2 4 6 2\n").clouds.at(0).positions.at(0), 1, 2, 3);
}

TEST(ReadObj, HasAMeshForEachColourAndShowsAllItsFaces) {
    const qelview::Scene scene =
        sceneOf(kObj, "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2 3\nf 1 2 3 4\nf 2 3 4\ng other\nf 1 3 4\n");
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.triangleCount(), 5U);
    EXPECT_EQ(scene.meshes[0].positions.size(), 4U);
}

}  // namespace
