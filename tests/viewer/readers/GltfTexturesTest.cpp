#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <vector>

#include "TexturedModels.h"

namespace {

using nlohmann::json;
using qel::test::expectCoord;
using qel::test::readWhole;
using qel::test::TemporaryFile;
using qelview::Scene;
using qelview::TriangleMesh;
using qelview::Wrapping;

/// A square whose texture coordinates are (0, 1), (1, 1), (1, 0), (0, 0), with the image four.tga in a file.
json texturedSquare() {
    // Four positions, four pairs of texture coordinates and six indices.
    return json::parse(R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
        "nodes": [{"mesh": 0}],
        "meshes": [{"primitives": [{"attributes": {"POSITION": 0, "TEXCOORD_0": 1, "TEXCOORD_1": 3},
                                    "indices": 2, "material": 0}]}],
        "materials": [{"pbrMetallicRoughness": {"baseColorFactor": [0.5, 1, 1, 1],
                                                "baseColorTexture": {"index": 0}}}],
        "textures": [{"source": 0, "sampler": 0}], "samplers": [{}],
        "images": [{"uri": "qelview-test-four.tga"}],
        "accessors": [{"bufferView": 0, "componentType": 5126, "count": 4, "type": "VEC3"},
                      {"bufferView": 1, "componentType": 5126, "count": 4, "type": "VEC2"},
                      {"bufferView": 2, "componentType": 5121, "count": 6, "type": "SCALAR"},
                      {"bufferView": 2, "componentType": 5121, "count": 4, "type": "VEC2", "normalized": true}],
        "bufferViews": [{"buffer": 0, "byteLength": 48}, {"buffer": 0, "byteOffset": 48, "byteLength": 32},
                        {"buffer": 0, "byteOffset": 80, "byteLength": 8}],
        "buffers": [{"byteLength": 88, "uri": "data:;base64,AACAvwAAgL8AAAAAAACAPwAAgL8AAAAAAACAPwAAgD8AAAAAAACAvwAAgD8AAAAAAAAAAAAAgD8AAIA/AACAPwAAgD8AAAAAAAAAAAAAAAAAAQIAAgMAAA=="}]})");
}

Scene gltfScene(const json& changes) {
    const TemporaryFile image("four.tga", qel::test::fourPixels());
    const TemporaryFile image2("four 2.tga", qel::test::fourPixels());
    json asset = texturedSquare();
    for (const auto& [pointer, value] : changes.items()) {
        asset[json::json_pointer(pointer)] = value;
    }
    const TemporaryFile model("square.gltf", asset.dump());
    return readWhole(model.path());
}

TEST(GltfTextures, HaveCoordinatesAndTheFactorOfTheirMaterial) {
    const Scene scene = gltfScene(json::object());
    EXPECT_TRUE(scene.warnings.empty());
    const TriangleMesh& mesh = scene.meshes.at(0);
    ASSERT_NE(mesh.texture, nullptr);
    EXPECT_EQ(mesh.color.r, 0.5F);
    EXPECT_EQ(mesh.texture->acrossU, Wrapping::Repeat);
    EXPECT_EQ(mesh.texture->alphaCutoff, 0.0F);
    EXPECT_FALSE(mesh.texture->hasSharpPixels);
    expectCoord(mesh, 0, 0, 1);
    expectCoord(mesh, 2, 1, 0);
}

TEST(GltfTextures, TakeTheirImageFromEachPlace) {
    EXPECT_NE(gltfScene({{"/images/0/uri", "qelview-test-four%202.tga"}}).meshes.at(0).texture, nullptr);
    const char* const kTgaOfOnePixel = "data:image/x-tga;base64,AAACAAAAAAAAAAAAAQABABgg/wAA";
    const Scene inText = gltfScene({{"/images/0/uri", kTgaOfOnePixel}});
    ASSERT_NE(inText.meshes.at(0).texture, nullptr);
    EXPECT_EQ(inText.meshes[0].texture->image->pixels, (std::vector<std::uint8_t>{0, 0, 255}));
    const Scene inBuffer = readWhole(qel::test::viewerCorpus() / "textured.glb");
    ASSERT_NE(inBuffer.meshes.at(0).texture, nullptr);
    EXPECT_EQ(inBuffer.meshes[0].texture->image->height, 16);
}

