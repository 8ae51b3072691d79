#include "SampleScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "Contours.h"
#include "Landscape.h"

namespace {

TEST(SampleScene, ShowsEveryKindAtOnce) {
    const qelview::Scene scene = qelview::makeSampleScene();
    EXPECT_FALSE(scene.title.empty());
    EXPECT_FALSE(scene.clouds.empty());
    EXPECT_FALSE(scene.polylines.empty());
    EXPECT_FALSE(scene.polygons.empty());
    EXPECT_FALSE(scene.rings.empty());
    EXPECT_FALSE(scene.curves.empty());
    EXPECT_FALSE(scene.segments.empty());
    EXPECT_FALSE(scene.balls.empty());
    EXPECT_FALSE(scene.points.empty());
    EXPECT_FALSE(scene.labels.empty());
    std::set<qelview::MarkerShape> shapes;
    for (const qelview::Marker& marker : scene.markers) {
        shapes.insert(marker.shape);
    }
    EXPECT_EQ(shapes.size(), 6U);
}

TEST(SampleScene, HasMeshesWithAndWithoutIndicesSmoothAndFaceted) {
    const qelview::Scene scene = qelview::makeSampleScene();
    const auto has = [&scene](const auto& what) {
        return std::any_of(scene.meshes.begin(), scene.meshes.end(), what);
    };
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return mesh.indices.empty(); }));
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return !mesh.indices.empty(); }));
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return mesh.faceted; }));
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return !mesh.faceted; }));
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return mesh.texture != nullptr; }));
    EXPECT_TRUE(has([](const qelview::TriangleMesh& mesh) { return !mesh.colors.empty(); }));
}

TEST(SampleScene, HasAHoleInItsParcel) {
    const qelview::Scene scene = qelview::makeSampleScene();
    ASSERT_EQ(scene.polygons[0].rings.size(), 2U);
    for (const qelview::Points& ring : scene.polygons[0].rings) {
        EXPECT_EQ(qel::dist(ring.front(), ring.back()), 0.0);
    }
}

TEST(SampleScene, HasWholeArrays) {
    const qelview::Scene scene = qelview::makeSampleScene();
    for (const qelview::TriangleMesh& mesh : scene.meshes) {
        EXPECT_EQ(mesh.normals.size(), mesh.positions.size()) << mesh.name;
        const std::size_t coloured = mesh.texture ? mesh.texCoords.size() : mesh.colors.size();
        EXPECT_EQ(coloured, mesh.positions.size()) << mesh.name;
        EXPECT_EQ((mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size()) % 3, 0U) << mesh.name;
        for (const std::uint32_t index : mesh.indices) {
            ASSERT_LT(index, mesh.positions.size()) << mesh.name;
        }
        for (const qel::XPnt3f& normal : mesh.normals) {
            ASSERT_NEAR(qel::XPnt3d(normal).norm(), 1.0, 1e-5) << mesh.name;
        }
    }
    EXPECT_EQ(scene.clouds[0].colors.size(), scene.clouds[0].positions.size());
}

TEST(SampleScene, TurnsItsSurfacesOutwards) {
    for (const qelview::TriangleMesh& mesh : qelview::makeSampleScene().meshes) {
        const auto vertex = [&mesh](std::size_t corner) {
            return mesh.indices.empty() ? corner : std::size_t{mesh.indices[corner]};
        };
        const std::size_t corners = mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size();
        for (std::size_t i = 0; i < corners; i += 3) {
            const qel::XPnt3d plane = qel::cross(mesh.positions[vertex(i)], mesh.positions[vertex(i + 1)],
                                                 mesh.positions[vertex(i + 2)]);
            ASSERT_GE(qel::dot(plane, qel::XPnt3d(mesh.normals[vertex(i)])), 0.0) << mesh.name << i;
        }
    }
}

/// The first marker of a shape.
const qelview::Marker& marker(const qelview::Scene& scene, qelview::MarkerShape shape) {
    const auto found = std::find_if(scene.markers.begin(), scene.markers.end(),
                                    [shape](const qelview::Marker& each) { return each.shape == shape; });
    return scene.markers.at(static_cast<std::size_t>(found - scene.markers.begin()));
}

const qelview::Label& label(const qelview::Scene& scene, const std::string& text) {
    const auto found = std::find_if(scene.labels.begin(), scene.labels.end(),
                                    [&text](const qelview::Label& each) { return each.text == text; });
    return scene.labels.at(static_cast<std::size_t>(found - scene.labels.begin()));
}

