#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "TexturedModels.h"

namespace {

using qel::test::expectCoord;
using qel::test::readWhole;
using qel::test::TemporaryFile;
using qelview::Scene;
using qelview::TriangleMesh;

/// A textured square in PLY, whose texture coordinates have these names.
Scene plyScene(const std::string& u, const std::string& v, const std::string& comment) {
    const TemporaryFile image("four.tga", qel::test::fourPixels());
    const TemporaryFile model(
        "square.ply", "ply\nformat ascii 1.0\n" + comment + "element vertex 4\nproperty float x\n" +
                          "property float y\nproperty float z\nproperty uchar red\nproperty float " + u +
                          "\nproperty float " + v +
                          "\nelement face 1\nproperty list uchar int vertex_indices\nend_header\n" +
                          "0 0 0 9 0 0.25\n1 0 0 9 1 0\n1 1 0 9 1 1\n0 1 0 9 0 1\n4 0 1 2 3\n");
    return readWhole(model.path());
}

TEST(PlyTextures, ComeFromVerticesAndTheFirstNamedImage) {
    for (const auto& [u, v] :
         {std::pair("s", "t"), std::pair("u", "v"), std::pair("texture_u", "texture_v")}) {
        const Scene scene = plyScene(u, v, "comment TextureFile qelview-test-four.tga\n");
        EXPECT_TRUE(scene.warnings.empty());
        const TriangleMesh& mesh = scene.meshes.at(0);
        ASSERT_NE(mesh.texture, nullptr) << u;
        EXPECT_TRUE(mesh.colors.empty());
        EXPECT_TRUE(mesh.color.r == 1.0F && mesh.color.g == 1.0F && mesh.color.b == 1.0F);
        expectCoord(mesh, 0, 0, 0.75);
        expectCoord(mesh, 2, 1, 0);
    }
}

TEST(PlyTextures, AreLeftOutWithoutACommentOrAnImage) {
    const Scene plain = plyScene("s", "t", "comment made by hand\n");
    EXPECT_TRUE(plain.warnings.empty());
    EXPECT_TRUE(plain.meshes.at(0).texCoords.empty());
    EXPECT_FALSE(plain.meshes[0].colors.empty());
    const Scene missing = plyScene("s", "t", "comment TextureFile absent.png\n");
    ASSERT_EQ(missing.warnings.size(), 1U);
    EXPECT_NE(missing.warnings[0].find("'absent.png'"), std::string::npos);
    EXPECT_EQ(missing.meshes.at(0).texture, nullptr);
    const Scene without = plyScene("a", "b", "comment TextureFile qelview-test-four.tga\n");
    EXPECT_EQ(without.warnings.size(), 1U);
    EXPECT_EQ(without.meshes.at(0).texture, nullptr);
}

TEST(PlyTextures, AfterTheFirstOneAreAWarning) {
    const Scene scene =
        plyScene("s", "t", "comment TextureFile qelview-test-four.tga\ncomment TextureFile other.png\n");
    EXPECT_EQ(scene.warnings.size(), 1U);
    EXPECT_NE(scene.meshes.at(0).texture, nullptr);
}

}  // namespace
