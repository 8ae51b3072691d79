#include <gtest/gtest.h>

#include <string>

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
