#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "LoadTask.h"
#include "Scene.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::readWhole;
using qel::test::viewerData;

struct Model {
    const char* name;
    const char* file;
    std::size_t triangles;
    std::size_t points;
    qel::Enve3d box;
};

qel::Enve3d boxBetween(const qel::XPnt3d& low, const qel::XPnt3d& high) {
    qel::Enve3d box;
    box.setInvalid();
    box.SetBox(low);
    box.SetBox(high);
    return box;
}

/// Counts and boxes as an independent program measured them.
const std::vector<Model> kModels{
    {"Cow", "meshes/spot_triangulated.obj", 5856, 0,
     boxBetween({-0.471552, -0.736784, -0.668909}, {0.471552, 0.953646, 1.049})},
    {"CowOfQuads", "meshes/spot_quadrangulated.obj", 5856, 0,
     boxBetween({-0.471552, -0.736784, -0.668909}, {0.471552, 0.953646, 1.049})},
    {"CowInColour", "meshes/spot_colour.ply", 5856, 0,
     boxBetween({-0.471552, -0.736784, -0.668909}, {0.471552, 0.953646, 1.049})},
    {"Sword", "meshes/sword-quad-dominant.obj", 44582, 0,
     boxBetween({-0.016222, -0.115518, -0.46854}, {0.018079, 0.118342, 0.447063})},
    {"BinaryStl", "meshes/pr2_sensor_mount.stl", 18320, 0,
     boxBetween({-133.188339, -147.850006, -1.04e-14}, {12.0000019, 147.850006, 155.155197})},
    {"AsciiStl", "meshes/spider_ascii.stl", 1368, 0,
     boxBetween({-3.114895, -4, -1.649329}, {3.114895, 4, 1.649329})},
    {"Spider", "meshes/spider.obj", 1368, 0,
     boxBetween({-92.655235, -42.233826, -106.6912}, {57.936218, 37.503952, 86.6912})},
    {"ConcavePolygon", "meshes/concave_polygon.obj", 64, 0,
     boxBetween({-1.146, 1.6575, 1.6055}, {-1.146, 3.1425, 3.0905})},
    {"Cube", "meshes/cube_with_vertexcolors.obj", 12, 0, boxBetween({0, 0, 0}, {1, 1, 1})},
    {"Terrain", "meshes/terrain_jacksboro.ply", 275772, 0,
     boxBetween({0, 0, 236}, {29966.0488, 31784.666, 1076})},
    {"Lidar", "points/autzen_lidar.xyz", 0, 97437,
     boxBetween({635578.31, 848889.13, 406.36}, {639003.44, 853532.11, 614.57})},
    {"Flight", "lines/flight_utm15n.csv", 0, 14600,
     boxBetween({271423.777, 3289429.72, 514.044959}, {276318.006, 3289511.69, 553.142118})},
};

class ReadModelsEach : public testing::TestWithParam<Model> {};

TEST_P(ReadModelsEach, GivesItsCountsAndItsBox) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const qelview::Scene scene = readWhole(viewerData() / GetParam().file);
    EXPECT_EQ(scene.triangleCount(), GetParam().triangles);
    EXPECT_EQ(scene.cloudPointCount(), GetParam().points);
    const qel::Enve3d box = scene.bounds();
    const qel::Enve3d& expected = GetParam().box;
    // The boxes are known to six digits behind the point of the smallest models, and to nine digits.
    const double tolerance = 1e-6 * std::max(1.0, expected.getDiagonal());
    EXPECT_NEAR(box.xmin, expected.xmin, tolerance);
    EXPECT_NEAR(box.xmax, expected.xmax, tolerance);
    EXPECT_NEAR(box.ymin, expected.ymin, tolerance);
    EXPECT_NEAR(box.ymax, expected.ymax, tolerance);
    EXPECT_NEAR(box.zmin, expected.zmin, tolerance);
    EXPECT_NEAR(box.zmax, expected.zmax, tolerance);
}

TEST_P(ReadModelsEach, GivesWholeMeshesWithUnitNormals) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    for (const qelview::TriangleMesh& mesh : readWhole(viewerData() / GetParam().file).meshes) {
        ASSERT_EQ(mesh.normals.size(), mesh.positions.size());
        EXPECT_TRUE(mesh.colors.empty() || mesh.colors.size() == mesh.positions.size());
        EXPECT_LT(*std::max_element(mesh.indices.begin(), mesh.indices.end()), mesh.positions.size());
        const auto isUnit = [](const qel::XPnt3f& normal) {
            return std::abs(qel::XPnt3d(normal).norm() - 1.0) < 1e-5;
        };
        EXPECT_TRUE(std::all_of(mesh.normals.begin(), mesh.normals.end(), isUnit));
    }
}
INSTANTIATE_TEST_SUITE_P(Models, ReadModelsEach, testing::ValuesIn(kModels),
                         [](const auto& each) { return each.param.name; });

