#include <gtest/gtest.h>

#include <string>

#include "TexturedModels.h"

namespace {

using qel::test::expectCoord;
using qel::test::readWhole;
using qel::test::TemporaryFile;
using qelview::Scene;
using qelview::TriangleMesh;
using qelview::Wrapping;

/// Two triangles of a square; texture coordinates as positions.
const char* const kSquare =
    "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\nvt 0.5 0.5\n";

/// A model with a library of one material, and the image four.tga.
Scene objScene(const std::string& material, const std::string& faces) {
    const TemporaryFile image("four.tga", qel::test::fourPixels());
    const TemporaryFile library("square.mtl", "newmtl m\n" + material);
    const TemporaryFile model("square.obj",
                              "mtllib qelview-test-square.mtl\nusemtl m\n" + std::string(kSquare) + faces);
    return readWhole(model.path());
}

const std::string kMap = "map_Kd qelview-test-four.tga\n";

TEST(ObjTextures, HaveTheirVFromTheUpperEdge) {
    const Scene scene = objScene("Kd 0.5 1 1\n" + kMap, "f 1/1 2/2 3/3 4/4\n");
    EXPECT_TRUE(scene.warnings.empty());
    const TriangleMesh& mesh = scene.meshes.at(0);
    ASSERT_NE(mesh.texture, nullptr);
    EXPECT_EQ(mesh.texture->image->width, 2);
    EXPECT_EQ(mesh.texture->acrossU, Wrapping::Repeat);
    EXPECT_GT(mesh.texture->alphaCutoff, 0.0F);
    EXPECT_EQ(mesh.color.r, 0.5F);
    expectCoord(mesh, 0, 0, 1);
    expectCoord(mesh, 1, 1, 1);
    expectCoord(mesh, 2, 1, 0);
    expectCoord(mesh, 3, 0, 0);
}

TEST(ObjTextures, SplitVerticesOnlyWhereTheirCoordinatesDiffer) {
    const Scene scene = objScene(kMap, "f 1/1 2/2 3/3\nf 1/1 3/3 4/4\nf 1/5 2/2 3/3\n");
    const TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.positions.size(), 5U);
    EXPECT_EQ(mesh.indices.size(), 9U);
    expectCoord(mesh, mesh.indices[6], 0.5, 0.5);
}

TEST(ObjTextures, AreNotOnFacesWithoutCoordinatesNorSplitUntexturedOnes) {
    const Scene scene = objScene("Kd 1 0 0\n" + kMap, "f 1/1 2/2 3/3\nf 1 3/3 4\n");
    ASSERT_EQ(scene.meshes.size(), 2U);
    EXPECT_NE(scene.meshes[0].texture, nullptr);
    EXPECT_EQ(scene.meshes[1].texture, nullptr);
    EXPECT_TRUE(scene.meshes[1].texCoords.empty());
    EXPECT_EQ(scene.meshes[1].color.g, 0.0F);
    const Scene plain = objScene("Kd 1 0 0\n", "f 1/1 2/2 3/3\nf 1/5 3/3 4/4\n");
    EXPECT_EQ(plain.meshes.at(0).positions.size(), 4U);
    EXPECT_TRUE(plain.meshes[0].texCoords.empty());
}

TEST(ObjTextures, KeepPairsOfNormalAndCoordinateApart) {
    const Scene scene =
        objScene(kMap, "vn 0 0 1\nvn 1 0 0\nf 1/1/1 2/2/1 3/3/1\nf 1/1/2 3/3/2 4/4/2\nf 1/1/1 3/3/1 4/4/1\n");
    const TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.positions.size(), 7U);
    EXPECT_EQ(mesh.normals.at(mesh.indices[3]).x, 1.0F);
    EXPECT_EQ(mesh.indices[6], mesh.indices[0]);
}

