#include "ReadFormats.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "GltfSquare.h"
#include "MeshNormals.h"
#include "kit/LongRun.h"
#include "viewer/ViewerData.h"

namespace {

using nlohmann::json;
using qel::test::glb;
using qel::test::gltfRefusal;
using qel::test::readSquare;
using qel::test::square;
using qel::test::squareWith;

TEST(ReadGltf, TurnsEverySecondTriangleOfAStrip) {
    qelview::Scene scene = readSquare(square().dump());
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.triangleCount(), 2U);
    // Both look the same way, so that the square is smooth.
    EXPECT_TRUE(scene.meshes[0].normals.empty());
    qelview::makeNormals(scene.meshes[0]);
    for (const qel::XPnt3f& normal : scene.meshes[0].normals) {
        EXPECT_EQ(normal.z, 1.0F);
    }
}

TEST(ReadGltf, StopsWithinAMeshWhenTheUserGivesUp) {
    qelview::Progress progress;
    progress.cancel();
    // Its mode would be refused after its positions.
    const std::string bytes = squareWith("/meshes/0/primitives/0/mode", 9).dump();
    EXPECT_THROW(static_cast<void>(qelview::readGltf(bytes, "nowhere/model.gltf",
                                                     qelview::ProgressStretch(progress, 0.0, 1.0))),
                 qelview::ReadCancelled);
}

TEST(ReadGltf, TellsHowFarItIsWithinAMesh) {
    qelview::Progress progress;
    // The last index is out of range, so that the load ends there.
    const std::string bytes = squareWith("/accessors/0/count", 3).dump();
    EXPECT_THROW(static_cast<void>(qelview::readGltf(bytes, "nowhere/model.gltf",
                                                     qelview::ProgressStretch(progress, 0.0, 1.0))),
                 qelview::ReadError);
    // Its positions are read, its indices are not.
    EXPECT_EQ(progress.done(), 0.5);
}

TEST(ReadGltf, TurnsFansIntoTriangles) {
    EXPECT_EQ(readSquare(squareWith("/meshes/0/primitives/0/mode", 6).dump()).triangleCount(), 2U);
}

TEST(ReadGltf, LeavesPiecesOfTrianglesOut) {
    EXPECT_EQ(readSquare(squareWith("/meshes/0/primitives/0/mode", 4).dump()).triangleCount(), 1U);
}

TEST(ReadGltf, JoinsLinesStripsAndLoops) {
    const auto parts = [](int mode) {
        const qelview::Scene scene = readSquare(squareWith("/meshes/0/primitives/0/mode", mode).dump());
        std::vector<std::size_t> sizes;
        for (const qelview::Points& part : scene.polylines.at(0).parts) {
            sizes.push_back(part.size());
        }
        return sizes;
    };
    EXPECT_EQ(parts(1), (std::vector<std::size_t>{2, 2}));
    EXPECT_EQ(parts(2), (std::vector<std::size_t>{5}));
    EXPECT_EQ(parts(3), (std::vector<std::size_t>{4}));
}

TEST(ReadGltf, GivesDotsTheirColours) {
    json dots = squareWith("/meshes/0/primitives/0/mode", 0);
    dots["meshes"][0]["primitives"][0]["attributes"]["COLOR_0"] = 1;
    const qelview::Scene scene = readSquare(dots.dump());
    ASSERT_EQ(scene.cloudPointCount(), 4U);
    EXPECT_EQ(scene.clouds[0].colors[1].g, 255);
    EXPECT_EQ(scene.clouds[0].colors[3].r, 51);
}

TEST(ReadGltf, PlacesAMeshByAllNodesAboveIt) {
    json nodes = square();
    nodes["nodes"] = json::parse(R"([{"children": [1], "matrix": [2,0,0,0, 0,2,0,0, 0,0,2,0, 10,20,30,1]},
        {"mesh": 0, "rotation": [0, 0, 0.70710678118654752, 0.70710678118654752], "translation": [1, 0, 0]}])");
    const qel::Enve3d box = readSquare(nodes.dump()).bounds();
    EXPECT_NEAR(box.xmin, 10.0, 1e-12);
    EXPECT_NEAR(box.xmax, 12.0, 1e-12);
    EXPECT_NEAR(box.ymin, 20.0, 1e-12);
    EXPECT_NEAR(box.ymax, 22.0, 1e-12);
    EXPECT_NEAR(box.zmin, 30.0, 1e-12);
}

