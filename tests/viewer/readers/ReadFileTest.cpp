#include "ReadFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "LoadTask.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::readWhole;
using qel::test::refusalOf;
using qel::test::TemporaryFile;
using qel::test::viewerData;

/// What becomes of each malformed file: how its refusal begins behind the name, or nothing if the sound part
/// of it is shown.
struct BadFile {
    const char* name;
    const char* refusal;
};

const std::vector<BadFile> kBadFiles{
    {"ascii_cut.stl", "line 5: the file ends inside a triangle"},
    {"bad_lines.xyz", "line 2: 2 columns instead of 3"},
    {"count_too_high.stl", "header: it declares 13 triangles, the file has room for 12"},
    {"count_too_low.stl", "header: it declares 2 triangles, the file has room for 12"},
    {"cut.geojson", "line 1: the file ends in the middle of the JSON text"},
    {"degenerate.obj", ""},
    {"empty.obj", "the file is empty"},
    {"hole_outside.geojson", ""},
    {"huge_coords.obj", "line 1: the coordinate '1e300' is beyond 1e15"},
    {"index_out_of_range.ply", "line 18: vertex 8 does not exist"},
    {"index_texcoord.obj", "line 21: texture coordinate 9 does not exist"},
    {"index_too_high.obj", "line 21: vertex 9 does not exist: the file has 8"},
    {"index_too_negative.obj", "line 21: vertex -9 does not exist"},
    {"index_zero.obj", "line 21: vertex 0 does not exist"},
    {"long_line.obj", ""},
    {"nan.stl", "triangle 1: a coordinate is not finite"},
    {"nan_coords.obj", "line 9: the coordinate 'nan' is not finite"},
    {"negative_count.ply", "line 3: invalid count '-8' of element 'vertex'"},
    {"no_end_header.ply", "line 9: '0' is not a statement of a PLY header"},
    {"no_features.geojson", "there is nothing to show"},
    {"not_numbers.obj", "line 1: 'one' is not a number"},
    {"null_geometry.geojson", "there is nothing to show"},
    {"random.bin", "unknown format"},
    {"random.stl", "header: it declares 854055256 triangles"},
    {"self_intersecting.geojson", ""},
    {"short_header.stl", "line 1: "},
    {"short_ring.geojson", "feature 1, ring 1: 3 positions instead of at least 4"},
    {"truncated.obj", ""},
    {"truncated_vertex.obj", "line 8: a vertex has 3 coordinates"},
    {"unclosed_ring.geojson",
     "feature 1, ring 1: the ring is not closed: its last position is not its first"},
    {"unknown_type.ply", "line 5: unknown type 'quaternion'"},
    {"utf16.obj", "line 1: the file is UTF-16 text"},
    {"vertex_count_high.ply", "line 29: the file ends after 20 of 100 instances of element 'vertex'"},
    {"vertex_count_low.ply", "line 15: 3 values where the header declares 2"},
};

class ReadFileBad : public testing::TestWithParam<BadFile> {};

TEST_P(ReadFileBad, EndsInOneLineOrInItsSoundPart) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const std::filesystem::path file = viewerData() / "bad" / GetParam().name;
    qelview::Scene scene;
    const std::string refusal = refusalOf([&] {
        scene = readWhole(file);
        return 0;
    });
    const std::string expected = GetParam().refusal;
    if (expected.empty()) {
        EXPECT_EQ(refusal, "");
        EXPECT_TRUE(std::isfinite(scene.bounds().getDiagonal()));
        EXPECT_FALSE(scene.isEmpty());
        return;
    }
    EXPECT_NE(refusal.find(std::string(GetParam().name) + ": " + expected), std::string::npos) << refusal;
    EXPECT_EQ(refusal.find_first_of("\r\n"), std::string::npos);
    EXPECT_TRUE(scene.isEmpty());
}
INSTANTIATE_TEST_SUITE_P(Files, ReadFileBad, testing::ValuesIn(kBadFiles), [](const auto& each) {
    std::string name = each.param.name;
    for (char& character : name) {
        character = character == '.' ? '_' : character;
    }
    return name;
});

