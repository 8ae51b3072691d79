#include "Scene.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using qelview::Scene;

/// One part of each kind, around (600000, 850000, 400).
Scene farScene() {
    const qel::XPnt3d base(600000.0, 850000.0, 400.0);
    const auto at = [&base](double x, double y, double z) { return base + qel::XPnt3d(x, y, z); };
    Scene scene;
    qelview::TriangleMesh& mesh = scene.meshes.emplace_back();
    mesh.positions = {at(0, 0, 0), at(1, 0, 0), at(0, 1, 0)};
    mesh.indices = {0, 1, 2};
    scene.clouds.push_back({{at(-2, 0, 0), at(0.001, 0, 0)}, {}, {}, 1.0F, {}});
    scene.polylines.push_back({{{at(0, 0, 0), at(4, 0, 0)}}, {}});
    scene.polygons.push_back({{{at(0, 0, 0), at(0, 6, 0)}, {at(0, -2, 0)}}, {}});
    scene.rings.push_back({{at(0, 0, 5)}, {}});
    scene.curves.push_back({{at(0, 0, -3)}, {}});
    scene.segments.push_back({at(0, 0, 0), at(0, 0, 1), {}});
    scene.balls.push_back({at(5, 0, 0), 1.0, {}});
    scene.points.push_back({at(0, 0, 0)});
    scene.markers.push_back({qelview::MarkerShape::Cross, at(1, 2, 3), at(4, 5, 6), 1.0, {}, {}, 1.0F});
    scene.labels.push_back({at(1, 1, 1), "label"});
    return scene;
}

TEST(Scene, IsEmptyUntilItHasAPosition) {
    Scene scene;
    EXPECT_TRUE(scene.isEmpty());
    scene.labels.push_back({{1.0, 2.0, 3.0}, "a label alone shows nothing"});
    EXPECT_TRUE(scene.isEmpty());
    scene.points.push_back({{1.0, 2.0, 3.0}});
    EXPECT_FALSE(scene.isEmpty());
}

TEST(Scene, BoundsEveryPartAndTheReachOfBalls) {
    const qel::Enve3d box = farScene().bounds();
    EXPECT_EQ(box.xmin, 600000.0 - 2.0);
    EXPECT_EQ(box.xmax, 600000.0 + 6.0);
    EXPECT_EQ(box.ymin, 850000.0 - 2.0);
    EXPECT_EQ(box.ymax, 850000.0 + 6.0);
    EXPECT_EQ(box.zmin, 400.0 - 3.0);
    EXPECT_EQ(box.zmax, 400.0 + 5.0);
}

TEST(Scene, MovesToTheOriginWithoutLosingAMillimetre) {
    Scene scene = farScene();
    scene.moveToOrigin();
    const qel::Enve3d box = scene.bounds();
    EXPECT_EQ(box.MidPoint().x, 0.0);
    EXPECT_EQ(box.MidPoint().y, 0.0);
    EXPECT_EQ(box.MidPoint().z, 0.0);
    EXPECT_EQ(scene.origin.x, 600002.0);
    EXPECT_EQ(scene.origin.y, 850002.0);
    EXPECT_EQ(scene.origin.z, 401.0);
    // Half the spacing of doubles at 600000 is 6e-11.
    EXPECT_NEAR(scene.clouds[0].positions[1].x - scene.meshes[0].positions[0].x, 0.001, 1e-10);
}

TEST(Scene, MovesMarkersAndLabelsWithItsParts) {
    Scene scene = farScene();
    const qel::XPnt3d corner = scene.meshes[0].positions[0];
    scene.moveToOrigin();
    const qel::XPnt3d moved = scene.meshes[0].positions[0];
    EXPECT_EQ(scene.markers[0].at.x - moved.x, 1.0);
    EXPECT_EQ(scene.markers[0].to.z - moved.z, 6.0);
    EXPECT_EQ(scene.labels[0].at.y - moved.y, 1.0);
    EXPECT_EQ(moved.x + scene.origin.x, corner.x);
}

TEST(Scene, OutlinesWhatBoundsIt) {
    const Scene scene = farScene();
    qel::Enve3d box;
    box.setInvalid();
    for (const qel::XPnt3d& point : scene.outline()) {
        box.SetBox(point);
    }
    EXPECT_EQ(box.xmax, scene.bounds().xmax);
    EXPECT_EQ(box.zmin, scene.bounds().zmin);
    EXPECT_EQ(scene.outline().back().x, scene.labels[0].at.x);
}

TEST(Scene, TakesThePartsOfAnotherOver) {
    Scene scene = farScene();
    scene.append(farScene());
    EXPECT_EQ(scene.meshes.size(), 2U);
    EXPECT_EQ(scene.segments.size(), 2U);
    EXPECT_EQ(scene.labels.size(), 2U);
    EXPECT_EQ(scene.triangleCount(), 2U);
    EXPECT_EQ(scene.cloudPointCount(), 4U);
    EXPECT_EQ(scene.lineVertexCount(), 2U * (2 + 3 + 1 + 1));
}

TEST(Scene, TurnsItsPartsSoThatAnotherAxisPointsUp) {
    Scene scene;
    scene.up = qelview::UpAxis::Y;
    qelview::TriangleMesh& mesh = scene.meshes.emplace_back();
    mesh.positions = {{1, 2, 3}};
    mesh.normals = {{0, 1, 0}};
    scene.balls.push_back({{0, 5, 0}, 1.0, {}});
    scene.labels.push_back({{0, 0, 7}, "front"});
    qelview::Marker& marker = scene.markers.emplace_back();
    marker.at.set(0, 1, 0);
    marker.box.setInvalid();
    marker.box.SetBox({0, 0, 0});
    marker.box.SetBox({1, 2, 3});
    scene.turn(qelview::UpAxis::Z);
    EXPECT_EQ(qel::dist(mesh.positions[0], {1, -3, 2}), 0.0);
    EXPECT_EQ(mesh.normals[0].z, 1.0F);
    EXPECT_EQ(scene.balls[0].center.z, 5.0);
    EXPECT_EQ(scene.labels[0].at.y, -7.0);
    EXPECT_EQ(marker.at.z, 1.0);
    EXPECT_EQ(marker.box.ymin, -3.0);
    EXPECT_EQ(marker.box.ymax, 0.0);
    EXPECT_EQ(marker.box.zmax, 2.0);
    scene.turn(qelview::UpAxis::Z);
    EXPECT_EQ(qel::dist(mesh.positions[0], {1, -3, 2}), 0.0);
    scene.turn(qelview::UpAxis::Y);
    EXPECT_EQ(qel::dist(mesh.positions[0], {1, 2, 3}), 0.0);
}

TEST(Scene, StandsUprightWithPartsInWhichAnotherAxisPointsUp) {
    Scene scene = farScene();
    Scene other;
    other.up = qelview::UpAxis::Y;
    other.isUpKnown = true;
    other.points.push_back({{0, 4, 0}});
    other.warnings.emplace_back("odd");
    scene.append(std::move(other));
    EXPECT_EQ(scene.up, qelview::UpAxis::Z);
    EXPECT_TRUE(scene.isUpKnown);
    EXPECT_EQ(scene.points.back().position.z, 4.0);
    EXPECT_EQ(scene.warnings.size(), 1U);
}

}  // namespace
