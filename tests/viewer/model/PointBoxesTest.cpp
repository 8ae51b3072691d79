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
    qelview::appendOutline(outline, qelview::Points(200'000, qel::XPnt3d(1, 2, 3)));
    ASSERT_EQ(outline.size(), 200'001U);
    EXPECT_EQ(outline.front().x, 9.0);
    EXPECT_EQ(outline.back().z, 3.0);
}

TEST(PointBoxesAppendOutline, MakesOneBoxOfManyPointsAtOnePlace) {
    qelview::Points outline;
    qelview::appendOutline(outline, qelview::Points(200'001, qel::XPnt3d(1, 2, 3)));
    EXPECT_EQ(outline.size(), 8U);
    for (const qel::XPnt3d& corner : outline) {
        EXPECT_EQ(qel::dist(corner, {1, 2, 3}), 0.0);
    }
}

struct Axis {
    const char* name;
    qel::XPnt3d direction;
};

class PointBoxesOutlineAlong : public testing::TestWithParam<Axis> {};

/// The last one of 262145 points would begin a box by itself.
TEST_P(PointBoxesOutlineAlong, HasABoxForEachThirtySecondOfARow) {
    constexpr int kPoints = 262'145;
    constexpr int kPointsOfABox = 8192;
    const qel::XPnt3d begin(-100, 50, 7);
    qelview::Points points;
    for (int i = 0; i < kPoints; ++i) {
        points.push_back(begin + GetParam().direction * i);
    }
    qelview::Points expected;
    for (int box = 0; box < 32; ++box) {
        const int last = box == 31 ? kPoints - 1 : (box + 1) * kPointsOfABox - 1;
        for (int corner = 0; corner < 8; ++corner) {
            const auto end = [&](int axis) {
                return ((corner >> axis) & 1) == 0 ? box * kPointsOfABox : last;
            };
            expected.push_back(begin + qel::XPnt3d(GetParam().direction.x * end(0),
                                                   GetParam().direction.y * end(1),
                                                   GetParam().direction.z * end(2)));
        }
    }
    qelview::Points outline;
    qelview::appendOutline(outline, points);
    EXPECT_EQ(sorted(outline), sorted(expected));
}

const std::vector<Axis> kAxes{{"X", {1, 0, 0}},
                              {"Y", {0, 2, 0}},
                              {"Z", {0, 0, 0.5}},
                              {"All", {1, 2, 4}},
                              {"Small", {0x1p-20, 0x1p-22, 0x1p-21}}};
INSTANTIATE_TEST_SUITE_P(Axes, PointBoxesOutlineAlong, testing::ValuesIn(kAxes),
                         [](const auto& each) { return each.param.name; });

/// A lattice of 64 points a side has two of them a side in each box: all are corners.
TEST(PointBoxesAppendOutline, FillsItsBoxesInAllThreeDirections) {
    constexpr int kSide = 64;
    qelview::Points points;
    for (int i = 0; i < kSide * kSide * kSide; ++i) {
        points.emplace_back(i % kSide, i / kSide % kSide, i / kSide / kSide);
    }
    qelview::Points outline;
    qelview::appendOutline(outline, points);
    EXPECT_EQ(sorted(outline), sorted(points));
}

}  // namespace