TEST(ObjTextures, TakeTheOptionsOfTheirImage) {
    const Scene scene =
        objScene("map_Kd -blendu on -clamp on -s 2 4 1 -o 0.25 0.5 -mm 0 1 qelview-test-four.tga\n",
                 "f 1/1 2/2 3/3\n");
    EXPECT_TRUE(scene.warnings.empty());
    const TriangleMesh& mesh = scene.meshes.at(0);
    ASSERT_NE(mesh.texture, nullptr);
    EXPECT_EQ(mesh.texture->acrossU, Wrapping::Clamp);
    EXPECT_EQ(mesh.texture->acrossV, Wrapping::Clamp);
    expectCoord(mesh, 0, 0.25, 0.5);
    expectCoord(mesh, 2, 2.25, -3.5);
}

TEST(ObjTextures, MultiplyWhiteInPlaceOfNoColourAndOfBlack) {
    for (const char* const color : {"", "Kd 0 0 0\n"}) {
        EXPECT_EQ(objScene(color + kMap, "f 1/1 2/2 3/3\n").meshes.at(0).color.r, 1.0F) << color;
    }
}

TEST(ObjTextures, ReplaceColoursOfVertices) {
    const TriangleMesh mesh =
        objScene(kMap, "v 5 5 5 1 0 0\nf 1/1 2/2 5/5\nusemtl other\nf 1 2 5\n").meshes.at(0);
    EXPECT_TRUE(mesh.colors.empty());
    EXPECT_EQ(mesh.texCoords.size(), 3U);
}

struct BadImage {
    const char* name;
    std::string image;
    std::string named;
    std::string reason;
};

class ObjTexturesBadObjImage : public testing::TestWithParam<BadImage> {};

TEST_P(ObjTexturesBadObjImage, IsAWarningAndLeavesThePlainColour) {
    const TemporaryFile image("bad.tga", GetParam().image);
    const Scene scene =
        objScene("Kd 1 0 0.5\nmap_Kd " + GetParam().named + "\n", "f 1/1 2/2 3/3\nusemtl m\nf 1/1 3/3 4/4\n");
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0],
              "qelview-test-square.obj: line 2: image '" + GetParam().named + "': " + GetParam().reason);
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.meshes[0].texture, nullptr);
    EXPECT_EQ(scene.meshes[0].color.b, 0.5F);
    EXPECT_EQ(scene.meshes[0].indices.size(), 6U);
}

INSTANTIATE_TEST_SUITE_P(
    Images, ObjTexturesBadObjImage,
    testing::Values(BadImage{"Missing", "x", "absent.png", "the file cannot be read"},
                    BadImage{"Damaged", "x", "qelview-test-bad.tga", "not a PNG, JPEG, TGA or BMP image"},
                    BadImage{"Empty", "", "qelview-test-bad.tga", "the file cannot be read"},
                    BadImage{"Monstrous", std::string("\0\0\2\0\0\0\0\0\0\0\0\0\0\x40\0\x40\x18\0", 18),
                             "qelview-test-bad.tga", "too large: 16384 x 16384 pixels"},
                    BadImage{"Above", "x", "../four.tga", "not a file next to the model"},
                    BadImage{"Absolute", "x", "/tmp/four.tga", "not a file next to the model"}),
    [](const auto& test) { return test.param.name; });

TEST(ObjTexturesTexturedMeshes, HaveCoordinatesWhereEdgesOfAFaceCross) {
    // The quadrangle's edges cross in its middle.
    const Scene scene = objScene(kMap, "f 1/1 3/3 2/2 4/4\n");
    const TriangleMesh& mesh = scene.meshes.at(0);
    ASSERT_EQ(mesh.positions.size(), mesh.texCoords.size());
    ASSERT_GT(mesh.positions.size(), 4U);
    expectCoord(mesh, 4, 0.5, 0.5);
}

TEST(ObjTextures, OfARealModelAreShown) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const Scene scene = readWhole(qel::test::viewerData() / "meshes/spot_textured/spot.obj");
    EXPECT_TRUE(scene.warnings.empty());
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.triangleCount(), 5856U);
    ASSERT_NE(scene.meshes[0].texture, nullptr);
    EXPECT_EQ(scene.meshes[0].texture->image->width, 1024);
    EXPECT_EQ(scene.meshes[0].texCoords.size(), scene.meshes[0].positions.size());
}

}  // namespace
