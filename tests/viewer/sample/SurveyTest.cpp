#include "Survey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "Landscape.h"

namespace {

using qelview::Points;
using qelview::Scene;

/// Of a point over the ground of the landscape.
double heightOver(const qel::XPnt3d& point) {
    return point.z - qelview::groundHeight(point.x, point.y);
}

TEST(Survey, ScansTreesOfALittleWood) {
    Scene scene;
    qelview::addScannedWood(scene);
    ASSERT_EQ(scene.clouds.size(), 1U);
    const Points& points = scene.clouds[0].positions;
    ASSERT_EQ(points.size(), 14U * 1500U);
    ASSERT_EQ(scene.clouds[0].colors.size(), points.size());
    // Of the first tree, which is 1.9 high from 0.25 above its foot on.
    const qel::XPnt3d foot = qelview::onGround(-10.4, -2.2, 0.25);
    double sum = 0.0;
    double lowest = 1.0;
    double highest = 0.0;
    for (std::size_t i = 0; i < 1500; ++i) {
        const double up = (points[i].z - foot.z) / 1.9;
        const double reach = std::hypot(points[i].x - foot.x, points[i].y - foot.y);
        ASSERT_LE(reach, 0.30 * 1.9 * (1.0 - up) + 1e-9);
        ASSERT_GE(reach, 0.30 * 1.9 * (1.0 - up) * 0.7 * 0.82 - 1e-9);
        lowest = std::min(lowest, up);
        highest = std::max(highest, up);
        sum += up;
        // Green, and the lighter the higher.
        const qel::QelColor3b& color = scene.clouds[0].colors[i];
        ASSERT_NEAR(color.g, 215.0 * (0.55 + 0.45 * up), 215.0 * 0.075 + 1.0);
        ASSERT_NEAR(color.r, color.g * 120.0 / 215.0, 1.0);
        ASSERT_NEAR(color.b, color.g * 130.0 / 215.0, 1.0);
    }
    EXPECT_GE(lowest, 0.0);
    EXPECT_LE(highest, 1.0);
    EXPECT_GT(highest, 0.9);
    // A cone has a third of its surface's height below the middle of its points; 0.006 is one deviation.
    EXPECT_NEAR(sum / 1500.0, 1.0 / 3.0, 0.03);
}

struct Tree {
    double x;
    double y;
    double height;
};

TEST(Survey, HasTreesOfDifferentHeightsInTheirPlaces) {
    constexpr std::array<Tree, 14> kTrees{{
        {-10.4, -2.2, 1.9},
        {-9.3, -1.2, 2.3},
        {-8.2, -2.4, 2.0},
        {-9.6, -3.4, 2.5},
        {-8.4, -4.2, 2.2},
        {-7.2, -3.2, 2.6},
        {-7.0, -5.0, 1.9},
        {-9.8, -5.2, 2.1},
        {-8.6, -6.2, 2.4},
        {-10.6, -6.6, 2.0},
        {-7.4, -7.0, 2.2},
        {-6.0, -6.2, 2.4},
        {-9.4, -7.8, 1.8},
        {-5.8, -4.2, 2.0},
    }};
    Scene scene;
    qelview::addScannedWood(scene);
    const Points& points = scene.clouds.at(0).positions;
    ASSERT_EQ(points.size(), kTrees.size() * 1500);
    for (std::size_t tree = 0; tree < kTrees.size(); ++tree) {
        const auto& [x, y, height] = kTrees.at(tree);
        qel::XPnt3d sum;
        double top = 0.0;
        for (std::size_t i = tree * 1500; i < (tree + 1) * 1500; ++i) {
            sum += points[i];
            top = std::max(top, points[i].z);
        }
        // 1500 points within a cone: their mean misses its axis by a hundredth, the highest its tip by more.
        EXPECT_NEAR(sum.x / 1500.0, x, 0.05) << tree;
        EXPECT_NEAR(sum.y / 1500.0, y, 0.05) << tree;
        EXPECT_NEAR(top, qelview::onGround(x, y, 0.25).z + height, 0.15 * height) << tree;
    }
}

struct Style {
    const char* name;
    qelview::LineStyle shown;
    qelview::LineStyle expected;
};

TEST(Survey, DrawsEachOfItsPartsInAColourOfItsOwn) {
    Scene scene;
    qelview::addOutlines(scene);
    qelview::addStations(scene);
    for (const auto& [name, shown, expected] :
         {Style{"parcel", scene.polygons.at(0).style, {{250, 176, 84}, 2.5F}},
          Style{"shore", scene.rings.at(0).style, {{120, 205, 255}, 3.0F}},
          Style{"flight", scene.curves.at(0).style, {{236, 130, 200}, 2.0F}},
          Style{"line of sight", scene.segments.at(5).style, {{250, 226, 120}, 1.5F}},
          Style{"station", scene.balls.at(0).style, {{250, 240, 210}, 1.0F}},
          Style{"mast", scene.segments.at(0).style, {{250, 240, 210}, 1.0F}}}) {
        EXPECT_EQ(shown.color.r, expected.color.r) << name;
        EXPECT_EQ(shown.color.g, expected.color.g) << name;
        EXPECT_EQ(shown.color.b, expected.color.b) << name;
        EXPECT_EQ(shown.width, expected.width) << name;
    }
}

TEST(Survey, MarksHeadAndFootOfItsStationsInRed) {
    using qelview::MarkerShape;
    Scene scene;
    qelview::addStations(scene);
    struct Mark {
        MarkerShape shape;
        double height;
        double size;
        float width;
    };
    constexpr std::array<Mark, 3> kMarks{{{MarkerShape::Cross, 1.1, 0.16, 2.0F},
                                          {MarkerShape::DiagonalCross, 0.03, 0.5, 2.0F},
                                          {MarkerShape::Square, 0.12, 0.55, 1.5F}}};
    constexpr std::array<std::array<double, 2>, 3> kStationPlaces{{{-6.0, 3.6}, {6.4, 5.0}, {8.6, -5.6}}};
    ASSERT_EQ(scene.markers.size(), 9U);
    for (std::size_t i = 0; i < scene.markers.size(); ++i) {
        const qelview::Marker& marker = scene.markers[i];
        const Mark& expected = kMarks.at(i % 3);
        EXPECT_EQ(marker.shape, expected.shape) << i;
        EXPECT_EQ(marker.at.x, kStationPlaces.at(i / 3)[0]) << i;
        EXPECT_EQ(marker.at.y, kStationPlaces.at(i / 3)[1]) << i;
        EXPECT_NEAR(heightOver(marker.at), expected.height, 1e-12) << i;
        EXPECT_EQ(marker.size, expected.size) << i;
        EXPECT_EQ(marker.width, expected.width) << i;
        EXPECT_TRUE(marker.color.r == 1.0F && marker.color.g == 0.35F && marker.color.b == 0.30F) << i;
    }
}

TEST(Survey, DrapesItsLinesOverTheGround) {
    Scene scene;
    qelview::addOutlines(scene);
    ASSERT_EQ(scene.polygons.size(), 1U);
    const std::vector<Points>& rings = scene.polygons[0].rings;
    ASSERT_EQ(rings.size(), 2U);
    EXPECT_EQ(rings[0].size(), 5U * 14U + 1U);
    EXPECT_EQ(rings[1].size(), 4U * 14U + 1U);
    for (const Points& ring : rings) {
        EXPECT_EQ(qel::dist(ring.front(), ring.back()), 0.0);
        for (const qel::XPnt3d& point : ring) {
            ASSERT_NEAR(heightOver(point), 0.03, 1e-12);
        }
    }
    constexpr std::array<std::array<double, 2>, 9> kCorners{{{4.4, 0.6},
                                                             {10.2, 1.4},
                                                             {10.6, 7.4},
                                                             {5.2, 8.0},
                                                             {3.6, 4.6},
                                                             {6.6, 3.2},
                                                             {8.4, 3.6},
                                                             {8.0, 5.6},
                                                             {6.2, 5.2}}};
    for (std::size_t i = 0; i < kCorners.size(); ++i) {
        const qel::XPnt3d& corner = i < 5 ? rings[0].at(14 * i) : rings[1].at(14 * (i - 5));
        EXPECT_NEAR(corner.x, kCorners.at(i)[0], 1e-12) << i;
        EXPECT_NEAR(corner.y, kCorners.at(i)[1], 1e-12) << i;
    }
    // Half of the way along the first edge.
    EXPECT_NEAR(rings[0][7].x, 7.3, 1e-12);
    EXPECT_NEAR(rings[0][7].y, 1.0, 1e-12);
    ASSERT_EQ(scene.points.size(), 9U);
    EXPECT_EQ(scene.points[0].position.x, rings[0].front().x);
    EXPECT_EQ(scene.points[5].position.y, rings[1].front().y);
    EXPECT_NEAR(heightOver(scene.points[8].position), 0.06, 1e-12);
}

TEST(Survey, FollowsTheShoreOfThePond) {
    Scene scene;
    qelview::addOutlines(scene);
    ASSERT_EQ(scene.rings.size(), 1U);
    const Points& shore = scene.rings[0].points;
    ASSERT_EQ(shore.size(), 72U);
    double sum = 0.0;
    for (const qel::XPnt3d& point : shore) {
        const double reach = std::hypot((point.x - 2.6) / 1.25, point.y + 2.4);
        ASSERT_NEAR(reach, 1.55, 0.32);
        ASSERT_NEAR(heightOver(point), 0.03, 1e-12);
        sum += reach;
    }
    // The waves of the shore cancel each other out.
    EXPECT_NEAR(sum / 72.0, 1.55, 1e-9);
    EXPECT_NEAR(shore[0].x, 2.6 + 1.25 * (1.65 + 0.22 * std::sin(0.6)), 1e-12);
    EXPECT_NEAR(shore[18].y, -2.4 + 1.55 - 0.22 * std::sin(0.6), 1e-9);
    EXPECT_EQ(scene.labels.at(0).text, "Pond");
    EXPECT_NEAR(heightOver(scene.labels[0].at), 0.1, 1e-12);
}

TEST(Survey, FliesANarrowingSpiral) {
    Scene scene;
    qelview::addOutlines(scene);
    ASSERT_EQ(scene.curves.size(), 1U);
    const Points& flight = scene.curves[0].points;
    ASSERT_EQ(flight.size(), 131U);
    for (std::size_t i = 0; i < flight.size(); ++i) {
        const double share = static_cast<double>(i) / 130.0;
        const double x = (flight[i].x + 6.0) / (3.4 - 1.6 * share);
        const double y = (flight[i].y - 3.6) / (3.0 - 1.4 * share);
        ASSERT_NEAR(x * x + y * y, 1.0, 1e-12) << i;
        ASSERT_NEAR(flight[i].z, 4.0 + 2.6 * share, 1e-12) << i;
    }
    // It begins a tenth of a turn from the right, and ends two and a quarter later.
    constexpr double kTenth = 0.6283185307179586;
    EXPECT_NEAR(std::atan2((flight[0].y - 3.6) / 3.0, (flight[0].x + 6.0) / 3.4), kTenth, 1e-12);
    EXPECT_NEAR((flight[130].y - 3.6) / 1.6, std::cos(kTenth), 1e-9);
    EXPECT_EQ(scene.labels.at(1).text, "Flight");
    EXPECT_EQ(qel::dist(scene.labels[1].at, flight.back()), 0.0);
}

TEST(Survey, JoinsItsStationsByLinesOfSight) {
    Scene scene;
    qelview::addStations(scene);
    ASSERT_EQ(scene.balls.size(), 3U);
    ASSERT_EQ(scene.segments.size(), 6U);
    ASSERT_EQ(scene.markers.size(), 9U);
    ASSERT_EQ(scene.labels.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        const qel::XPnt3d& head = scene.balls[i].center;
        EXPECT_NEAR(heightOver(head), 1.1, 1e-12);
        EXPECT_NEAR(heightOver(scene.segments[i].from), 0.03, 1e-12);
        EXPECT_EQ(qel::dist(scene.segments[i].to, head), 0.0);
        EXPECT_EQ(qel::dist(scene.segments[3 + i].from, head), 0.0);
        EXPECT_EQ(qel::dist(scene.segments[3 + i].to, scene.balls[(i + 1) % 3].center), 0.0);
        EXPECT_NEAR(scene.labels[i].at.z, head.z + 0.6, 1e-12);
        EXPECT_EQ(scene.labels[i].text, std::string("Station ") + static_cast<char>('A' + i));
        EXPECT_EQ(scene.balls[i].radius, 0.5);
    }
}

}  // namespace