double areaOf(const qelview::TriangleMesh& mesh) {
    double area = 0.0;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        area += 0.5 * qel::cross(mesh.positions[mesh.indices[i]], mesh.positions[mesh.indices[i + 1]],
                                 mesh.positions[mesh.indices[i + 2]])
                          .norm();
    }
    return area;
}

/// Area of the one face of a file of positions in a plane of constant x, by the coordinates of its corners in
/// order.
double areaOfOnlyFace(const std::filesystem::path& obj) {
    std::ifstream stream(obj);
    std::vector<std::pair<double, double>> positions;
    std::vector<std::pair<double, double>> corners;
    std::string line;
    while (std::getline(stream, line)) {
        std::istringstream words(line);
        std::string keyword;
        words >> keyword;
        if (keyword == "v") {
            double x = 0.0;
            auto& [y, z] = positions.emplace_back();
            words >> x >> y >> z;
        } else if (keyword == "f") {
            for (std::string corner; words >> corner;) {
                corners.push_back(positions.at(std::stoul(corner) - 1));
            }
        }
    }
    double twice = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto& [y0, z0] = corners[i];
        const auto& [y1, z1] = corners[(i + 1) % corners.size()];
        twice += y0 * z1 - y1 * z0;
    }
    return std::abs(twice) * 0.5;
}

TEST(ReadModels, FillsAConcavePolygonAndLeavesItsHoleOpen) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const std::filesystem::path file = viewerData() / "meshes/concave_polygon.obj";
    const qelview::Scene scene = readWhole(file);
    ASSERT_EQ(scene.meshes.size(), 1U);
    // Triangles that overlap, lie in the hole or are missing would change the sum of their areas.
    EXPECT_NEAR(areaOf(scene.meshes[0]), areaOfOnlyFace(file), 1e-6);
}

TEST(ReadModels, GivesTheCubeTheColoursOfItsCorners) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const qelview::Scene scene = readWhole(viewerData() / "meshes/cube_with_vertexcolors.obj");
    const qelview::TriangleMesh& cube = scene.meshes.at(0);
    ASSERT_EQ(cube.colors.size(), cube.positions.size());
    std::set<std::tuple<double, double, double, float, float, float>> corners;
    for (std::size_t i = 0; i < cube.positions.size(); ++i) {
        const qel::XPnt3d& at = cube.positions[i];
        corners.emplace(at.x, at.y, at.z, cube.colors[i].r, cube.colors[i].g, cube.colors[i].b);
    }
    EXPECT_EQ(corners.size(), 8U);
}

TEST(ReadModels, GivesTheSpiderTheColoursOfItsMaterials) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const qelview::Scene scene = readWhole(viewerData() / "meshes/spider.obj");
    const bool hasSkin =
        std::any_of(scene.meshes.begin(), scene.meshes.end(), [](const qelview::TriangleMesh& mesh) {
            return std::abs(mesh.color.r - 0.827451F) < 1e-6F && std::abs(mesh.color.g - 0.792157F) < 1e-6F &&
                   std::abs(mesh.color.b - 0.772549F) < 1e-6F;
        });
    EXPECT_TRUE(hasSkin);
}

TEST(ReadModels, DrawsTheFlightAsOneLineThatDoesNotJitter) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    qelview::Progress progress;
    qelview::Stopwatch watch;
    const std::u8string file = (viewerData() / "lines/flight_utm15n.csv").u8string();
    const qelview::Scene scene =
        qelview::loadScene({std::string(file.begin(), file.end())}, qelview::UpAxis::Z, progress, watch);
    ASSERT_EQ(scene.polylines.size(), 1U);
    const qelview::Points& path = scene.polylines[0].parts.at(0);
    ASSERT_EQ(path.size(), 14600U);
    for (std::size_t i = 1; i < path.size(); ++i) {
        // The steps were measured in the file; drawing narrows to single precision.
        const qel::XPnt3f from(path[i - 1]);
        const qel::XPnt3f to(path[i]);
        const double step = qel::dist(qel::XPnt3d(from), qel::XPnt3d(to));
        ASSERT_GT(step, 0.330) << i;
        ASSERT_LT(step, 0.341) << i;
    }
}

TEST(ReadModels, LoadsSeveralFilesAroundOneOrigin) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    qelview::Progress progress;
    qelview::Stopwatch watch;
    const std::string cube = (viewerData() / "meshes/cube_with_vertexcolors.obj").string();
    const qelview::Scene scene = qelview::loadScene({cube, cube}, qelview::UpAxis::Z, progress, watch);
    EXPECT_EQ(scene.triangleCount(), 24U);
    EXPECT_EQ(scene.title, "cube_with_vertexcolors.obj and 1 more");
    EXPECT_EQ(scene.origin.x, 0.5);
    EXPECT_EQ(scene.bounds().xmax, 0.5);
    EXPECT_EQ(progress.done(), 1.0);
}

}  // namespace