TEST(ReadFile, IsTriedOnEveryMalformedFile) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    std::set<std::string> listed;
    for (const BadFile& file : kBadFiles) {
        listed.insert(file.name);
    }
    std::set<std::string> present;
    for (const auto& entry : std::filesystem::directory_iterator(viewerData() / "bad")) {
        present.insert(entry.path().filename().string());
    }
    EXPECT_EQ(present, listed);
}

TEST(ReadFile, SaysThatAFileIsMissing) {
    EXPECT_EQ(refusalOf([] { return readWhole("absent.obj"); }), "absent.obj: the file does not exist");
}

TEST(ReadFile, NamesTheFileInItsWarnings) {
    const TemporaryFile file(
        "face.ply",
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
        "property float z\nelement face 2\nproperty list uchar int vertex_indices\nend_header\n"
        "0 0 0\n1 0 0\n0 1 0\n0\n3 0 1 2\n");
    const qelview::Scene scene = readWhole(file.path());
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0],
              "qelview-test-face.ply: line 13: a face of fewer than 3 vertices is left out");
}

TEST(ReadFile, KnowsFormatsByExtensionInAnyCase) {
    const TemporaryFile file("points.XYZ", "1 2 3\n");
    EXPECT_EQ(readWhole(file.path()).cloudPointCount(), 1U);
    EXPECT_NE(refusalOf([] { return readWhole("model.dwg"); }).find("unknown format"), std::string::npos);
}

TEST(ReadFile, TriangulatesPolygonsOfObjAndKeepsTheirNormalsAndColours) {
    const TemporaryFile file("quad.obj",
                             "v 0 0 0 1 0 0\nv 2 0 0 0 1 0\nv 2 2 0 0 0 1\nv 0 2 0 1 1 1\nvn 0 0 1\n"
                             "f 1//1 2//1 3//1 4//1\n");
    const qelview::Scene scene = readWhole(file.path());
    ASSERT_EQ(scene.meshes.size(), 1U);
    EXPECT_EQ(scene.triangleCount(), 2U);
    const qelview::TriangleMesh& mesh = scene.meshes[0];
    ASSERT_EQ(mesh.normals.size(), mesh.positions.size());
    ASSERT_EQ(mesh.colors.size(), mesh.positions.size());
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        EXPECT_EQ(mesh.normals[i].z, 1.0F);
        const bool isSecond = mesh.positions[i].x == 2.0 && mesh.positions[i].y == 0.0;
        EXPECT_EQ(mesh.colors[i].g == 1.0F && mesh.colors[i].r == 0.0F, isSecond);
    }
}

TEST(ReadFile, MakesNormalsWhereAFileHasNone) {
    const TemporaryFile file("plain.obj", "v 0 0 0\nv 2 0 0\nv 0 2 0\nf 3 2 1\n");
    const qelview::TriangleMesh mesh = readWhole(file.path()).meshes.at(0);
    ASSERT_EQ(mesh.normals.size(), 3U);
    EXPECT_EQ(mesh.normals[2].z, -1.0F);
}

TEST(ReadFile, ShowsLinesAndPointsOfObj) {
    const TemporaryFile file("lines.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nl 1 2 3\n");
    const qelview::Scene scene = readWhole(file.path());
    ASSERT_EQ(scene.polylines.size(), 1U);
    EXPECT_EQ(scene.lineVertexCount(), 3U);
}

TEST(ReadFile, ShowsVerticesWithoutFacesAsACloud) {
    const TemporaryFile ply(
        "cloud.ply",
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty double x\nproperty double y\n"
        "property double z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
        "end_header\n0 0 0 255 0 0\n1 0 0 0 255 0\n0 1 0 0 0 255\n");
    const qelview::Scene scene = readWhole(ply.path());
    EXPECT_EQ(scene.cloudPointCount(), 3U);
    ASSERT_EQ(scene.clouds[0].colors.size(), 3U);
    EXPECT_EQ(scene.clouds[0].colors[1].g, 255);
    const TemporaryFile obj("cloud.obj", "v 0 0 0\nv 1 2 3\n");
    EXPECT_EQ(readWhole(obj.path()).cloudPointCount(), 2U);
}