TEST(GltfTextures, AreShownAsTheirSamplerSays) {
    const auto textureWith = [](const char* member, int value) {
        return *gltfScene({{std::string("/samplers/0/") + member, value}}).meshes.at(0).texture;
    };
    EXPECT_EQ(textureWith("wrapS", 33071).acrossU, Wrapping::Clamp);
    EXPECT_EQ(textureWith("wrapS", 33071).acrossV, Wrapping::Repeat);
    EXPECT_EQ(textureWith("wrapT", 33071).acrossV, Wrapping::Clamp);
    EXPECT_TRUE(textureWith("magFilter", 9728).hasSharpPixels);
}

TEST(GltfTextures, AreMirroredByImagesOfTwiceTheSize) {
    const Scene scene = gltfScene({{"/samplers/0/wrapS", 33648}, {"/samplers/0/wrapT", 33648}});
    const TriangleMesh& mesh = scene.meshes.at(0);
    const qelview::TextureImage& image = *mesh.texture->image;
    ASSERT_EQ(image.width, 4);
    ASSERT_EQ(image.height, 4);
    const auto colorAt = [&image](int column, int row) {
        const std::uint8_t* const pixel = image.pixel(column, row);
        return qel::test::Rgba{pixel[0], pixel[1], pixel[2], pixel[3]};
    };
    EXPECT_EQ(colorAt(0, 0), qel::test::kRed);
    EXPECT_EQ(colorAt(1, 0), qel::test::kGreen);
    EXPECT_EQ(colorAt(2, 0), qel::test::kGreen);
    EXPECT_EQ(colorAt(3, 3), qel::test::kRed);
    EXPECT_EQ(colorAt(1, 2), qel::test::kWhite);
    EXPECT_EQ(colorAt(0, 1), qel::test::kBlue);
    expectCoord(mesh, 1, 0.5, 0.5);
    const Scene tall = gltfScene({{"/samplers/0/wrapT", 33648}});
    EXPECT_EQ(tall.meshes.at(0).texture->image->width, 2);
    EXPECT_EQ(tall.meshes[0].texture->image->height, 4);
    expectCoord(tall.meshes[0], 1, 1, 0.5);
}

TEST(GltfTextures, HaveHolesAsTheirMaterialSays) {
    const auto cutoffWith = [](const json& changes) {
        return gltfScene(changes).meshes.at(0).texture->alphaCutoff;
    };
    EXPECT_EQ(cutoffWith({{"/materials/0/alphaMode", "MASK"}}), 0.5F);
    EXPECT_EQ(cutoffWith({{"/materials/0/alphaMode", "MASK"}, {"/materials/0/alphaCutoff", 0.25}}), 0.25F);
    EXPECT_EQ(cutoffWith({{"/materials/0/alphaMode", "BLEND"}}), 0.5F);
    EXPECT_EQ(cutoffWith({{"/materials/0/alphaMode", "OPAQUE"}, {"/materials/0/alphaCutoff", 0.25}}), 0.0F);
}