TEST(ReadGltf, KeepsNormalsAcrossSurfacesOfScaledAndMirroredNodes) {
    json scaled = square();
    // The positions serve as normals too.
    scaled["meshes"][0]["primitives"][0]["attributes"]["NORMAL"] = 0;
    scaled["nodes"][0]["scale"] = {-2, 1, 1};
    const qelview::Scene scene = readSquare(scaled.dump());
    const std::vector<qel::XPnt3f>& normals = scene.meshes.at(0).normals;
    // (1, 1, 0) is divided by the scale: (-0.5, 1, 0).
    EXPECT_NEAR(normals.at(3).x, -0.4472136F, 1e-6F);
    EXPECT_NEAR(normals.at(3).y, 0.8944272F, 1e-6F);
    // A normal of no length gets one.
    EXPECT_EQ(normals.at(0).z, 1.0F);
}

TEST(ReadGltf, TakesColoursOfMaterials) {
    json material = squareWith("/meshes/0/primitives/0/material", 0);
    material["materials"] =
        json::parse(R"([{"pbrMetallicRoughness": {"baseColorFactor": [0.25, 0.5, 2, 1]}}])");
    const qelview::Scene scene = readSquare(material.dump());
    EXPECT_EQ(scene.meshes.at(0).color.r, 0.25F);
    EXPECT_EQ(scene.meshes.at(0).color.b, 1.0F);
    material["materials"][0]["extensions"]["KHR_materials_pbrSpecularGlossiness"]["diffuseFactor"] = {0.75, 0,
                                                                                                      0, 1};
    EXPECT_EQ(readSquare(material.dump()).meshes.at(0).color.r, 0.75F);
}

TEST(ReadGltf, ShowsRootsWhereThereAreNoScenes) {
    json nodes = square();
    nodes.erase("scenes");
    nodes["nodes"] = json::parse(R"([{"mesh": 0}, {"children": [0]}])");
    EXPECT_EQ(readSquare(nodes.dump()).triangleCount(), 2U);
}

TEST(ReadGltf, ReadsBuffersBesideTheFile) {
    const qel::test::TemporaryFile buffer("square with blanks.bin", std::string(68, '\0'));
    std::string name = buffer.path().filename().string();
    for (std::size_t blank = name.find(' '); blank != std::string::npos; blank = name.find(' ')) {
        name.replace(blank, 1, "%20");
    }
    const json beside = squareWith("/buffers/0/uri", name);
    EXPECT_EQ(readSquare(beside.dump(), buffer.path().parent_path() / "model.gltf").triangleCount(), 2U);
}

/// The largest x of three points, of which the first has the bytes for each of its coordinates.
double largestOf(int componentType, bool isNormalized, const std::string& bytes) {
    json points = squareWith("/meshes/0/primitives/0", {{"attributes", {{"POSITION", 0}}}, {"mode", 0}});
    points["accessors"][0] = {{"bufferView", 0},
                              {"componentType", componentType},
                              {"count", 1},
                              {"type", "VEC3"},
                              {"normalized", isNormalized}};
    points["bufferViews"][0]["byteLength"] = 3 * bytes.size();
    const qel::test::TemporaryFile buffer("numbers.bin", bytes + bytes + bytes + std::string(64, '\0'));
    points["buffers"][0] = {{"byteLength", 3 * bytes.size()}, {"uri", buffer.path().filename().string()}};
    return readSquare(points.dump(), buffer.path().parent_path() / "model.gltf").bounds().xmax;
}

TEST(ReadGltf, ReadsNumbersAndSharesOfEveryType) {
    const std::string lowest8("\x80", 1);
    const std::string lowest16("\x00\x80", 2);
    EXPECT_EQ(largestOf(5120, false, lowest8), -128.0);
    EXPECT_EQ(largestOf(5120, true, lowest8), -1.0);
    EXPECT_EQ(largestOf(5121, false, lowest8), 128.0);
    EXPECT_EQ(largestOf(5121, true, "\xFF"), 1.0);
    EXPECT_EQ(largestOf(5122, false, lowest16), -32768.0);
    EXPECT_EQ(largestOf(5122, true, lowest16), -1.0);
    EXPECT_EQ(largestOf(5123, false, lowest16), 32768.0);
    EXPECT_EQ(largestOf(5123, true, "\x33\x33"), 0.2);
    EXPECT_EQ(largestOf(5125, false, std::string("\0\0\0\x80", 4)), 2147483648.0);
    EXPECT_EQ(largestOf(5126, true, std::string("\0\0\x20\xC0", 4)), -2.5);
}