TEST(ReadFile, ReadsLineEndsOfWindows) {
    const TemporaryFile ply(
        "crlf.ply",
        "ply\r\nformat ascii 1.0\r\nelement vertex 3\r\nproperty float x\r\nproperty float y\r\n"
        "property float z\r\nelement face 1\r\nproperty list uchar int vertex_indices\r\n"
        "end_header\r\n0 0 0\r\n4 0 0\r\n0 4 0\r\n3 0 1 2\r\n");
    const qelview::Scene scene = readWhole(ply.path());
    EXPECT_EQ(scene.triangleCount(), 1U);
    EXPECT_EQ(scene.bounds().xmax, 4.0);
}

/// The colour of a triangle in a PLY file that has an element more, and the lines of its instances.
qel::QelColor3f colorOfPly(const std::string& element, const std::string& instances) {
    const TemporaryFile ply(
        "material.ply",
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
        "element face 1\nproperty list uchar int vertex_indices\n" +
            element + "end_header\n0 0 0\n4 0 0\n0 4 0\n3 0 1 2\n" + instances);
    return readWhole(ply.path()).meshes.at(0).color;
}

TEST(ReadFile, GivesPlyWithoutColoursThatOfItsFirstMaterialOrTheViewersOwn) {
    const qel::QelColor3f material = colorOfPly(
        "element material 2\nproperty uchar diffuse_blue\nproperty float diffuse_red\nproperty uchar "
        "ambient_red\n",
        "51 0.25 9\n0 1 9\n");
    EXPECT_EQ(material.r, 0.25F);
    EXPECT_EQ(material.g, 0.0F);
    EXPECT_FLOAT_EQ(material.b, 0.2F);
    const qel::QelColor3f own = colorOfPly("", "");
    EXPECT_EQ(own.r, qelview::TriangleMesh().color.r);
    EXPECT_EQ(own.b, qelview::TriangleMesh().color.b);
}

TEST(ReadFile, ReadsOffWithColoursOfBytes) {
    const TemporaryFile off("triangle.off",
                            "COFF\n3 1 0\n0 0 0 255 0 0 255\n1 0 0 0 255 0 255\n0 1 0 0 0 51 255\n3 0 1 2\n");
    const qelview::Scene scene = readWhole(off.path());
    ASSERT_EQ(scene.triangleCount(), 1U);
    ASSERT_EQ(scene.meshes[0].colors.size(), 3U);
    EXPECT_EQ(scene.meshes[0].colors[0].r, 1.0F);
    EXPECT_NEAR(scene.meshes[0].colors[2].b, 0.2F, 1e-6F);
}

TEST(ReadFile, GivesTrianglesOfBinaryStlTheirColours) {
    std::string bytes(84 + 2 * 50, '\0');
    bytes[80] = 2;
    const auto put = [&bytes](std::size_t place, float value) {
        std::memcpy(bytes.data() + place, &value, sizeof value);
    };
    // Twice (0,0,0) (1,0,0) (0,1,0), the second one a unit higher; the colours stand in five bits a channel.
    for (const std::size_t record : {84U, 134U}) {
        put(record + 12 + 12, 1.0F);
        put(record + 12 + 28, 1.0F);
        for (const std::size_t z : {8U, 20U, 32U}) {
            put(record + 12 + z, record == 84 ? 0.0F : 1.0F);
        }
    }
    const std::uint16_t red = 0x8000U | 31U << 10U;
    std::memcpy(bytes.data() + 84 + 48, &red, sizeof red);
    const TemporaryFile stl("coloured.stl", bytes);
    const qelview::Scene scene = readWhole(stl.path());
    ASSERT_EQ(scene.triangleCount(), 2U);
    const qelview::TriangleMesh& mesh = scene.meshes[0];
    ASSERT_EQ(mesh.colors.size(), mesh.positions.size());
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        EXPECT_EQ(mesh.colors[i].r, mesh.positions[i].z == 0.0 ? 1.0F : mesh.color.r);
        EXPECT_EQ(mesh.colors[i].b, mesh.positions[i].z == 0.0 ? 0.0F : mesh.color.b);
    }
}

