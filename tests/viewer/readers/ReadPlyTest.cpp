#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "MeshFormats.h"

namespace {

using qel::test::Corners;
using qel::test::expectPoint;
using qel::test::kPly;
using qel::test::refusal;
using qel::test::sceneOf;

/// A binary PLY file of the vertex (1, 0, 0) in doubles and one face.
std::string binaryPly(char index, bool isBigEndian = true) {
    std::string one("\x3F\xF0\0\0\0\0\0\0", 8);
    if (!isBigEndian) {
        std::reverse(one.begin(), one.end());
    }
    return std::string("ply\nformat binary_") + (isBigEndian ? "big" : "little") +
           "_endian 1.0\nelement vertex 1\nproperty double x\nproperty double y\n"
           "property double z\nelement face 1\nproperty list uchar uchar vertex_indices\nend_header\n" +
           one + std::string(16, '\0') + std::string("\x03\0\0", 3) + index;
}

TEST(ReadPly, ReadsBinaryFilesOfBothByteOrders) {
    for (const bool isBigEndian : {true, false}) {
        EXPECT_EQ(sceneOf(kPly, binaryPly('\0', isBigEndian)).meshes.at(0).positions.at(0).x, 1.0);
    }
    EXPECT_EQ(refusal(kPly, binaryPly('\1')), "face 0: vertex 1 does not exist: there are 1, counted from 0");
}

struct Faces {
    const char* name;
    const char* indexType;
    /// Of faces: a count and so many numbers each.
    std::vector<std::vector<std::uint32_t>> faces;
    std::string refusal;
    Corners corners;
};

/// A binary PLY file of five vertices and faces.
std::string binaryFaces(const Faces& faces, bool isBigEndian) {
    const auto word = [isBigEndian](std::uint32_t value) {
        std::string bytes(4, '\0');
        for (std::size_t i = 0; i < 4; ++i) {
            bytes[isBigEndian ? 3 - i : i] = static_cast<char>(value >> (8 * i) & 0xFFU);
        }
        return bytes;
    };
    std::string bytes = std::string("ply\nformat binary_") + (isBigEndian ? "big" : "little") +
                        "_endian 1.0\nelement vertex 5\nproperty int x\nproperty int y\nproperty int z\n"
                        "element face " +
                        std::to_string(faces.faces.size()) + "\nproperty list uchar " + faces.indexType +
                        " vertex_indices\nend_header\n";
    // A pentagon, seen from above.
    for (const std::uint32_t coordinate : {0U, 0U, 0U, 2U, 0U, 0U, 3U, 2U, 0U, 1U, 3U, 0U, 0U, 2U, 0U}) {
        bytes += word(coordinate);
    }
    for (const std::vector<std::uint32_t>& face : faces.faces) {
        bytes += static_cast<char>(face.size());
        for (const std::uint32_t corner : face) {
            bytes += word(corner);
        }
    }
    return bytes;
}

class ReadPlyBinaryFaces : public testing::TestWithParam<Faces> {};

TEST_P(ReadPlyBinaryFaces, AreTrianglesOrSayWhatIsWrong) {
    for (const bool isBigEndian : {true, false}) {
        const std::string bytes = binaryFaces(GetParam(), isBigEndian);
        ASSERT_EQ(refusal(kPly, bytes), GetParam().refusal);
        if (GetParam().refusal.empty()) {
            EXPECT_EQ(sceneOf(kPly, bytes).meshes.at(0).indices, GetParam().corners);
        }
    }
}

const std::vector<Faces> kFaces{
    {"Triangles", "int", {{0, 1, 2}, {0, 2, 3}, {0, 3, 4}}, "", {0, 1, 2, 0, 2, 3, 0, 3, 4}},
    {"TrianglesOfUnsignedNumbers", "uint", {{0, 1, 2}, {4, 3, 2}}, "", {0, 1, 2, 4, 3, 2}},
    {"TrianglesOfFloats", "float", {{0, 0, 0}, {0, 0, 0}}, "", {0, 0, 0, 0, 0, 0}},
    // Larger faces are cut once all are known.
    {"AFaceOfFourAmongTriangles",
     "int",
     {{0, 1, 2}, {0, 1, 2, 3}, {0, 3, 4}},
     "",
     {0, 1, 2, 0, 3, 4, 0, 1, 2, 0, 2, 3}},
    {"AFaceOfTwoAmongTriangles", "int", {{0, 1, 2}, {0, 1}, {0, 3, 4}}, "", {0, 1, 2, 0, 3, 4}},
    {"AnIndexTooHigh",
     "int",
     {{0, 1, 2}, {0, 1, 5}},
     "face 1: vertex 5 does not exist: there are 5, counted from 0",
     {}},
    {"AnIndexBelowZero",
     "int",
     {{0, 1, 2}, {0xFFFFFFFF, 1, 2}},
     "face 1: vertex -1 does not exist: there are 5, counted from 0",
     {}},
    {"TheHighestIndexOfUnsignedNumbers",
     "uint",
     {{0xFFFFFFFF, 1, 2}},
     "face 0: vertex 4294967295 does not exist: there are 5, counted from 0",
     {}},
};
INSTANTIATE_TEST_SUITE_P(Files, ReadPlyBinaryFaces, testing::ValuesIn(kFaces),
                         [](const auto& each) { return each.param.name; });

TEST(ReadPly, LeavesTheChannelsBlackThatItDoesNotHave) {
    const qelview::Scene scene =
        sceneOf(kPly, PLY_HEAD "property uchar green\nend_header\n0 0 0 7\n1 0 0 255\n");
    const std::vector<qel::QelColor3b>& colors = scene.clouds.at(0).colors;
    ASSERT_EQ(colors.size(), 2U);
    EXPECT_EQ(colors[0].r, 0);
    EXPECT_EQ(colors[0].g, 7);
    EXPECT_EQ(colors[1].g, 255);
    EXPECT_EQ(colors[1].b, 0);
}

TEST(ReadPly, NamesTheTriangleAtWhichABinaryFileEnds) {
    const std::string whole = binaryFaces({"", "int", {{0, 1, 2}, {0, 2, 3}, {0, 3, 4}}, "", {}}, true);
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 1)), "face 2: the file ends here");
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 13)), "face 2: the file ends here");
    const qelview::Scene scene = sceneOf(kPly, whole + "!");
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0], "end of file: 1 bytes behind the last element are left out");
}

