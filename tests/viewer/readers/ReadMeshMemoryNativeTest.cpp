#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>

#include "MeshFormats.h"
#include "MeshNormals.h"
#include "ReadFormats.h"
#include "kit/HeapPeak.h"

/// How much memory the readers take for a scene.

namespace {

using qelview::Scene;

/// Hills of squares, each of two triangles.
struct Hills {
    int columns = 150;
    int rows = 75;
};

double heightAt(int x, int y) {
    return 8.0 * std::sin(x * 0.037) * std::cos(y * 0.029);
}

/// Calls `visit` with x, y and z of each vertex of hills, row by row.
template <class Visit>
void forEachVertex(const Hills& hills, const Visit& visit) {
    for (int y = 0; y <= hills.rows; ++y) {
        for (int x = 0; x <= hills.columns; ++x) {
            visit(x, y, heightAt(x, y));
        }
    }
}

/// Calls `visit` with the vertices of each triangle of hills.
template <class Visit>
void forEachTriangle(const Hills& hills, const Visit& visit) {
    for (int y = 0; y < hills.rows; ++y) {
        for (int x = 0; x < hills.columns; ++x) {
            const int low = y * (hills.columns + 1) + x;
            const int high = low + hills.columns + 1;
            visit(low, low + 1, high + 1);
            visit(low, high + 1, high);
        }
    }
}

std::string vertexCount(const Hills& hills) {
    return std::to_string((hills.columns + 1) * (hills.rows + 1));
}

std::string triangleCount(const Hills& hills) {
    return std::to_string(2 * hills.columns * hills.rows);
}

template <class Value>
void appendValue(std::string& bytes, Value value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string lineOf(double x, double y, double z) {
    return std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(z) + "\n";
}

std::string obj(const Hills& hills) {
    std::string text;
    forEachVertex(hills, [&](int x, int y, double z) { text += "v " + lineOf(x, y, z); });
    forEachTriangle(hills, [&](int a, int b, int c) {
        text +=
            "f " + std::to_string(a + 1) + " " + std::to_string(b + 1) + " " + std::to_string(c + 1) + "\n";
    });
    return text;
}

std::string objWithNormals(const Hills& hills) {
    std::string text;
    forEachVertex(hills,
                  [&](int x, int y, double z) { text += "v " + lineOf(x, y, z) + "vn " + lineOf(0, 0, 1); });
    forEachTriangle(hills, [&](int a, int b, int c) {
        text += "f";
        for (const int corner : {a, b, c}) {
            text += " " + std::to_string(corner + 1) + "//" + std::to_string(corner + 1);
        }
        text += "\n";
    });
    return text;
}

std::string objOfQuads(const Hills& hills) {
    std::string text;
    forEachVertex(hills, [&](int x, int y, double z) { text += "v " + lineOf(x, y, z); });
    for (int low = 1; low < hills.rows * (hills.columns + 1); ++low) {
        if (low % (hills.columns + 1) != 0) {
            const int high = low + hills.columns + 1;
            text += "f " + std::to_string(low) + " " + std::to_string(low + 1) + " " +
                    std::to_string(high + 1) + " " + std::to_string(high) + "\n";
        }
    }
    return text;
}

std::string plyHead(const Hills& hills, const std::string& format) {
    return "ply\nformat " + format + " 1.0\nelement vertex " + vertexCount(hills) +
           "\nproperty float x\nproperty float y\nproperty float z\nelement face " + triangleCount(hills) +
           "\nproperty list uchar int vertex_indices\nend_header\n";
}

std::string plyText(const Hills& hills) {
    std::string text = plyHead(hills, "ascii");
    forEachVertex(hills, [&](int x, int y, double z) { text += lineOf(x, y, z); });
    forEachTriangle(hills, [&](int a, int b, int c) {
        text += "3 " + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) + "\n";
    });
    return text;
}

std::string ply(const Hills& hills) {
    std::string bytes = plyHead(hills, "binary_little_endian");
    forEachVertex(hills, [&](int x, int y, double z) {
        appendValue(bytes, static_cast<float>(x));
        appendValue(bytes, static_cast<float>(y));
        appendValue(bytes, static_cast<float>(z));
    });
    forEachTriangle(hills, [&](std::int32_t a, std::int32_t b, std::int32_t c) {
        appendValue(bytes, std::uint8_t{3});
        appendValue(bytes, a);
        appendValue(bytes, b);
        appendValue(bytes, c);
    });
    return bytes;
}

std::string stl(const Hills& hills) {
    std::string bytes(80, '\0');
    appendValue(bytes, static_cast<std::uint32_t>(2 * hills.columns * hills.rows));
    forEachTriangle(hills, [&](int a, int b, int c) {
        bytes.append(12, '\0');
        for (const int corner : {a, b, c}) {
            const int x = corner % (hills.columns + 1);
            const int y = corner / (hills.columns + 1);
            appendValue(bytes, static_cast<float>(x));
            appendValue(bytes, static_cast<float>(y));
            appendValue(bytes, static_cast<float>(heightAt(x, y)));
        }
        bytes.append(2, '\0');
    });
    return bytes;
}

std::string stlText(const Hills& hills) {
    std::string text = "solid hills\n";
    forEachTriangle(hills, [&](int a, int b, int c) {
        text += "facet normal 0 0 1\nouter loop\n";
        for (const int corner : {a, b, c}) {
            const int x = corner % (hills.columns + 1);
            const int y = corner / (hills.columns + 1);
            text += "vertex " + lineOf(x, y, heightAt(x, y));
        }
        text += "endloop\nendfacet\n";
    });
    return text + "endsolid hills\n";
}

std::string off(const Hills& hills) {
    std::string text = "OFF\n" + vertexCount(hills) + " " + triangleCount(hills) + " 0\n";
    forEachVertex(hills, [&](int x, int y, double z) { text += lineOf(x, y, z); });
    forEachTriangle(hills, [&](int a, int b, int c) {
        text += "3 " + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) + "\n";
    });
    return text;
}

