#include "PointOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "FlatView.h"

namespace {

using qelview::orderVisiblePoints;
using qelview::PixelView;
using Order = std::vector<std::uint32_t>;

PixelView smallView() {
    return qel::test::flatView(4, 2);
}

Order orderOf(const qelview::Points& points, const PixelView& view, const qelview::DepthImage& depths = {}) {
    Order order{7, 7, 7, 7, 7, 7, 7};
    orderVisiblePoints(points, view, depths, {{0, points.size(), 1}}, order);
    return order;
}

TEST(PointOrder, BeginsWithTheFarthest) {
    EXPECT_EQ(orderOf({{0, 0, 0}, {0, 0, 0.9}, {0, 0, -0.9}, {0, 0, 0.5}}, smallView()), (Order{1, 3, 0, 2}));
}

TEST(PointOrder, TakesEachNthPointAlone) {
    Order order;
    orderVisiblePoints({{0, 0, 0}, {0, 0, 0.9}, {0, 0, -0.9}, {0, 0, 0.5}, {0, 0, -0.5}}, smallView(), {},
                       {{0, 5, 2}}, order);
    EXPECT_EQ(order, (Order{0, 4, 2}));
}

TEST(PointOrder, TakesThePointsOfRangesAlone) {
    const qelview::Points points{{0, 0, 0},   {0, 0, 0.9},  {0, 0, -0.9},
                                 {0, 0, 0.5}, {0, 0, -0.5}, {0, 0, 0.1}};
    Order order;
    orderVisiblePoints(points, smallView(), {}, {{1, 2, 1}, {2, 5, 2}}, order);
    EXPECT_EQ(order, (Order{1, 4, 2}));
    orderVisiblePoints(points, smallView(), {}, {}, order);
    EXPECT_EQ(order, Order());
}

TEST(PointOrder, IsThatOfOneRangeHoweverManyRangesAndCoresThereAre) {
    qelview::Points points;
    for (int i = 0; i < 100'000; ++i) {
        points.emplace_back(0.0, 0.0, std::sin(i * 0.37));
    }
    std::vector<qelview::DrawnRange> ranges;
    for (std::size_t begin = 0; begin < points.size(); begin += 777) {
        ranges.push_back({begin, std::min(begin + 777, points.size()), 1});
    }
    Order parted;
    orderVisiblePoints(points, smallView(), {}, ranges, parted);
    EXPECT_EQ(parted, orderOf(points, smallView()));
    EXPECT_EQ(parted.size(), points.size());
}

TEST(PointOrderVisiblePointAt, FindsTheNearestToTheEyeWithinReach) {
    const qelview::Points points{{0, 0, 0.5}, {0, 0, -0.5}, {0.5, 0, -0.9}, {0, 0, 0}};
    Order order;
    orderVisiblePoints(points, smallView(), {}, {{0, points.size(), 1}}, order);
    EXPECT_EQ(qelview::visiblePointAt(points, order, smallView(), 2.0, 1.0, 0.4), 1U);
    EXPECT_EQ(qelview::visiblePointAt(points, order, smallView(), 2.7, 1.0, 0.4), 2U);
    EXPECT_EQ(qelview::visiblePointAt(points, order, smallView(), 1.5, 1.0, 0.4), std::nullopt);
    EXPECT_EQ(qelview::visiblePointAt(points, order, smallView(), 2.0, 1.5, 0.4), std::nullopt);
    EXPECT_EQ(qelview::visiblePointAt(points, {0, 3}, smallView(), 2.0, 1.0, 0.4), 3U);
    EXPECT_EQ(qelview::visiblePointAt(points, {}, smallView(), 2.0, 1.0, 0.4), std::nullopt);
}

TEST(PointOrder, LeavesOutWhatLiesOutsideTheView) {
    EXPECT_EQ(orderOf({{1.1, 0, 0}, {0, -1.1, 0}, {0, 0, 1.1}, {0, 0, -1.1}, {1, 1, 1}}, smallView()),
              (Order{4}));
}

TEST(PointOrder, LeavesOutWhatSurfacesHide) {
    // Depth 0.5 is z = 0; the surface covers the pixel at the lower left alone.
    qelview::DepthImage depths(8, 1.0F);
    depths[0] = 0.5F;
    EXPECT_EQ(
        orderOf(
            {{-0.9, -0.9, 0.1}, {-0.9, -0.9, -0.1}, {-0.9, -0.9, 0.0}, {0.9, 0.9, 0.1}, {-0.1, -0.9, 0.1}},
            smallView(), depths),
        (Order{3, 4, 2, 1}));
}

TEST(PointOrder, LeavesOutWhatLiesBehindTheEye) {
    PixelView view = smallView();
    // w = -z, as in a perspective.
    view.projection = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1.5, -1, 0, 0, -2.5, 0};
    EXPECT_EQ(orderOf({{0, 0, -3}, {0, 0, 3}, {0, 0, -4}}, view), (Order{2, 0}));
}

TEST(PointOrder, AppliesTheCameraBeforeTheProjection) {
    PixelView view = smallView();
    view.modelview[14] = -0.5;
    view.projection[10] = 2.0;
    // z = 2 * (z - 0.5) must stay within 1.
    EXPECT_EQ(orderOf({{0, 0, 0.9}, {0, 0, 0.6}, {0, 0, 1.1}}, view), (Order{0, 1}));
}

TEST(PointOrder, KeepsPointsOfOneDepthInTheirOrder) {
    EXPECT_EQ(orderOf({{0.1, 0, 0}, {0.2, 0, 0}, {0.3, 0, 0}}, smallView()), (Order{0, 1, 2}));
    EXPECT_TRUE(orderOf({}, smallView()).empty());
}

}  // namespace