/// More of them than between two reports of progress.
TEST(ReadPly, ReadsManyTrianglesInTheirOrder) {
    Faces faces{"", "int", {}, "", {}};
    for (std::uint32_t i = 0; i < 150'000; ++i) {
        faces.faces.push_back({i % 5, i / 5 % 5, i / 25 % 5});
        faces.corners.insert(faces.corners.end(), faces.faces.back().begin(), faces.faces.back().end());
    }
    EXPECT_EQ(sceneOf(kPly, binaryFaces(faces, false)).meshes.at(0).indices, faces.corners);
}

TEST(ReadPly, NamesTheInstanceAtWhichABinaryFileEnds) {
    const std::string whole = binaryPly('\0');
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 1)), "face 0: the file ends here");
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 5)), "vertex 0: the file ends here");
}

TEST(ReadPly, WarnsOfBytesBehindTheLastElement) {
    const qelview::Scene scene = sceneOf(kPly, binaryPly('\0') + "!!");
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0], "end of file: 2 bytes behind the last element are left out");
}

TEST(ReadPly, FindsItsPropertiesByTheirNamesInAnyOrder) {
    const qelview::Scene scene =
        sceneOf(kPly,
                "ply\nformat ascii 1.0\nelement other 1\nproperty list uchar int junk\nelement vertex 3\n"
                "property uchar red\nproperty float z\nproperty float y\nproperty float x\nproperty float "
                "nx\nelement face 1\nproperty int tag\nproperty list uchar int vertex_index\nend_header\n"
                "2 7 8\n255 3 2 1 0.5\n51 6 5 4 1e300\n0 9 9 9 0\n9 3 0 1 2\n");
    const qelview::TriangleMesh& mesh = scene.meshes.at(0);
    EXPECT_EQ(mesh.indices, (Corners{0, 1, 2}));
    expectPoint(mesh.positions.at(0), 1, 2, 3);
    expectPoint(mesh.positions.at(1), 4, 5, 6);
    EXPECT_EQ(mesh.normals.at(0).x, 1.0F);
    EXPECT_EQ(mesh.normals.at(1).x, 1.0F);
    EXPECT_EQ(mesh.normals.at(2).z, 1.0F);
    EXPECT_EQ(mesh.colors.at(0).r, 1.0F);
    EXPECT_FLOAT_EQ(mesh.colors.at(1).r, 0.2F);
    EXPECT_EQ(mesh.colors.at(1).g, 0.0F);
}

