#include "PlyTextures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "TexturedModels.h"

namespace {

using qel::test::expectCoord;
using qel::test::readWhole;
using qel::test::TemporaryFile;
using qelview::Scene;
using qelview::TriangleMesh;

const char* const kImage = "comment TextureFile qelview-test-four.tga\n";
const char* const kTwoImages =
    "comment TextureFile qelview-test-four.tga\ncomment TextureFile qelview-test-two.tga\n";
const char* const kCorners = "property list uchar int vertex_indices\n";
const char* const kCoords = "property list uchar float texcoord\n";
const char* const kNumber = "property int texnumber\n";

/// A PLY file of the corners of a square and two faces.
struct Model {
    std::string comments = kImage;
    /// Behind the coordinates.
    std::string vertexProperties;
    std::string valuesOfVertex;
    std::string faceProperties;
    std::string faces;
    std::string otherElement;
};

Scene sceneOf(const Model& model) {
    const TemporaryFile image("four.tga", qel::test::fourPixels());
    const TemporaryFile other("two.tga", qel::test::tgaOf(2, {qel::test::kRed, qel::test::kBlue}));
    std::string text = "ply\nformat ascii 1.0\n" + model.comments +
                       "element vertex 4\nproperty float x\nproperty float y\nproperty float z\n" +
                       model.vertexProperties + "element face 2\n" + model.faceProperties +
                       model.otherElement + "end_header\n";
    for (const char* const place : {"0 0 0 ", "1 0 0 ", "1 1 0 ", "0 1 0 "}) {
        text += place + model.valuesOfVertex + "\n";
    }
    const TemporaryFile file("square.ply", text + model.faces);
    return readWhole(file.path());
}

Model squareOf(const std::string& faces) {
    Model model;
    model.faceProperties = std::string(kCorners) + kCoords;
    model.faces = faces;
    return model;
}

const char* const kTwoTriangles = "3 0 1 2 6 0 0 1 0 1 1\n3 0 2 3 6 0 0 1 1 0 1\n";

/// The texture coordinates of a corner of the triangles.
void expectCorner(const TriangleMesh& mesh, std::size_t corner, double u, double v) {
    ASSERT_GT(mesh.indices.size(), corner);
    expectCoord(mesh, mesh.indices[corner], u, v);
}

TEST(PlyTexturedFaces, HaveTheirVFromTheUpperEdgeAndNoColours) {
    Model model = squareOf(kTwoTriangles);
    model.vertexProperties = "property uchar red\n";
    model.valuesOfVertex = "9";
    const Scene scene = sceneOf(model);
    EXPECT_TRUE(scene.warnings.empty());
    ASSERT_EQ(scene.meshes.size(), 1U);
    const TriangleMesh& mesh = scene.meshes[0];
    ASSERT_NE(mesh.texture, nullptr);
    EXPECT_EQ(mesh.texture->image->width, 2);
    EXPECT_TRUE(mesh.colors.empty());
    EXPECT_TRUE(mesh.color.r == 1.0F && mesh.color.g == 1.0F && mesh.color.b == 1.0F);
    EXPECT_EQ(mesh.positions.size(), 4U);
    expectCorner(mesh, 0, 0, 1);
    expectCorner(mesh, 1, 1, 1);
    expectCorner(mesh, 2, 1, 0);
    expectCorner(mesh, 5, 0, 0);
}

TEST(PlyTexturedFaces, SplitVerticesWhereTheirCoordinatesDiffer) {
    const Scene scene = sceneOf(squareOf("3 0 1 2 6 0 0 1 0 1 1\n3 0 2 3 6 0.5 0 1 0.25 0 1\n"));
    const TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.positions.size(), 6U);
    expectCorner(mesh, 0, 0, 1);
    expectCorner(mesh, 3, 0.5, 1);
    expectCorner(mesh, 2, 1, 0);
    expectCorner(mesh, 4, 1, 0.75);
    EXPECT_EQ(qel::dist(mesh.positions[mesh.indices[2]], mesh.positions[mesh.indices[4]]), 0.0);
}

TEST(PlyTexturedFaces, MayHaveAnyNumberOfCorners) {
    const Scene scene = sceneOf(squareOf("4 0 1 2 3 8 0 0 1 0 1 1 0 1\n3 0 1 2 6 0 0 1 0 1 1\n"));
    EXPECT_EQ(scene.triangleCount(), 3U);
    EXPECT_EQ(scene.meshes.at(0).positions.size(), 4U);
    expectCoord(scene.meshes[0], 3, 0, 0);
}

TEST(PlyTexturedFaces, MayNameTheirPropertiesInAnyOrder) {
    Model model;
    model.comments = kTwoImages;
    model.faceProperties = std::string(kNumber) + kCoords + kCorners;
    model.faces = "1 6 0 0 0.25 0 1 1 3 0 1 2\n1 6 0 0 1 1 0 1 3 0 2 3\n";
    const Scene scene = sceneOf(model);
    EXPECT_TRUE(scene.warnings.empty());
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.meshes[0].texture->image->height, 1);
    expectCorner(scene.meshes[0], 1, 0.25, 1);
}

