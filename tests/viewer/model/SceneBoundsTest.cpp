#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Scene.h"

namespace {

using qelview::Scene;

/// A scene of one part that reaches from (1, 2, 3) to (5, 8, 13).
struct Part {
    const char* name;
    void (*addTo)(Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high);
};

class SceneOf : public testing::TestWithParam<Part> {
  protected:
    static Scene scene() {
        Scene scene;
        GetParam().addTo(scene, {1, 2, 3}, {5, 8, 13});
        return scene;
    }
};

TEST_P(SceneOf, IsNotEmptyAndReachesItsEnds) {
    EXPECT_FALSE(scene().isEmpty());
    const qel::Enve3d box = scene().bounds();
    EXPECT_EQ(qel::dist({box.xmin, box.ymin, box.zmin}, {1, 2, 3}), 0.0);
    EXPECT_EQ(qel::dist({box.xmax, box.ymax, box.zmax}, {5, 8, 13}), 0.0);
}

TEST_P(SceneOf, IsOutlinedToItsEnds) {
    qel::Enve3d box;
    box.setInvalid();
    for (const qel::XPnt3d& point : scene().outline()) {
        box.SetBox(point);
    }
    EXPECT_EQ(qel::dist({box.xmin, box.ymin, box.zmin}, {1, 2, 3}), 0.0);
    EXPECT_EQ(qel::dist({box.xmax, box.ymax, box.zmax}, {5, 8, 13}), 0.0);
}

TEST_P(SceneOf, MovesWhole) {
    Scene moved = scene();
    moved.moveToOrigin();
    EXPECT_EQ(qel::dist(moved.origin, {3, 5, 8}), 0.0);
    const qel::Enve3d box = moved.bounds();
    EXPECT_EQ(qel::dist({box.xmin, box.ymin, box.zmin}, {-2, -3, -5}), 0.0);
    EXPECT_EQ(qel::dist({box.xmax, box.ymax, box.zmax}, {2, 3, 5}), 0.0);
}

TEST_P(SceneOf, TurnsWholeAndJoinsAnother) {
    Scene turned = scene();
    turned.up = qelview::UpAxis::Y;
    Scene whole;
    whole.append(std::move(turned));
    EXPECT_TRUE(turned.isEmpty());
    const qel::Enve3d box = whole.bounds();
    EXPECT_EQ(qel::dist({box.xmin, box.ymin, box.zmin}, {1, -13, 2}), 0.0);
    EXPECT_EQ(qel::dist({box.xmax, box.ymax, box.zmax}, {5, -3, 8}), 0.0);
}

const std::vector<Part> kParts{
    {"AMesh",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.meshes.emplace_back().positions = {low, high, low};
     }},
    {"ACloud",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.clouds.emplace_back().positions = {high, low};
     }},
    {"APolyline",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.polylines.push_back({{{low, low}, {low, high}}, {}});
     }},
    {"APolygon",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.polygons.push_back({{{low}, {high}}, {}});
     }},
    {"ARing",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.rings.push_back({{low, high}, {}});
     }},
    {"ACurve",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.curves.push_back({{high, low}, {}});
     }},
    {"ASegment",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.segments.push_back({low, high, {}});
     }},
    {"ASegmentBackwards",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.segments.push_back({high, low, {}});
     }},
    {"SinglePoints",
     [](Scene& scene, const qel::XPnt3d& low, const qel::XPnt3d& high) {
         scene.points.push_back({low});
         scene.points.push_back({high});
     }},
};
INSTANTIATE_TEST_SUITE_P(Parts, SceneOf, testing::ValuesIn(kParts),
                         [](const auto& each) { return each.param.name; });

TEST(SceneOfABall, ReachesAsFarAsTheBall) {
    Scene scene;
    scene.balls.push_back({{1, 2, 3}, 0.5, {}});
    EXPECT_FALSE(scene.isEmpty());
    qel::Enve3d outline;
    outline.setInvalid();
    for (const qel::XPnt3d& point : scene.outline()) {
        outline.SetBox(point);
        EXPECT_EQ(qel::dist(point, {1, 2, 3}), 0.5);
    }
    for (const qel::Enve3d& box : {scene.bounds(), outline}) {
        EXPECT_EQ(qel::dist({box.xmin, box.ymin, box.zmin}, {0.5, 1.5, 2.5}), 0.0);
        EXPECT_EQ(qel::dist({box.xmax, box.ymax, box.zmax}, {1.5, 2.5, 3.5}), 0.0);
    }
}

TEST(SceneOfACircle, IsOutlinedInItsPlane) {
    Scene scene;
    qelview::Marker& circle = scene.markers.emplace_back();
    circle.shape = qelview::MarkerShape::Circle;
    circle.at.set(1, 2, 3);
    circle.size = 0.5;
    std::vector<std::string> places;
    for (const qel::XPnt3d& point : scene.outline()) {
        places.push_back(std::to_string(point.x).substr(0, 3) + " " + std::to_string(point.y).substr(0, 3));
        EXPECT_EQ(point.z, 0.0);
    }
    EXPECT_EQ(places, (std::vector<std::string>{"0.5 2.0", "1.0 1.5", "1.5 2.0", "1.0 2.5"}));
    circle.shape = qelview::MarkerShape::Cross;
    EXPECT_TRUE(scene.outline().empty());
}

TEST(SceneCounts, AreThoseOfItsParts) {
    Scene scene;
    scene.meshes.emplace_back().positions.resize(7);
    scene.meshes.emplace_back().indices.resize(9);
    EXPECT_EQ(scene.triangleCount(), 5U);
    scene.clouds.emplace_back().positions.resize(4);
    scene.clouds.emplace_back().positions.resize(5);
    EXPECT_EQ(scene.cloudPointCount(), 9U);
    scene.polylines.push_back({{qelview::Points(2), qelview::Points(3)}, {}});
    scene.polygons.push_back({{qelview::Points(10), qelview::Points(20)}, {}});
    scene.rings.push_back({qelview::Points(100), {}});
    scene.curves.push_back({qelview::Points(200), {}});
    EXPECT_EQ(scene.lineVertexCount(), 335U);
}

}  // namespace
