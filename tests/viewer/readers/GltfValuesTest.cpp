#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GltfSquare.h"

namespace {

using nlohmann::json;
using qel::test::glb;
using qel::test::gltfRefusal;
using qel::test::readSquare;
using qel::test::square;
using qel::test::squareWith;

TEST(GltfValues, ReadsNumbersThatStandApart) {
    // Two points of three floats in records of 16 bytes, behind 8 bytes of the view and 4 of the accessor.
    std::string bytes(12, '\x7F');
    for (const float value : {1.0F, 2.0F, 3.0F, 9.0F, 4.0F, 5.0F, 6.0F}) {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    json apart = square();
    apart["meshes"][0]["primitives"][0] = {{"attributes", {{"POSITION", 0}}}, {"mode", 0}};
    apart["accessors"][0] = {
        {"bufferView", 0}, {"byteOffset", 4}, {"componentType", 5126}, {"count", 2}, {"type", "VEC3"}};
    apart["bufferViews"][0] = {{"buffer", 0}, {"byteOffset", 8}, {"byteLength", 32}, {"byteStride", 16}};
    apart["buffers"] = json::array({{{"byteLength", bytes.size()}}});
    const qelview::Scene scene = readSquare(glb(apart, bytes));
    ASSERT_EQ(scene.cloudPointCount(), 2U);
    EXPECT_EQ(qel::dist(scene.clouds[0].positions[0], {1, 2, 3}), 0.0);
    EXPECT_EQ(qel::dist(scene.clouds[0].positions[1], {4, 5, 6}), 0.0);
    EXPECT_TRUE(scene.clouds[0].colors.empty());
    // The last one must end within the view, not only begin there.
    apart["bufferViews"][0]["byteLength"] = 31;
    EXPECT_EQ(gltfRefusal(glb(apart, bytes)), "mesh 0, accessor 0: it extends beyond the end of its buffer");
}

TEST(GltfValues, ShowsTheSceneThatTheFileChooses) {
    json scenes = square();
    scenes["nodes"].push_back({{"translation", {100, 0, 0}}, {"mesh", 0}});
    scenes["scenes"].push_back({{"nodes", {1}}});
    EXPECT_EQ(readSquare(scenes.dump()).bounds().xmax, 1.0);
    scenes["scene"] = 1;
    EXPECT_EQ(readSquare(scenes.dump()).bounds().xmin, 100.0);
    scenes.erase("scene");
    EXPECT_EQ(readSquare(scenes.dump()).bounds().xmax, 1.0);
}

TEST(GltfValues, StandsUprightAndIsReadToItsEnd) {
    qelview::Progress progress;
    const qelview::Scene scene = qelview::readGltf(square().dump(), "nowhere/model.gltf",
                                                   qelview::ProgressStretch(progress, 0.0, 1.0));
    EXPECT_EQ(scene.up, qelview::UpAxis::Y);
    EXPECT_TRUE(scene.isUpKnown);
    EXPECT_EQ(progress.done(), 1.0);
    EXPECT_TRUE(scene.warnings.empty());
    EXPECT_EQ(scene.meshes.at(0).color.r, qelview::TriangleMesh().color.r);
}

TEST(GltfValues, ReadsFilesWhoseExtensionsChangeOnlyLooks) {
    for (const char* const name : {"KHR_mesh_quantization", "KHR_materials_unlit", "KHR_texture_transform",
                                   "EXT_texture_webp", "KHR_lights_punctual"}) {
        EXPECT_EQ(gltfRefusal(squareWith("/extensionsRequired", {name}).dump()), "") << name;
    }
    EXPECT_EQ(gltfRefusal(squareWith("/extensionsRequired", {7}).dump()),
              "file: it requires the extension '', which is not supported");
    EXPECT_EQ(gltfRefusal(squareWith("/asset/version", "2.1").dump()), "");
    EXPECT_EQ(gltfRefusal(squareWith("/asset/version", 2).dump()),
              "file: only version 2 of glTF is supported");
}

TEST(GltfValues, TakesTheCornersOfStripsFansAndListsInTheirOrder) {
    const auto corners = [](int mode) {
        return readSquare(squareWith("/meshes/0/primitives/0/mode", mode).dump()).meshes.at(0).indices;
    };
    using Corners = std::vector<std::uint32_t>;
    EXPECT_EQ(corners(4), (Corners{0, 1, 2}));
    EXPECT_EQ(corners(5), (Corners{0, 1, 2, 2, 1, 3}));
    EXPECT_EQ(corners(6), (Corners{0, 1, 2, 0, 2, 3}));
    json without = square();
    without["meshes"][0]["primitives"][0].erase("indices");
    without["meshes"][0]["primitives"][0].erase("mode");
    EXPECT_EQ(readSquare(without.dump()).meshes.at(0).indices, (Corners{0, 1, 2}));
}

TEST(GltfValues, GivesTrianglesTheColoursOfTheirVertices) {
    json colored = square();
    colored["meshes"][0]["primitives"][0]["attributes"]["COLOR_0"] = 1;
    const std::vector<qel::QelColor3f> colors = readSquare(colored.dump()).meshes.at(0).colors;
    // Of the bytes 255 0 0 255, 0 255 0 255, 0 0 255 0 and 51 51 51 0.
    ASSERT_EQ(colors.size(), 4U);
    EXPECT_EQ(colors[0].r, 1.0F);
    EXPECT_EQ(colors[0].g, 0.0F);
    EXPECT_EQ(colors[1].g, 1.0F);
    EXPECT_EQ(colors[2].b, 1.0F);
    EXPECT_EQ(colors[3].b, 0.2F);
}

TEST(GltfValues, NamesTheSecondChunkThatIsTooLong) {
    std::string file = glb(square(), std::string(8, '\0'));
    file[file.size() - 16] = '\x09';
    EXPECT_EQ(gltfRefusal(file), "second chunk: it declares 9 bytes, there are 8");
    EXPECT_EQ(gltfRefusal(std::string("glTF\2\0\0\0\x13\0\0\0\0\0\0\0JSO", 19)),
              "header: too short for a binary glTF file");
}

}  // namespace