TEST(SampleScene, HangsTheKnotInABoxOverTheGround) {
    const qelview::Scene scene = qelview::makeSampleScene();
    const auto knot = std::find_if(scene.meshes.begin(), scene.meshes.end(),
                                   [](const qelview::TriangleMesh& mesh) { return mesh.name == "knot"; });
    ASSERT_NE(knot, scene.meshes.end());
    qel::Enve3d box;
    box.setInvalid();
    for (const qel::XPnt3d& position : knot->positions) {
        box.SetBox(position);
    }
    const qelview::Marker& around = marker(scene, qelview::MarkerShape::Box);
    EXPECT_EQ(around.box.xmin, box.xmin);
    EXPECT_EQ(around.box.ymax, box.ymax);
    EXPECT_EQ(around.box.zmax, box.zmax);
    EXPECT_GT(around.color.b, around.color.r);
    const qelview::Marker& plumb = marker(scene, qelview::MarkerShape::StippledLine);
    EXPECT_EQ(qel::dist(plumb.at, {2.6, -2.4, box.zmin}), 0.0);
    EXPECT_EQ(qel::dist(plumb.to, qelview::onGround(2.6, -2.4)), 0.0);
    EXPECT_EQ(plumb.width, 1.5F);
    EXPECT_TRUE(plumb.color.r == 1.0F && plumb.color.g == 1.0F && plumb.color.b == 1.0F);
    EXPECT_NEAR(qel::dist(label(scene, "Trefoil").at, {2.6, -2.4, box.zmax + 0.2}), 0.0, 1e-12);
}

TEST(SampleScene, HasACompassNextToTheBlock) {
    const qelview::Scene scene = qelview::makeSampleScene();
    const qel::XPnt3d middle(14.2, -7.0, 0.0);
    const qelview::Marker& circle = marker(scene, qelview::MarkerShape::Circle);
    EXPECT_EQ(qel::dist(circle.at, middle), 0.0);
    EXPECT_EQ(circle.size, 1.2);
    EXPECT_EQ(circle.width, 1.5F);
    const qelview::Marker& cross = scene.markers.back();
    EXPECT_EQ(cross.shape, qelview::MarkerShape::DiagonalCross);
    EXPECT_EQ(qel::dist(cross.at, middle), 0.0);
    EXPECT_EQ(cross.size, 0.4);
    const qelview::Segment& needle = scene.segments.back();
    EXPECT_EQ(qel::dist(needle.from, middle), 0.0);
    EXPECT_NEAR(qel::dist(needle.to, {14.2, -5.2, 0.0}), 0.0, 1e-12);
    EXPECT_EQ(needle.style.width, 2.0F);
    EXPECT_EQ(qel::dist(label(scene, "N").at, needle.to), 0.0);
}

TEST(SampleScene, DrawsEveryFifthContourWider) {
    const qelview::Scene scene = qelview::makeSampleScene();
    ASSERT_EQ(scene.polylines.size(), 2U);
    EXPECT_EQ(scene.polylines[0].style.width, 1.0F);
    EXPECT_EQ(scene.polylines[1].style.width, 2.0F);
    EXPECT_LT(scene.polylines[1].style.color.g, scene.polylines[0].style.color.g);
    EXPECT_GT(scene.polylines[0].parts.size(), scene.polylines[1].parts.size());
}

TEST(SampleScene, IsTheSameEachTime) {
    const qelview::Scene one = qelview::makeSampleScene();
    const qelview::Scene other = qelview::makeSampleScene();
    ASSERT_EQ(one.clouds[0].positions.size(), other.clouds[0].positions.size());
    EXPECT_EQ(one.clouds[0].positions.back().x, other.clouds[0].positions.back().x);
}

TEST(SampleSceneContourLines, CloseAroundAHill) {
    qelview::HeightGrid cone;
    cone.columns = 21;
    for (int row = -10; row <= 10; ++row) {
        for (int column = -10; column <= 10; ++column) {
            cone.points.emplace_back(column, row, 10.0 - std::hypot(row, column));
        }
    }
    const auto lines = qelview::contourLines(cone, 5.5);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(qel::dist(lines[0].front(), lines[0].back()), 0.0);
    for (const qel::XPnt3d& point : lines[0]) {
        EXPECT_NEAR(point.z, 5.5, 1e-9);
        EXPECT_NEAR(std::hypot(point.x, point.y), 4.5, 0.2);
    }
}

TEST(SampleSceneContourLines, EndAtTheEdgeOfTheGrid) {
    const qelview::HeightGrid slope{{{0, 0, 0}, {1, 0, 1}, {0, 1, 0}, {1, 1, 1}, {0, 2, 0}, {1, 2, 1}}, 2};
    const auto lines = qelview::contourLines(slope, 0.25);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].size(), 5U);
    EXPECT_EQ(std::min(lines[0].front().y, lines[0].back().y), 0.0);
    EXPECT_EQ(std::max(lines[0].front().y, lines[0].back().y), 2.0);
    EXPECT_TRUE(qelview::contourLines(slope, 7.0).empty());
}

}  // namespace
