#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "MapClip.h"
#include "MapFrame.h"
#include "MapRelief.h"
#include "MapTriangles.h"
#include "SampleMap.h"
#include "TextRoom.h"

/// What of a map is seen: cut lines and areas, triangles, names.

namespace {

using qelview::Line2d;
using qelview::Rings2d;

constexpr qel::Enve2d kUnit(0, 0, 10, 10);

/// Twice the area of triangles in a row.
double areaOf(const qelview::Points& triangles) {
    double sum = 0.0;
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3) {
        const qel::XPnt3d& a = triangles[i];
        const qel::XPnt3d& b = triangles[i + 1];
        const qel::XPnt3d& c = triangles[i + 2];
        sum += std::fabs((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) * 0.5;
    }
    return sum;
}

qelview::Scene sceneOf(const Rings2d& rings, const qel::XPnt3d& origin) {
    qelview::Scene scene;
    qelview::Polygon& polygon = scene.polygons.emplace_back();
    for (const Line2d& ring : rings) {
        auto& points = polygon.rings.emplace_back();
        std::transform(ring.begin(), ring.end(), std::back_inserter(points),
                       [](const qel::XPnt2d& point) { return qel::XPnt3d(point.x, point.y, 3.0); });
    }
    scene.origin = origin;
    return scene;
}

qelview::Points trianglesOf(const Rings2d& rings) {
    return qelview::trianglesOf(sceneOf(rings, {}).polygons.front().rings);
}

Line2d square(double left, double bottom, double side) {
    return {{left, bottom},
            {left + side, bottom},
            {left + side, bottom + side},
            {left, bottom + side},
            {left, bottom}};
}

TEST(MapFrameClip, KeepsLinesInsideAsTheyAre) {
    const Line2d inside{{1, 1}, {9, 9}, {0, 10}};
    const auto parts = qelview::clipLine(inside, kUnit);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].size(), 3U);
}

TEST(MapFrameClip, CutsALineIntoItsVisibleParts) {
    const auto parts = qelview::clipLine({{-5, 5}, {5, 5}, {5, 20}, {8, 20}, {8, 2}, {7, 2}}, kUnit);
    ASSERT_EQ(parts.size(), 2U);
    ASSERT_EQ(parts[0].size(), 3U);
    EXPECT_EQ(parts[0][0].x, 0.0);
    EXPECT_EQ(parts[0][1].x, 5.0);
    EXPECT_EQ(parts[0][2].y, 10.0);
    ASSERT_EQ(parts[1].size(), 3U);
    EXPECT_EQ(parts[1][0].y, 10.0);
    EXPECT_EQ(parts[1][2].x, 7.0);
}

TEST(MapFrameClip, DropsWhatOnlyPassesACorner) {
    EXPECT_TRUE(qelview::clipLine({{-3, 8}, {3, 14}}, kUnit).empty());
    EXPECT_TRUE(qelview::clipLine({{-3, -8}, {-3, 14}}, kUnit).empty());
    EXPECT_TRUE(qelview::clipLine({{3, 3}}, kUnit).size() <= 1);
    EXPECT_TRUE(qelview::clipLine({}, kUnit).empty());
}

TEST(MapFrameClip, KeepsDetailOfLinesWhoseEndsAreFarAway) {
    // A steep line through the middle of a window of a millimetre at 2e7.
    const qel::Enve2d window(2e7, 2e7, 2e7 + 1e-3, 2e7 + 1e-3);
    const auto parts = qelview::clipLine({{2e7 - 1e7, 2e7 - 1e7}, {2e7 + 1e7, 2e7 + 1e7}}, window);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_NEAR(parts[0].front().x - 2e7, 0.0, 2e-8);
    EXPECT_NEAR(parts[0].back().y - 2e7, 1e-3, 2e-8);
}

TEST(MapFrameClip, CutsRingsAlongTheEdge) {
    EXPECT_NEAR(areaOf(trianglesOf({qelview::clipRing(square(-5, -5, 10), kUnit)})), 25.0, 1e-9);
    EXPECT_NEAR(areaOf(trianglesOf({qelview::clipRing(square(-5, -5, 100), kUnit)})), 100.0, 1e-9);
    EXPECT_TRUE(qelview::clipRing(square(20, 20, 5), kUnit).empty());
    EXPECT_NEAR(areaOf(trianglesOf({qelview::clipRing({{-10, 5}, {5, 5}, {5, 20}, {-10, 5}}, kUnit)})), 25.0,
                1e-9);
}