TEST(ReadGltf, ReadsTheChunkOfABinaryFile) {
    json inside = square();
    inside["buffers"] = json::parse(R"([{"byteLength": 68}])");
    const std::string file = glb(inside, std::string(68, '\0'));
    EXPECT_EQ(readSquare(file).triangleCount(), 2U);
    EXPECT_EQ(gltfRefusal(glb(inside, "short")), "buffer 0: it declares 68 bytes, there are 5");
    std::string longChunk = file;
    longChunk[15] = '\1';
    EXPECT_EQ(gltfRefusal(longChunk).substr(0, 24), "first chunk: it declares");
    EXPECT_EQ(gltfRefusal(file.substr(0, file.size() - 1)),
              "header: it declares " + std::to_string(file.size()) + " bytes, the file has " +
                  std::to_string(file.size() - 1));
}

TEST(ReadGltf, StandsAnyDepth) {
    const std::size_t depth = qel::test::shortOrLong(std::size_t{20000}, std::size_t{100000});
    json deep = square();
    deep["nodes"][0]["children"] = {1};
    for (std::size_t i = 1; i < depth; ++i) {
        deep["nodes"].push_back({{"children", {i + 1}}});
    }
    deep["nodes"].push_back({{"mesh", 0}});
    EXPECT_EQ(readSquare(deep.dump()).triangleCount(), 4U);
    const std::string brackets = std::string(depth, '[') + std::string(depth, ']');
    std::string text = square().dump();
    text.insert(1, "\"extras\": " + brackets + ", ");
    EXPECT_EQ(readSquare(text).triangleCount(), 2U);
}

struct WrongValue {
    const char* name;
    const char* pointer;
    json value;
    const char* refusal;
};

class ReadGltfWrong : public testing::TestWithParam<WrongValue> {};

TEST_P(ReadGltfWrong, IsRefusedAtItsPlace) {
    EXPECT_EQ(gltfRefusal(squareWith(GetParam().pointer, GetParam().value).dump()), GetParam().refusal);
}

const std::vector<WrongValue> kWrong{
    {"Asset", "/asset", 5, "file: not a glTF asset"},
    {"Version", "/asset/version", "1.0", "file: only version 2 of glTF is supported"},
    {"Extension", "/extensionsRequired", json::array({"KHR_draco_mesh_compression"}),
     "file: it requires the extension 'KHR_draco_mesh_compression', which is not supported"},
    {"Scene", "/scene", 3, "file: its index into 'scenes' is out of range"},
    {"NodeOfScene", "/scenes/0/nodes", json::array({-1}), "scene: its index into 'nodes' is out of range"},
    {"Cycle", "/nodes/0/children", json::array({0}), "node 0: it has more than one parent"},
    {"NodeIsNone", "/nodes/0", "node", "scene: its index into 'nodes' is out of range"},
    {"Matrix", "/nodes/0/matrix", json::array({1, 2}), "node 0: its 'matrix' are not 16 numbers"},
    {"Scale", "/nodes/0/scale", "large", "node 0: its 'scale' are not 3 numbers"},
    {"Far", "/nodes/0/translation", json::array({1e300, 0, 0}),
     "mesh 0, vertex 0: a coordinate is beyond 1e15, the largest coordinate that can be drawn"},
    {"Mesh", "/nodes/0/mesh", 1, "node 0: its index into 'meshes' is out of range"},
    {"Primitives", "/meshes/0/primitives", json::array({1}), "mesh 0: a primitive is not an object"},
    {"NoPositions", "/meshes/0/primitives/0/attributes", json::object(), "mesh 0: it has no positions"},
    {"Mode", "/meshes/0/primitives/0/mode", 7, "mesh 0: unknown primitive mode 7"},
    {"Accessor", "/meshes/0/primitives/0/indices", 7, "mesh 0: its index into 'accessors' is out of range"},
    {"WideIndices", "/meshes/0/primitives/0/indices", 0,
     "mesh 0, accessor 0: its elements have 3 components"},
    {"NoVertex", "/accessors/2/bufferView", 1,
     "mesh 0: an index is out of range: there are 4 vertices, counted from 0"},
    {"ShortAttribute", "/meshes/0/primitives/0/attributes", json({{"POSITION", 0}, {"COLOR_0", 3}}),
     "mesh 0: its index into 'accessors' is out of range"},
    {"Material", "/meshes/0/primitives/0/material", "red",
     "mesh 0: its index into 'materials' is out of range"},
    {"NoData", "/accessors/0", json({{"count", 4}, {"type", "VEC3"}}), "mesh 0, accessor 0: it has no data"},
    {"Sparse", "/accessors/0/sparse", json::object(),
     "mesh 0, accessor 0: sparse accessors are not supported"},
    {"Type", "/accessors/0/type", "MAT4",
     "mesh 0, accessor 0: its accessor is of the type 'MAT4', which is not one of vertices"},
    {"Component", "/accessors/0/componentType", 5124, "mesh 0, accessor 0: unknown component type 5124"},
    {"Nothing", "/accessors/0/count", 0, "mesh 0, accessor 0: it has no elements"},
    {"FewPositions", "/accessors/0/count", 3,
     "mesh 0: an index is out of range: there are 3 vertices, counted from 0"},
    {"TooMany", "/accessors/0/count", 5, "mesh 0, accessor 0: it extends beyond the end of its buffer"},
    {"FarTooMany", "/accessors/0/count", 4294967295,
     "mesh 0, accessor 0: it extends beyond the end of its buffer"},
    {"HugeCount", "/accessors/0/count", 4294967296, "mesh 0, accessor 0: its 'count' is not a valid integer"},
    {"HugeStride", "/bufferViews/0/byteStride", 4294967295,
     "mesh 0, accessor 0: it extends beyond the end of its buffer"},
    {"Offset", "/accessors/0/byteOffset", 1, "mesh 0, accessor 0: it extends beyond the end of its buffer"},
    {"View", "/accessors/0/bufferView", 9,
     "mesh 0, accessor 0: its index into 'bufferViews' is out of range"},
    {"ViewBeyond", "/bufferViews/0/byteOffset", 4294967295,
     "mesh 0, accessor 0: it extends beyond the end of its buffer"},
    {"Buffer", "/bufferViews/0/buffer", 1, "mesh 0, accessor 0: its buffer does not exist"},
    {"Promise", "/buffers/0/byteLength", 70, "buffer 0: it declares 70 bytes, there are 68"},
    {"WrongLetter", "/buffers/0/uri", "data:;base64,AA?=", "buffer 0: invalid Base64 data"},
    {"WrongLength", "/buffers/0/uri", "data:;base64,AAA", "buffer 0: invalid Base64 data"},
    {"PlainData", "/buffers/0/uri", "data:,AAAA", "buffer 0: invalid Base64 data"},
    {"Missing", "/buffers/0/uri", "parts/wheel.bin", "buffer 0: the file 'parts/wheel.bin' cannot be read"},
    {"Above", "/buffers/0/uri", "%2e%2E/a.bin", "buffer 0: '../a.bin' is not a file next to the model"},
    {"Elsewhere", "/buffers/0/uri", "C:/a.bin", "buffer 0: 'C:/a.bin' is not a file next to the model"},
    {"OtherMachine", "/buffers/0/uri", "//host/a.bin",
     "buffer 0: '//host/a.bin' is not a file next to the model"},
};
INSTANTIATE_TEST_SUITE_P(In, ReadGltfWrong, testing::ValuesIn(kWrong),
                         [](const auto& each) { return each.param.name; });

