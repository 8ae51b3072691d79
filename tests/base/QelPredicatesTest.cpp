#include "QelPredicates.h"

#include <gtest/gtest.h>

#include <random>

#include "EigenOracle.h"
#include "ExtremeNumbers.h"

namespace qel::test {
namespace {

constexpr double kTolerance = 0.000001;
const XPnt3d kA(0.0, 0.0, 5.0);
const XPnt3d kB(10.0, 0.0, 5.0);
const XPnt3d kC(0.0, 10.0, 5.0);

struct SideCase {
    const char* name;
    double height;
    std::int32_t front;
};

constexpr SideCase kSides[] = {
    {"FarInFront", 1000.0, 1},       {"InFront", 0.001, 1},
    {"OnThePlane", 0.0, 1},          {"BehindWithinTheTolerance", -0.0000009, 1},
    {"BehindByMore", -0.0000011, 0}, {"FarBehind", -1000.0, 0},
};

class QelPredicatesSideOfAPlane : public ::testing::TestWithParam<SideCase> {};

TEST_P(QelPredicatesSideOfAPlane, IsTheSideOfTheCounterClockwiseNormal) {
    const XPnt3d point(3.0, -7.0, 5.0 + GetParam().height);
    EXPECT_EQ(isPntInFront(kA, kB, kC, point, kTolerance), GetParam().front);
}

TEST_P(QelPredicatesSideOfAPlane, IsMeasuredAsADistanceWhateverTheSizeOfTheTriangle) {
    const XPnt3d point(3.0, -7.0, 5.0 + GetParam().height);
    for (const double size : {0.001, 1.0, 1000.0}) {
        const XPnt3d b = kA + (kB - kA) * size;
        const XPnt3d c = kA + (kC - kA) * size;
        EXPECT_EQ(isPntInFront(kA, b, c, point, kTolerance), GetParam().front);
    }
}

INSTANTIATE_TEST_SUITE_P(, QelPredicatesSideOfAPlane, ::testing::ValuesIn(kSides),
                         [](const auto& tested) { return tested.param.name; });

TEST(QelPredicatesIsPntInFront, TurnsAroundWithTheTriangle) {
    const XPnt3d above(1.0, 1.0, 6.0);
    EXPECT_EQ(isPntInFront(kA, kB, kC, above, kTolerance), 1);
    EXPECT_EQ(isPntInFront(kB, kC, kA, above, kTolerance), 1);
    EXPECT_EQ(isPntInFront(kA, kC, kB, above, kTolerance), 0);
}

TEST(QelPredicatesIsPntInFront, ExcludesThePlaneItselfWithoutTolerance) {
    EXPECT_EQ(isPntInFront(kA, kB, kC, XPnt3d(1.0, 1.0, 5.0), 0.0), 0);
    EXPECT_EQ(isPntInFront(kA, kB, kC, XPnt3d(1.0, 1.0, 5.0000001), 0.0), 1);
}

TEST(QelPredicatesIsPntInFront, ADegenerateTriangleHasNoFront) {
    const XPnt3d above(1.0, 1.0, 6.0);
    EXPECT_EQ(isPntInFront(kA, kA, kC, above, kTolerance), 0);
    EXPECT_EQ(isPntInFront(kA, kB, kB, above, kTolerance), 0);
    EXPECT_EQ(isPntInFront(kA, kB, kA + (kB - kA) * 3.0, above, kTolerance), 0);
    EXPECT_EQ(isPntInFront(kA, kA, kA, above, 1e9), 0);
}

TEST(QelPredicatesIsPntInFront, NothingIsInFrontOfNaN) {
    EXPECT_EQ(isPntInFront(XPnt3d(kNaN, 0.0, 0.0), kB, kC, kA, kTolerance), 0);
    EXPECT_EQ(isPntInFront(kA, kB, kC, XPnt3d(0.0, 0.0, kNaN), kTolerance), 0);
}

TEST(QelPredicatesIsPntInFront, AgreesWithThePlaneOfAnotherLibrary) {
    std::mt19937 random(21);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    const auto anyPoint = [&] { return XPnt3d(coordinate(random), coordinate(random), coordinate(random)); };
    int compared = 0;
    for (int round = 0; round < 2000; ++round) {
        const XPnt3d a = anyPoint();
        const XPnt3d b = anyPoint();
        const XPnt3d c = anyPoint();
        const XPnt3d point = anyPoint();
        const double height = heightAbove(a, b, c, point);
        if (std::abs(height) > 1e-3) {
            ASSERT_EQ(isPntInFront(a, b, c, point, kTolerance), height > 0.0 ? 1 : 0);
            ++compared;
        }
    }
    EXPECT_GT(compared, 1900);
}

TEST(QelPredicatesIntersect, MeetsTheInfiniteLineWithThePlane) {
    struct {
        const char* name;
        XPnt3d from;
        XPnt3d to;
    } const lines[] = {{"through", {3.0, 4.0, 0.0}, {3.0, 4.0, 10.0}},
                       {"backwards", {3.0, 4.0, 10.0}, {3.0, 4.0, 0.0}},
                       {"ending before", {3.0, 4.0, 0.0}, {3.0, 4.0, 1.0}},
                       {"beginning behind", {3.0, 4.0, 8.0}, {3.0, 4.0, 9.0}},
                       {"beginning on it", {3.0, 4.0, 5.0}, {3.0, 4.0, 9.0}}};
    for (const auto& line : lines) {
        XPnt3d hit;
        EXPECT_TRUE(intersect(kA, kB, kC, line.from, line.to, hit)) << line.name;
        EXPECT_EQ(hit.x, 3.0) << line.name;
        EXPECT_EQ(hit.y, 4.0) << line.name;
        EXPECT_DOUBLE_EQ(hit.z, 5.0) << line.name;
    }
}

TEST(QelPredicatesIntersect, LeavesTheResultAloneWhereThereIsNone) {
    struct {
        const char* name;
        XPnt3d a, b, c, from, to;
    } const misses[] = {{"parallel", kA, kB, kC, {0.0, 0.0, 1.0}, {7.0, 3.0, 1.0}},
                        {"in the plane", kA, kB, kC, kA, kB},
                        {"no line", kA, kB, kC, {1.0, 1.0, 1.0}, {1.0, 1.0, 1.0}},
                        {"no plane", kA, kB, kA + (kB - kA) * 2.0, {1.0, 1.0, 1.0}, {1.0, 1.0, 9.0}},
                        {"no points", kA, kA, kA, {1.0, 1.0, 1.0}, {1.0, 1.0, 9.0}}};
    for (const auto& miss : misses) {
        XPnt3d hit(7.0, 8.0, 9.0);
        EXPECT_FALSE(intersect(miss.a, miss.b, miss.c, miss.from, miss.to, hit)) << miss.name;
        EXPECT_EQ(dist(hit, {7.0, 8.0, 9.0}), 0.0) << miss.name;
    }
}

TEST(QelPredicatesIntersect, WorksWithVeryLargeAndVerySmallFigures) {
    for (const double size : {1e-6, 1.0, 1e6}) {
        XPnt3d hit;
        ASSERT_TRUE(intersect(kA * size, kB * size, kC * size, XPnt3d(size, size, 0.0),
                              XPnt3d(2.0 * size, 2.0 * size, 10.0 * size), hit));
        EXPECT_LE(dist(hit, XPnt3d(1.5, 1.5, 5.0) * size), 1e-12 * size);
    }
}

TEST(QelPredicatesIntersect, AgreesWithAnotherLibrary) {
    std::mt19937 random(22);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    const auto anyPoint = [&] { return XPnt3d(coordinate(random), coordinate(random), coordinate(random)); };
    for (int round = 0; round < 1000; ++round) {
        const XPnt3d a = anyPoint();
        const XPnt3d b = anyPoint();
        const XPnt3d c = anyPoint();
        const XPnt3d from = anyPoint();
        const XPnt3d to = anyPoint();
        const XPnt3d expected = meetingPoint(a, b, c, from, to);
        XPnt3d hit;
        ASSERT_TRUE(intersect(a, b, c, from, to, hit));
        // Nearly parallel pairs meet far away, where both libraries round.
        const double distance = expected.norm();
        ASSERT_LE(dist(hit, expected), 1e-9 * (1.0 + distance * distance));
    }
}

}  // namespace
}  // namespace qel::test