TEST(ReadPly, MayHaveItsFacesBeforeItsVertices) {
    const qelview::Scene scene =
        sceneOf(kPly, "ply\nformat ascii 1.0\n" PLY_FACE
                      "element vertex 4\nproperty float x\nproperty float y\nproperty float "
                      "z\nend_header\n4 0 1 2 3\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n");
    EXPECT_EQ(scene.triangleCount(), 2U);
}

/// `count` points of the plane in binary: a float and a double and a short, and a byte of a colour.
std::string binaryPoints(std::uint32_t count) {
    std::string bytes = "ply\nformat binary_little_endian 1.0\nelement vertex " + std::to_string(count) +
                        "\nproperty float x\nproperty uchar green\nproperty double y\nproperty short "
                        "z\nend_header\n";
    const auto append = [&bytes](auto value) {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    for (std::uint32_t i = 0; i < count; ++i) {
        append(static_cast<float>(i));
        append(static_cast<std::uint8_t>(i % 256));
        append(static_cast<double>(i) * 0.125);
        append(static_cast<std::int16_t>(-7));
    }
    return bytes;
}

TEST(ReadPly, ReadsManyRecordsOfMixedTypes) {
    constexpr std::uint32_t kCount = 5000;
    const qelview::Scene scene = sceneOf(kPly, binaryPoints(kCount));
    const qelview::PointCloud& cloud = scene.clouds.at(0);
    ASSERT_EQ(cloud.positions.size(), kCount);
    ASSERT_EQ(cloud.colors.size(), kCount);
    for (std::uint32_t i = 0; i < kCount; ++i) {
        expectPoint(cloud.positions[i], i, i * 0.125, -7);
        ASSERT_EQ(cloud.colors[i].g, i % 256);
        ASSERT_EQ(cloud.colors[i].r, 0);
    }
}

TEST(ReadPly, NamesTheRecordThatIsWrongOrMissing) {
    std::string bytes = binaryPoints(3000);
    EXPECT_EQ(refusal(kPly, bytes.substr(0, bytes.size() - 1)), "vertex 2999: the file ends here");
    constexpr std::size_t kRecord = 15;
    const float notFinite = std::numeric_limits<float>::infinity();
    std::memcpy(bytes.data() + bytes.size() - 500 * kRecord, &notFinite, sizeof notFinite);
    EXPECT_EQ(refusal(kPly, bytes), "vertex 2500: the coordinate x is not finite");
}

struct NamedType {
    const char* name;
    /// The value of full red.
    double whole;
};

TEST(ReadPly, KnowsTheNamesOfAllTypes) {
    for (const auto& [name, whole] : std::vector<NamedType>{{"char", 127},
                                                            {"int8", 127},
                                                            {"uchar", 255},
                                                            {"uint8", 255},
                                                            {"short", 32767},
                                                            {"int16", 32767},
                                                            {"ushort", 65535},
                                                            {"uint16", 65535},
                                                            {"int", 2147483647},
                                                            {"int32", 2147483647},
                                                            {"uint", 4294967295},
                                                            {"uint32", 4294967295},
                                                            {"float", 1},
                                                            {"float32", 1},
                                                            {"double", 1},
                                                            {"float64", 1}}) {
        const qelview::Scene scene =
            sceneOf(kPly, std::string(PLY_HEAD "property ") + name + " red\nend_header\n0 0 0 " +
                              std::to_string(whole * 0.6) + "\n1 0 0 0\n");
        EXPECT_EQ(scene.clouds.at(0).colors.at(0).r, 153) << name;
    }
}

TEST(ReadPly, CountsUpToTheLargestNumberOfVertices) {
    const std::string head = "ply\nformat ascii 1.0\nelement vertex ";
    const std::string rest = "\nproperty float x\nproperty float y\nproperty float z\nend_header\n0 0 0\n";
    EXPECT_EQ(refusal(kPly, head + "2147483648" + rest),
              "line 8: the file ends after 1 of 2147483648 instances of element 'vertex'");
    EXPECT_EQ(refusal(kPly, head + "2147483649" + rest),
              "line 3: invalid count '2147483649' of element 'vertex'");
    EXPECT_EQ(refusal(kPly, head + "0" + rest), "line 7: the header declares no vertices");
}

TEST(ReadPly, TakesNoMemoryForWhatTheFileDoesNotHold) {
    const std::string rest =
        " 1.0\nelement vertex 2147483648\nproperty float x\nproperty float y\nproperty float z\nend_header\n";
    EXPECT_EQ(refusal(kPly, "ply\nformat ascii" + rest),
              "line 7: the file ends after 0 of 2147483648 instances of element 'vertex'");
    EXPECT_EQ(refusal(kPly, "ply\nformat binary_little_endian" + rest), "vertex 0: the file ends here");
}

TEST(ReadPly, RefusesStatementsThatAreNotWhole) {
    const std::string head = "ply\nformat ascii 1.0\n";
    EXPECT_EQ(refusal(kPly, head + "element vertex\n"), "line 3: expected 'element NAME COUNT'");
    EXPECT_EQ(refusal(kPly, head + "property float x\n"),
              "line 3: expected 'property TYPE NAME' below an element");
    EXPECT_EQ(refusal(kPly, head + "element vertex 1\nproperty float\n"),
              "line 4: expected 'property TYPE NAME' below an element");
    EXPECT_EQ(refusal(kPly, head + "element face 1\nproperty list float int vertex_indices\n"),
              "line 4: the count of a list must be an integer");
    EXPECT_EQ(refusal(kPly, "ply\nformat binary\n"), "line 2: unknown format");
    EXPECT_EQ(refusal(kPly, "ply\nformat\n"), "line 2: unknown format");
}

TEST(ReadPly, HasNotThousandsOfNames) {
    std::string elements = "ply\nformat ascii 1.0\n";
    std::string properties = elements + "element vertex 1\n";
    for (int i = 0; i <= 1000; ++i) {
        elements += "element e" + std::to_string(i) + " 1\n";
        properties += "property float p" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(refusal(kPly, elements), "line 1003: there are more than 1000 elements or properties");
    EXPECT_EQ(refusal(kPly, properties), "line 1004: there are more than 1000 elements or properties");
}

TEST(ReadPly, TurnsStripsIntoTriangles) {
    const qelview::Scene scene =
        sceneOf(kPly, PLY_HEAD
                "element tristrips 1\nproperty list int int vertex_indices\nend_header\n"
                "0 0 0\n1 0 0\n8 0 1 0 1 -1 1 0 1\n");
    EXPECT_EQ(scene.meshes.at(0).indices, (Corners{0, 1, 0, 0, 1, 1, 1, 0, 1}));
}

TEST(ReadPly, PassesElementsWithoutPropertiesOverHoweverMany) {
    EXPECT_EQ(refusal(kPly,
                      "ply\nformat binary_little_endian 1.0\nelement none 2147483648\nelement vertex 1\n"
                      "property uchar x\nproperty uchar y\nproperty uchar z\nend_header\n123"),
              "");
}

}  // namespace