std::string xyz(const Hills& hills) {
    std::string text;
    forEachVertex(hills, [&](int x, int y, double z) { text += lineOf(x, y, z); });
    return text;
}

/// The memory of what a scene shows.
std::size_t sizeOf(const Scene& scene) {
    const auto bytesOf = [](const auto& array) { return array.size() * sizeof(array.front()); };
    std::size_t size = 0;
    for (const qelview::TriangleMesh& mesh : scene.meshes) {
        size +=
            bytesOf(mesh.positions) + bytesOf(mesh.indices) + bytesOf(mesh.normals) + bytesOf(mesh.colors);
    }
    for (const qelview::PointCloud& cloud : scene.clouds) {
        size += bytesOf(cloud.positions) + bytesOf(cloud.colors);
    }
    return size;
}

struct FileOfHills {
    const char* name;
    qel::test::Reader reader;
    std::string (*make)(const Hills&);
};

class ReadMeshMemory : public testing::TestWithParam<std::tuple<FileOfHills, Hills>> {
  protected:
    void SetUp() override {
        if (!qel::test::HeapPeak::canCount()) {
            GTEST_SKIP() << "this build has no address sanitizer, which counts memory";
        }
    }
};

TEST_P(ReadMeshMemory, IsAtMostTwiceThatOfTheScene) {
    const auto& [file, hills] = GetParam();
    const std::string bytes = file.make(hills);
    const qel::test::HeapPeak peak;
    const Scene scene = qel::test::sceneOf(file.reader, bytes);
    const std::size_t reading = peak.bytes();
    const std::size_t size = sizeOf(scene);
    RecordProperty("percent", static_cast<int>(reading * 100 / size));
    ASSERT_EQ(scene.triangleCount() > 0, file.reader != qelview::readPoints);
    EXPECT_LE(reading, 2 * size);
}

// Arrays that grow by doubling overshoot at some sizes.
INSTANTIATE_TEST_SUITE_P(
    Files, ReadMeshMemory,
    testing::Combine(testing::Values(FileOfHills{"Obj", qel::test::kObj, obj},
                                     FileOfHills{"ObjWithNormals", qel::test::kObj, objWithNormals},
                                     FileOfHills{"ObjOfQuads", qel::test::kObj, objOfQuads},
                                     FileOfHills{"Ply", qel::test::kPly, ply},
                                     FileOfHills{"PlyText", qel::test::kPly, plyText},
                                     FileOfHills{"Stl", qel::test::kStl, stl},
                                     FileOfHills{"StlText", qel::test::kStl, stlText},
                                     FileOfHills{"Off", qel::test::kOff, off},
                                     FileOfHills{"Xyz", qelview::readPoints, xyz}),
                     testing::Values(Hills{150, 75}, Hills{200, 100}, Hills{260, 130}, Hills{256, 129})),
    [](const auto& each) {
        return std::get<0>(each.param).name + std::to_string(std::get<1>(each.param).columns);
    });

TEST(MeshNormalsMemory, IsAtMostTwiceThatOfTheSceneWithNormals) {
    if (!qel::test::HeapPeak::canCount()) {
        GTEST_SKIP() << "this build has no address sanitizer, which counts memory";
    }
    Scene scene = qel::test::sceneOf(qel::test::kStl, stl(Hills()));
    const std::size_t before = sizeOf(scene);
    const qel::test::HeapPeak peak;
    qelview::makeNormals(scene.meshes.at(0));
    EXPECT_LE(before + peak.bytes(), 2 * sizeOf(scene));
}

}  // namespace