TEST(MapFrameTriangles, LeaveHolesOpenAndCountCrossingsOnce) {
    EXPECT_NEAR(areaOf(trianglesOf({square(0, 0, 4), square(1, 1, 2)})), 12.0, 1e-9);
    // An island in the lake of an island.
    EXPECT_NEAR(areaOf(trianglesOf({square(0, 0, 8), square(1, 1, 6), square(2, 2, 4)})), 64.0 - 36.0 + 16.0,
                1e-9);
    // A bow tie has two wings.
    EXPECT_NEAR(areaOf(trianglesOf({{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}}})), 50.0, 1e-9);
    // A hole outside its ring is an area of its own.
    EXPECT_NEAR(areaOf(trianglesOf({square(0, 0, 4), square(8, 8, 1)})), 17.0, 1e-9);
    EXPECT_TRUE(trianglesOf({}).empty());
    EXPECT_TRUE(trianglesOf({{{1, 1}, {1, 1}, {1, 1}, {1, 1}}}).empty());
}

/// By counting crossings of a ray.
bool isInside(const Rings2d& rings, double x, double y) {
    bool inside = false;
    for (const Line2d& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const qel::XPnt2d& a = ring[i];
            const qel::XPnt2d& b = ring[(i + 1) % ring.size()];
            if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

TEST(MapFrameClip, KeepsInsideAndOutsideOfRandomRings) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(-10.0, 20.0);
    std::uniform_real_distribution<double> within(0.001, 9.999);
    for (int round = 0; round < 200; ++round) {
        Line2d ring;
        for (int corner = 0; corner < 9; ++corner) {
            ring.push_back({place(random), place(random)});
        }
        ring.push_back(ring.front());
        const Line2d cut = qelview::clipRing(ring, kUnit);
        for (int probe = 0; probe < 50; ++probe) {
            const double x = within(random);
            const double y = within(random);
            EXPECT_EQ(isInside({cut}, x, y), isInside({ring}, x, y)) << x << ' ' << y;
        }
    }
}

TEST(MapFrameData, GivesTheCoordinatesOfTheFilesBack) {
    qelview::Scene scene = sceneOf({square(0, 0, 4)}, {1000, 2000, 0});
    scene.labels.push_back({{1, 1, 0}, "here"});
    const qelview::MapData map = qelview::mapOf(scene);
    EXPECT_EQ(map.bounds.xmin, 1000.0);
    EXPECT_EQ(map.bounds.ymax, 2004.0);
    EXPECT_EQ(map.polygons.at(0).at(0).at(2).x, 1004.0);
    EXPECT_EQ(map.names.at(0).at.y, 2001.0);
    EXPECT_FALSE(map.isGeographic);
    EXPECT_TRUE(qelview::mapOf(sceneOf({square(0, 0, 4)}, {100, 50, 0})).isGeographic);
}

TEST(MapFrameData, IsInDegreesThoughAFileRoundsTheEdgeOfTheGlobe) {
    qelview::Scene world;
    world.points.push_back({{-180.00000000000003, -85.609037899999998, 0}});
    world.points.push_back({{180.00000044181039, 83.645130000000009, 0}});
    EXPECT_TRUE(qelview::mapOf(world).isGeographic);
    world.points.push_back({{180.001, 0, 0}});
    EXPECT_FALSE(qelview::mapOf(world).isGeographic);
}

TEST(MapFrame, HoldsOnlyWhatIsSeen) {
    qelview::Scene scene = sceneOf({square(0, 0, 4), square(1, 1, 1)}, {});
    scene.polylines.push_back({{{{-1e6, 2, 0}, {1e6, 2, 0}}, {{500, 500, 0}, {600, 600, 0}}}, {}});
    scene.clouds.push_back({{{2, 2, 0}, {900, 900, 0}}, {}, {}, 1.0F, {}});
    const qelview::MapData map = qelview::mapOf(scene);
    qelview::MapView view;
    view.resize(100, 100);
    view.fit({0, 0, 4, 4});
    const qelview::MapFrame frame = qelview::makeFrame(map, view);
    ASSERT_EQ(frame.areas.size(), 1U);
    EXPECT_EQ(frame.areas[0].size(), 2U);
    EXPECT_EQ(frame.outlines.size(), 2U);
    ASSERT_EQ(frame.lines.size(), 1U);
    // Cut a little outside the pane.
    EXPECT_LT(frame.lines[0].front().x, view.extent().xmin);
    EXPECT_GT(frame.lines[0].front().x, view.extent().xmin - 100 * view.unitsPerPixel());
    EXPECT_EQ(frame.points.size(), 1U);
    EXPECT_FALSE(frame.isCrowded);
    EXPECT_FALSE(frame.grid.empty());
}

TEST(MapFrame, ShowsNoNameOverAnother) {
    qelview::Scene scene = sceneOf({square(0, 0, 100)}, {});
    for (const auto& [x, y] : {std::pair{20.0, 50.0}, {21.0, 50.5}, {20.0, 80.0}, {99.9, 50.0}}) {
        scene.labels.push_back({{x, y, 0}, "A place with a name"});
    }
    const qelview::MapData map = qelview::mapOf(scene);
    qelview::MapView view;
    view.resize(600, 600);
    view.fit(map.bounds);
    const qelview::MapFrame frame = qelview::makeFrame(map, view);
    ASSERT_EQ(frame.names.size(), 2U) << "the second lies on the first, the last leaves the pane";
    EXPECT_EQ(frame.names[1].at.y, 80.0);
}

TEST(MapFrameRelief, GivesPolygonsASurface) {
    const qelview::Scene relief = qelview::reliefOf(sceneOf({square(0, 0, 4), square(1, 1, 2)}, {}));
    ASSERT_EQ(relief.meshes.size(), 1U);
    ASSERT_EQ(relief.meshes[0].positions.size() % 3, 0U);
    for (const qel::XPnt3d& corner : relief.meshes[0].positions) {
        EXPECT_EQ(corner.z, 3.0);
    }
    EXPECT_NEAR(areaOf(relief.meshes[0].positions), 12.0, 1e-9);
    EXPECT_EQ(relief.polygons.size(), 1U);
}

TEST(MapFrameTextRoom, IsTakenByTheFirstWhoComes) {
    qelview::TextRoom room;
    EXPECT_TRUE(room.take(100, 100, "First"));
    EXPECT_FALSE(room.take(110, 105, "Second"));
    EXPECT_TRUE(room.take(110, 140, "Below"));
    EXPECT_TRUE(room.take(200, 100, "Beside"));
    EXPECT_FALSE(room.take(60, 100, "Long before it"));
    EXPECT_TRUE(room.take(40, 100, "")) << "what was refused takes no room";
}

TEST(MapFrameTextRoom, IsWiderThanTheLettersByAGapAndAsHighAsALine) {
    const auto leavesRoomAt = [](double x, double y) {
        qelview::TextRoom room;
        return room.take(100, 100, "two") && room.take(x, y, "");
    };
    // Letters are 9.5 pixels wide, with 8 pixels around each text; a line is 28 high.
    EXPECT_FALSE(leavesRoomAt(100 + 28.5 + 15.5, 100));
    EXPECT_TRUE(leavesRoomAt(100 + 28.5 + 16.5, 100));
    EXPECT_FALSE(leavesRoomAt(100 - 15.5, 100));
    EXPECT_TRUE(leavesRoomAt(100 - 16.5, 100));
    EXPECT_FALSE(leavesRoomAt(100, 127.5));
    EXPECT_TRUE(leavesRoomAt(100, 128.5));
    EXPECT_TRUE(leavesRoomAt(100, 71.5));
}

TEST(MapFrameSampleMap, HasIslandsLakesLinesAndNamedTowns) {
    const qelview::Scene scene = qelview::makeSampleMap();
    ASSERT_EQ(scene.polygons.size(), 1U);
    EXPECT_GT(scene.polygons[0].rings.size(), 8U);
    for (const qelview::Points& ring : scene.polygons[0].rings) {
        EXPECT_EQ(ring.front().x, ring.back().x) << "a coast closes";
        EXPECT_EQ(ring.front().y, ring.back().y);
    }
    EXPECT_EQ(scene.clouds.at(0).positions.size(), scene.labels.size());
    EXPECT_GE(scene.labels.size(), 8U);
    EXPECT_GT(scene.origin.y, 1e6) << "far from the origin";
    EXPECT_EQ(qelview::makeSampleMap().lineVertexCount(), scene.lineVertexCount()) << "the same each time";
}

}  // namespace