TEST(ReadGltf, RefusesAttributesOfAnotherLength) {
    json colors = square();
    colors["meshes"][0]["primitives"][0]["attributes"]["COLOR_0"] = 1;
    colors["accessors"][1]["count"] = 3;
    EXPECT_EQ(gltfRefusal(colors.dump()),
              "mesh 0: its attribute 'COLOR_0' and its positions differ in length");
}

TEST(ReadGltf, NamesTheLineAtWhichTheTextIsDamaged) {
    EXPECT_EQ(gltfRefusal("{\"asset\": {},\n\"buffers\": ["),
              "line 2: the file ends in the middle of the JSON text");
    EXPECT_EQ(gltfRefusal("{\"asset\": 1e999}"), "file: a number is too large");
    EXPECT_EQ(gltfRefusal("[1, 2]"), "file: not a glTF asset");
    EXPECT_EQ(gltfRefusal("glTF"), "header: too short for a binary glTF file");
    EXPECT_EQ(gltfRefusal("glTF2222....aaaaJSON"), "header: it declares 774778414 bytes, the file has 20");
}

TEST(ReadGltf, RefusesMeshesPlacedTooOften) {
    json twice = square();
    twice["nodes"].push_back(twice["nodes"][0]);
    twice["scenes"][0]["nodes"].push_back(1);
    qelview::Progress progress;
    const auto readMost = [&](std::uint64_t mostCorners) {
        return qel::test::refusalOf([&] {
            return qelview::readGltf(twice.dump(), "model.gltf", {progress, 0.0, 1.0}, mostCorners);
        });
    };
    // Each has four vertices and four indices.
    EXPECT_EQ(readMost(16), "");
    EXPECT_EQ(readMost(15), "mesh 0: with this mesh, the nodes have more than 15 corners");
}

}  // namespace
