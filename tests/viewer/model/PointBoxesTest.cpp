#include "PointBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

using Place = std::tuple<double, double, double>;

std::vector<Place> sorted(const qelview::Points& points) {
    std::vector<Place> places;
    for (const qel::XPnt3d& point : points) {
        places.emplace_back(point.x, point.y, point.z);
    }
    std::sort(places.begin(), places.end());
    return places;
}

TEST(PointBoxesBoxOf, IsNotValidWithoutAPoint) {
    EXPECT_FALSE(qelview::boxOf({}).isValid());
}

TEST(PointBoxesBoxOf, ReachesEachSideOfItsPoints) {
    const qel::Enve3d box = qelview::boxOf({{3, -4, 5}, {-1, -6, 7}, {2, -5, 9}});
    EXPECT_EQ(box.xmin, -1.0);
    EXPECT_EQ(box.xmax, 3.0);
    EXPECT_EQ(box.ymin, -6.0);
    EXPECT_EQ(box.ymax, -4.0);
    EXPECT_EQ(box.zmin, 5.0);
    EXPECT_EQ(box.zmax, 9.0);
}

/// Enough for both cores: each piece of the row has a farthest point.
TEST(PointBoxesBoxOf, ReachesEachSideOfManyPoints) {
    qelview::Points points(100'000, qel::XPnt3d(1, 1, 1));
    points[10] = {-5, 1, 9};
    points[99'990] = {7, -3, 1};
    const qel::Enve3d box = qelview::boxOf(points);
    EXPECT_EQ(box.xmin, -5.0);
    EXPECT_EQ(box.xmax, 7.0);
    EXPECT_EQ(box.ymin, -3.0);
    EXPECT_EQ(box.ymax, 1.0);
    EXPECT_EQ(box.zmin, 1.0);
    EXPECT_EQ(box.zmax, 9.0);
}

TEST(PointBoxesAppendOutline, KeepsFewPointsBehindThoseThatThereAre) {
    qelview::Points outline{{9, 9, 9}};
    qelview::appendOutline(outline, qelview::Points(200'000, qel::XPnt3d(1, 2, 3)),
                           {{0, 200'000, {1, 1, 2, 2, 3, 3}}});
    ASSERT_EQ(outline.size(), 200'001U);
    EXPECT_EQ(outline.front().x, 9.0);
    EXPECT_EQ(outline.back().z, 3.0);
}

TEST(PointBoxesAppendOutline, KeepsManyPointsWithoutParts) {
    qelview::Points outline;
    qelview::appendOutline(outline, qelview::Points(200'001, qel::XPnt3d(1, 2, 3)), {});
    EXPECT_EQ(outline.size(), 200'001U);
}

TEST(PointBoxesAppendOutline, HasTheCornersOfThePartsOfManyPoints) {
    qelview::Points outline;
    qelview::appendOutline(outline, qelview::Points(200'001, qel::XPnt3d(1, 2, 3)),
                           {{0, 7, {1, 2, 3, 4, 5, 6}}, {7, 200'001, {8, 8, 9, 9, 7, 7}}});
    const qelview::Points corners{{1, 3, 5}, {1, 3, 6}, {1, 4, 5}, {1, 4, 6}, {2, 3, 5}, {2, 3, 6},
                                  {2, 4, 5}, {2, 4, 6}, {8, 9, 7}, {8, 9, 7}, {8, 9, 7}, {8, 9, 7},
                                  {8, 9, 7}, {8, 9, 7}, {8, 9, 7}, {8, 9, 7}};
    EXPECT_EQ(sorted(outline), sorted(corners));
}

}  // namespace