TEST(GltfTextures, AreMovedTurnedAndScaledByTheirTransform) {
    const char* const kTransform =
        "/materials/0/pbrMetallicRoughness/baseColorTexture/extensions/KHR_texture_transform";
    const Scene scaled = gltfScene({{kTransform, {{"offset", {0.5, 0.25}}, {"scale", {2, 4}}}}});
    expectCoord(scaled.meshes.at(0), 0, 0.5, 4.25);
    expectCoord(scaled.meshes[0], 2, 2.5, 0.25);
    // A quarter turn counterclockwise, where v points down: what pointed right points up.
    const Scene turned = gltfScene({{kTransform, {{"rotation", std::numbers::pi / 2.0}}}});
    expectCoord(turned.meshes.at(0), 2, 0, -1);
    expectCoord(turned.meshes[0], 0, 1, 0);
    // Scaled before it is turned, by 60 degrees here.
    const Scene both = gltfScene({{kTransform, {{"scale", {2, 4}}, {"rotation", std::numbers::pi / 3.0}}}});
    expectCoord(both.meshes.at(0), 2, 1, -std::numbers::sqrt3);
    expectCoord(both.meshes[0], 0, 2 * std::numbers::sqrt3, 2);
    const Scene other = gltfScene({{kTransform, {{"texCoord", 1}}}});
    expectCoord(other.meshes.at(0), 0, 0, 1.0 / 255.0);
}

TEST(GltfTextures, TakeTheSetOfCoordinatesThatIsNamed) {
    const Scene scene = gltfScene({{"/materials/0/pbrMetallicRoughness/baseColorTexture/texCoord", 1}});
    expectCoord(scene.meshes.at(0), 0, 0, 1.0 / 255.0);
    expectCoord(scene.meshes[0], 1, 2.0 / 255.0, 0);
}

TEST(GltfTextures, OfTheGlossyExtensionAreShown) {
    const json gloss = {{"diffuseFactor", {1, 1, 0.25, 1}}, {"diffuseTexture", {{"index", 0}}}};
    const Scene scene = gltfScene({{"/materials/0/extensions/KHR_materials_pbrSpecularGlossiness", gloss},
                                   {"/materials/0/pbrMetallicRoughness", json::object()}});
    EXPECT_NE(scene.meshes.at(0).texture, nullptr);
    EXPECT_EQ(scene.meshes[0].color.b, 0.25F);
}

struct BadGltf {
    const char* name;
    json changes;
    std::string reason;
};

class GltfTexturesBadGltfTexture : public testing::TestWithParam<BadGltf> {};

TEST_P(GltfTexturesBadGltfTexture, IsAWarningAndLeavesThePlainColour) {
    const Scene scene = gltfScene(GetParam().changes);
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_NE(scene.warnings[0].find(GetParam().reason), std::string::npos) << scene.warnings[0];
    EXPECT_EQ(scene.meshes.at(0).texture, nullptr);
    EXPECT_TRUE(scene.meshes[0].texCoords.empty());
    EXPECT_EQ(scene.meshes[0].color.r, 0.5F);
}

INSTANTIATE_TEST_SUITE_P(
    Textures, GltfTexturesBadGltfTexture,
    testing::Values(
        BadGltf{"Missing", {{"/images/0/uri", "absent.png"}}, "'absent.png': the file cannot be read"},
        BadGltf{"Elsewhere", {{"/images/0/uri", "%2e%2e/a.png"}}, "not a file next to the model"},
        BadGltf{"Remote", {{"/images/0/uri", "http://a/b.png"}}, "not a file next to the model"},
        BadGltf{"NoBase64", {{"/images/0/uri", "data:image/png;base64,???"}}, "invalid Base64"},
        BadGltf{"NoImage", {{"/images/0/uri", "data:image/png;base64,AAAA"}}, "image 0: not a PNG"},
        BadGltf{"NoView",
                {{"/images/0", {{"bufferView", 9}}}},
                "image 0: its index into 'bufferViews' is out of range"},
        BadGltf{"NoSource", {{"/textures/0", json::object()}}, "its index into 'images' is out of range"},
        BadGltf{"NoSampler", {{"/textures/0/sampler", 3}}, "its index into 'samplers' is out of range"},
        BadGltf{"NoTexture", {{"/textures", json::array()}}, "its index into 'textures' is out of range"},
        BadGltf{"NoCoordinates",
                {{"/meshes/0/primitives/0/attributes", {{"POSITION", 0}}}},
                "its index into 'accessors' is out of range"},
        BadGltf{"FewCoordinates", {{"/accessors/1/count", 3}}, "and its positions differ in length"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