TEST(PlyTexturedFaces, ShowTheImageOfTheirNumber) {
    Model model = squareOf("3 0 1 2 6 0 0 1 0 1 1 1\n3 0 2 3 6 0 0 1 1 0 1 0\n");
    model.comments = kTwoImages;
    model.faceProperties += kNumber;
    const Scene scene = sceneOf(model);
    EXPECT_TRUE(scene.warnings.empty());
    ASSERT_EQ(scene.meshes.size(), 2U);
    EXPECT_EQ(scene.meshes[0].texture->image->height, 2);
    EXPECT_EQ(scene.meshes[0].positions.size(), 3U);
    expectCorner(scene.meshes[0], 2, 0, 0);
    EXPECT_EQ(scene.meshes[1].texture->image->height, 1);
    expectCorner(scene.meshes[1], 1, 1, 1);
}

TEST(PlyTexturedFaces, KeepTheNormalsOfTheirVertices) {
    Model model = squareOf(kTwoTriangles);
    model.vertexProperties = "property float nx\nproperty float ny\nproperty float nz\n";
    model.valuesOfVertex = "0 3 0";
    const TriangleMesh mesh = sceneOf(model).meshes.at(0);
    ASSERT_EQ(mesh.normals.size(), 4U);
    EXPECT_EQ(mesh.normals[3].y, 1.0F);
}

TEST(PlyTexturedFaces, PrecedeTexturedVerticesAndAreTintedByTheMaterial) {
    Model model = squareOf(kTwoTriangles);
    model.vertexProperties = "property float s\nproperty float t\n";
    model.valuesOfVertex = "0.5 0.5";
    model.otherElement = "element material 1\nproperty uchar diffuse_red\n";
    model.faces += "51\n";
    const Scene scene = sceneOf(model);
    ASSERT_EQ(scene.meshes.size(), 1U);
    expectCorner(scene.meshes[0], 2, 1, 0);
    EXPECT_FLOAT_EQ(scene.meshes[0].color.r, 0.2F);
    EXPECT_EQ(scene.meshes[0].color.g, 0.0F);
}

/// Faces of which only the first is textured.
struct Partly {
    const char* name;
    std::string comments;
    std::string faces;
    std::vector<std::string> warnings;
};

class PlyTexturedFacesPartly : public testing::TestWithParam<Partly> {};

TEST_P(PlyTexturedFacesPartly, ShowTheOthersInTheColoursOfTheirVertices) {
    Model model = squareOf(GetParam().faces);
    model.comments = GetParam().comments;
    model.faceProperties += kNumber;
    model.vertexProperties = "property uchar green\n";
    model.valuesOfVertex = "255";
    const Scene scene = sceneOf(model);
    ASSERT_EQ(scene.meshes.size(), 2U);
    EXPECT_NE(scene.meshes[0].texture, nullptr);
    EXPECT_EQ(scene.meshes[0].indices.size(), 3U);
    const TriangleMesh& plain = scene.meshes[1];
    EXPECT_EQ(plain.texture, nullptr);
    EXPECT_TRUE(plain.texCoords.empty());
    EXPECT_EQ(plain.indices, (std::vector<std::uint32_t>{0, 2, 3}));
    EXPECT_EQ(plain.colors.at(0).g, 1.0F);
    ASSERT_EQ(scene.warnings.size(), GetParam().warnings.size());
    for (std::size_t i = 0; i < scene.warnings.size(); ++i) {
        EXPECT_EQ(scene.warnings[i], "qelview-test-square.ply: " + GetParam().warnings[i]);
    }
}

const char* const kUnnamed = "faces: a texture that the header does not name is left out";
const char* const kWrongCount = "line 19: a face needs 2 texture coordinates a vertex; it has no texture";
const std::vector<Partly> kPartly{
    {"WithoutCoordinates", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 0 0\n", {}},
    {"WithTooFewCoordinates", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 4 0 0 1 1 0\n", {kWrongCount}},
    {"WithTooManyCoordinates", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 7 0 0 1 1 1 1 1 0\n", {kWrongCount}},
    {"OfTooHighANumber", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 6 0 0 1 1 0 1 1\n", {kUnnamed}},
    {"OfANumberBelowZero", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 6 0 0 1 1 0 1 -1\n", {kUnnamed}},
    {"OfHalfANumber", kImage, "3 0 1 2 6 0 0 1 0 1 1 0\n3 0 2 3 6 0 0 1 1 0 1 0.5\n", {kUnnamed}},
    {"OfAMissingImage",
     "comment TextureFile absent.png\ncomment TextureFile qelview-test-four.tga\n",
     "3 0 1 2 6 0 0 1 0 1 1 1\n3 0 2 3 6 0 0 1 1 0 1 0\n",
     {"header: image 'absent.png': the file cannot be read"}},
};
INSTANTIATE_TEST_SUITE_P(Faces, PlyTexturedFacesPartly, testing::ValuesIn(kPartly),
                         [](const auto& each) { return each.param.name; });

TEST(PlyTexturedFaces, WithoutAnyImageAreOneMesh) {
    Model model = squareOf(kTwoTriangles);
    for (const char* const comments : {"", "comment TextureFile absent.png\n"}) {
        model.comments = comments;
        const Scene scene = sceneOf(model);
        ASSERT_EQ(scene.meshes.size(), 1U);
        EXPECT_EQ(scene.meshes[0].texture, nullptr);
        EXPECT_EQ(scene.meshes[0].indices.size(), 6U);
        EXPECT_EQ(scene.warnings.empty(), model.comments.empty());
    }
}

TEST(PlyTexturedFaces, WithoutNumbersShowTheFirstImage) {
    Model model = squareOf(kTwoTriangles);
    model.comments = kTwoImages;
    const Scene scene = sceneOf(model);
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0],
              "qelview-test-square.ply: header: textures after the first one are left out");
    EXPECT_EQ(scene.meshes.at(0).texture->image->height, 2);
}

}  // namespace
