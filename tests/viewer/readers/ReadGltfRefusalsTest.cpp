#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GltfSquare.h"

namespace {

using namespace qel::test::gltf;

TEST(ReadGltfRefusals, ReadsTheChunkOfABinaryFile) {
    json inside = square();
    inside["buffers"] = json::parse(R"([{"byteLength": 68}])");
    const std::string file = glb(inside, std::string(68, '\0'));
    EXPECT_EQ(read(file).triangleCount(), 2U);
    EXPECT_EQ(refusal(glb(inside, "short")), "buffer 0: it promises 68 bytes, there are 5");
    std::string longChunk = file;
    longChunk[15] = '\1';
    EXPECT_EQ(refusal(longChunk).substr(0, 24), "first chunk: it promises");
    EXPECT_EQ(refusal(file.substr(0, file.size() - 1)), "header: it promises " + std::to_string(file.size()) +
                                                            " bytes, the file has " +
                                                            std::to_string(file.size() - 1));
}

struct WrongValue {
    const char* name;
    const char* pointer;
    json value;
    const char* refusal;
};

class ReadGltfRefusalsOfValues : public testing::TestWithParam<WrongValue> {};

TEST_P(ReadGltfRefusalsOfValues, IsRefusedAtItsPlace) {
    EXPECT_EQ(refusal(squareWith(GetParam().pointer, GetParam().value).dump()), GetParam().refusal);
}

const std::vector<WrongValue> kWrong{
    {"Asset", "/asset", 5, "file: there is no glTF asset"},
    {"Version", "/asset/version", "1.0", "file: it is not of version 2 of glTF"},
    {"Extension", "/extensionsRequired", json::array({"KHR_draco_mesh_compression"}),
     "file: it needs the extension 'KHR_draco_mesh_compression', which is not read"},
    {"Scene", "/scene", 3, "file: it names one of the scenes that does not exist"},
    {"NodeOfScene", "/scenes/0/nodes", json::array({-1}),
     "scene: it names one of the nodes that does not exist"},
    {"Cycle", "/nodes/0/children", json::array({0}), "node 0: it hangs below more than one other"},
    {"NodeIsNone", "/nodes/0", "node", "scene: it names one of the nodes that does not exist"},
    {"Matrix", "/nodes/0/matrix", json::array({1, 2}), "node 0: its 'matrix' are not 16 numbers"},
    {"Scale", "/nodes/0/scale", "large", "node 0: its 'scale' are not 3 numbers"},
    {"Far", "/nodes/0/translation", json::array({1e300, 0, 0}),
     "mesh 0, vertex 0: a coordinate is beyond 1e15, the largest coordinate that can be drawn"},
    {"Mesh", "/nodes/0/mesh", 1, "node 0: it names one of the meshes that does not exist"},
    {"Primitives", "/meshes/0/primitives", json::array({1}), "mesh 0: its primitives are none"},
    {"NoPositions", "/meshes/0/primitives/0/attributes", json::object(), "mesh 0: it has no positions"},
    {"Mode", "/meshes/0/primitives/0/mode", 7, "mesh 0: its mode is 7, which is none"},
    {"Accessor", "/meshes/0/primitives/0/indices", 7,
     "mesh 0: it names one of the accessors that does not exist"},
    {"WideIndices", "/meshes/0/primitives/0/indices", 0, "mesh 0, accessor 0: its elements have 3 numbers"},
    {"NoVertex", "/accessors/2/bufferView", 1,
     "mesh 0: one of its indices names no vertex: there are 4, counted from 0"},
    {"ShortAttribute", "/meshes/0/primitives/0/attributes", json({{"POSITION", 0}, {"COLOR_0", 3}}),
     "mesh 0: it names one of the accessors that does not exist"},
    {"Material", "/meshes/0/primitives/0/material", "red",
     "mesh 0: it names one of the materials that does not exist"},
    {"NoData", "/accessors/0", json({{"count", 4}, {"type", "VEC3"}}), "mesh 0, accessor 0: it has no data"},
    {"Sparse", "/accessors/0/sparse", json::object(), "mesh 0, accessor 0: sparse numbers are not read"},
    {"Type", "/accessors/0/type", "MAT4",
     "mesh 0, accessor 0: its accessor is of the type 'MAT4', which is not one of vertices"},
    {"Component", "/accessors/0/componentType", 5124,
     "mesh 0, accessor 0: its accessor has components of the type 5124"},
    {"Nothing", "/accessors/0/count", 0, "mesh 0, accessor 0: it has no elements"},
    {"FewPositions", "/accessors/0/count", 3,
     "mesh 0: one of its indices names no vertex: there are 3, counted from 0"},
    {"TooMany", "/accessors/0/count", 5, "mesh 0, accessor 0: it lies beyond the end of its buffer"},
    {"FarTooMany", "/accessors/0/count", 4294967295,
     "mesh 0, accessor 0: it lies beyond the end of its buffer"},
    {"HugeCount", "/accessors/0/count", 4294967296,
     "mesh 0, accessor 0: its 'count' is not a whole number that can be"},
    {"HugeStride", "/bufferViews/0/byteStride", 4294967295,
     "mesh 0, accessor 0: it lies beyond the end of its buffer"},
    {"Offset", "/accessors/0/byteOffset", 1, "mesh 0, accessor 0: it lies beyond the end of its buffer"},
    {"View", "/accessors/0/bufferView", 9,
     "mesh 0, accessor 0: it names one of the bufferViews that does not exist"},
    {"ViewBeyond", "/bufferViews/0/byteOffset", 4294967295,
     "mesh 0, accessor 0: it lies beyond the end of its buffer"},
    {"Buffer", "/bufferViews/0/buffer", 1, "mesh 0, accessor 0: it lies in a buffer that does not exist"},
    {"Promise", "/buffers/0/byteLength", 70, "buffer 0: it promises 70 bytes, there are 68"},
    {"WrongLetter", "/buffers/0/uri", "data:;base64,AA?=", "buffer 0: its data are not Base64 text"},
    {"WrongLength", "/buffers/0/uri", "data:;base64,AAA", "buffer 0: its data are not Base64 text"},
    {"PlainData", "/buffers/0/uri", "data:,AAAA", "buffer 0: its data are not Base64 text"},
    {"Missing", "/buffers/0/uri", "parts/wheel.bin", "buffer 0: the file 'parts/wheel.bin' cannot be read"},
    {"Above", "/buffers/0/uri", "%2e%2E/a.bin", "buffer 0: '../a.bin' is not a file beside this one"},
    {"Elsewhere", "/buffers/0/uri", "C:/a.bin", "buffer 0: 'C:/a.bin' is not a file beside this one"},
    {"OtherMachine", "/buffers/0/uri", "//host/a.bin",
     "buffer 0: '//host/a.bin' is not a file beside this one"},
};
INSTANTIATE_TEST_SUITE_P(In, ReadGltfRefusalsOfValues, testing::ValuesIn(kWrong),
                         [](const auto& each) { return each.param.name; });

TEST(ReadGltfRefusals, RefusesAttributesOfAnotherLength) {
    json colors = square();
    colors["meshes"][0]["primitives"][0]["attributes"]["COLOR_0"] = 1;
    colors["accessors"][1]["count"] = 3;
    EXPECT_EQ(refusal(colors.dump()), "mesh 0: its attribute 'COLOR_0' is not as long as its positions");
}

TEST(ReadGltfRefusals, NamesTheLineAtWhichTheTextIsDamaged) {
    EXPECT_EQ(refusal("{\"asset\": {},\n\"buffers\": ["),
              "line 2: the file ends in the middle of the JSON text");
    EXPECT_EQ(refusal("{\"asset\": 1e999}"), "file: a number is too large");
    EXPECT_EQ(refusal("[1, 2]"), "file: there is no glTF asset");
    EXPECT_EQ(refusal("glTF"),
              "header: a binary glTF file begins with glTF, its version, its length and a first chunk");
    EXPECT_EQ(refusal("glTF2222....aaaaJSON"), "header: it promises 774778414 bytes, the file has 20");
}

TEST(ReadGltfRefusals, RefusesMeshesPlacedTooOften) {
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
    EXPECT_EQ(readMost(15), "mesh 0: with it, the nodes place more than 15 corners");
}

TEST(ReadGltfRefusals, NamesTheSecondChunkThatIsTooLong) {
    std::string file = glb(square(), std::string(8, '\0'));
    file[file.size() - 16] = '\x09';
    EXPECT_EQ(refusal(file), "second chunk: it promises 9 bytes, there are 8");
    EXPECT_EQ(refusal(std::string("glTF\2\0\0\0\x13\0\0\0\0\0\0\0JSO", 19)),
              "header: a binary glTF file begins with glTF, its version, its length and a first chunk");
}

}  // namespace