/// A triangle in a buffer inside the file, moved by its node.
std::string gltf(const char* lastIndex) {
    // Three floats each of (0,0,0) (1,0,0) (0,1,0), then three bytes of indices.
    return std::string(R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],
        "nodes":[{"mesh":0,"translation":[10,20,30]}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}],
        "buffers":[{"byteLength":39,"uri":"data:application/octet-stream;base64,)") +
           "AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAAAAE" + lastIndex +
           R"("}],"bufferViews":[{"buffer":0,"byteLength":36},{"buffer":0,"byteOffset":36,"byteLength":3}],
        "accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3","min":[0,0,0],"max":[1,1,0]},
        {"bufferView":1,"componentType":5121,"count":3,"type":"SCALAR"}]})";
}

TEST(ReadFile, PlacesMeshesOfGltfByTheirNodes) {
    const TemporaryFile file("triangle.gltf", gltf("C"));
    const qelview::Scene scene = readWhole(file.path());
    EXPECT_EQ(scene.triangleCount(), 1U);
    EXPECT_EQ(scene.bounds().xmin, 10.0);
    EXPECT_EQ(scene.bounds().xmax, 11.0);
    EXPECT_EQ(scene.bounds().ymax, 21.0);
    EXPECT_EQ(scene.bounds().zmin, 30.0);
    EXPECT_EQ(scene.up, qelview::UpAxis::Y);
    EXPECT_TRUE(scene.isUpKnown);
}

TEST(ReadFile, RefusesGltfWithAVertexThatDoesNotExist) {
    const TemporaryFile file("wrong.gltf", gltf("H"));
    EXPECT_NE(refusalOf([&] { return readWhole(file.path()); }), "");
}

TEST(ReadFile, KeepsMillimetresOfMeshesFarFromTheOrigin) {
    const TemporaryFile file("far.obj",
                             "v 635578.001 848889.002 406.003\nv 635578.002 848889.002 406.003\n"
                             "v 635578.001 848889.003 406.003\nf 1 2 3\n");
    qelview::Progress progress;
    qelview::Stopwatch watch;
    const qelview::Scene scene =
        qelview::loadScene({file.path().string()}, qelview::UpAxis::Z, progress, watch);
    const qelview::Points& points = scene.meshes.at(0).positions;
    ASSERT_EQ(points.size(), 3U);
    EXPECT_NEAR(points[1].x - points[0].x, 0.001, 1e-9);
    EXPECT_NEAR(points[2].y - points[0].y, 0.001, 1e-9);
}

TEST(ReadFileLoadScene, TakesTheGivenAxisWhereTheFormatDoesNotSay) {
    const TemporaryFile points("points.xyz", "1 2 3\n4 5 6\n");
    const TemporaryFile triangle("up.gltf", gltf("C"));
    qelview::Progress progress;
    qelview::Stopwatch watch;
    const auto load = [&](const std::vector<std::string>& files, qelview::UpAxis up) {
        return qelview::loadScene(files, up, progress, watch);
    };
    const std::string unsaid = points.path().string();
    const std::string said = triangle.path().string();
    EXPECT_EQ(load({unsaid}, qelview::UpAxis::Y).up, qelview::UpAxis::Y);
    EXPECT_EQ(load({unsaid}, qelview::UpAxis::Z).up, qelview::UpAxis::Z);
    EXPECT_EQ(load({said}, qelview::UpAxis::Z).up, qelview::UpAxis::Y);
    // The first file decides, and the others are turned.
    const qelview::Scene both = load({said, unsaid}, qelview::UpAxis::Z);
    EXPECT_EQ(both.up, qelview::UpAxis::Y);
    EXPECT_EQ(both.clouds.at(0).positions.at(0).y + both.origin.y, 3.0);
    EXPECT_EQ(both.clouds[0].positions[0].z + both.origin.z, -2.0);
}

}  // namespace
