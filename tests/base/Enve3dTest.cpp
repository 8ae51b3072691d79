#include <gtest/gtest.h>

#include <cmath>

#include "Enve2d.h"
#include "Enve3d.h"
#include "ExtremeNumbers.h"

namespace qel::test {
namespace {

constexpr double kLowerOfNothing = 2147483647.0;
constexpr double kUpperOfNothing = -2147483647.0;

::testing::AssertionResult hasBounds(const Enve2d& box, double xmin, double xmax, double ymin, double ymax) {
    if (box.xmin == xmin && box.xmax == xmax && box.ymin == ymin && box.ymax == ymax) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "x " << box.xmin << " to " << box.xmax << ", y " << box.ymin << " to " << box.ymax;
}

::testing::AssertionResult hasBounds(const Enve3d& box, double xmin, double xmax, double ymin, double ymax,
                                     double zmin, double zmax) {
    if (box.zmin == zmin && box.zmax == zmax) {
        return hasBounds(box.getEnve2d(), xmin, xmax, ymin, ymax);
    }
    return ::testing::AssertionFailure() << "z " << box.zmin << " to " << box.zmax;
}

Enve3d flatBox(double xmin, double xmax, double ymin, double ymax) {
    return {xmin, xmax, ymin, ymax, kLowerOfNothing, kUpperOfNothing};
}

TEST(Enve2d, StartsAsZeros) {
    const Enve2d box;
    EXPECT_TRUE(hasBounds(box, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(box.isValid());
}

TEST(Enve2d, TakesBothLowerBoundsBeforeBothUpperOnes) {
    EXPECT_TRUE(hasBounds(Enve2d(1.0, 2.0, 30.0, 40.0), 1.0, 30.0, 2.0, 40.0));
}

TEST(Enve2d, HoldsItsBoundsInTheOrderLowerUpperXThenY) {
    const Enve2d box(1.0, 2.0, 30.0, 40.0);
    const double* const bounds = &box.xmin;
    EXPECT_EQ(&box.xmax - bounds, 1);
    EXPECT_EQ(&box.ymin - bounds, 2);
    EXPECT_EQ(&box.ymax - bounds, 3);
}

TEST(Enve2d, IsEmptyWithTheMarkersOnceMadeInvalid) {
    Enve2d box(1.0, 2.0, 3.0, 4.0);
    box.setInvalid();
    EXPECT_TRUE(hasBounds(box, kLowerOfNothing, kUpperOfNothing, kLowerOfNothing, kUpperOfNothing));
    EXPECT_FALSE(box.isValid());
}

TEST(Enve2d, InvalidBecomesThePointItselfWhenItGrows) {
    for (const double distance : {1.0, 1e10}) {
        Enve2d box;
        box.setInvalid();
        box.SetBox(XPnt3d(distance, -distance, 7.0));
        EXPECT_TRUE(hasBounds(box, distance, distance, -distance, -distance));
    }
}

TEST(Enve2d, GrowsToHoldPoints) {
    Enve2d box(0.0, 0.0, 1.0, 1.0);
    box.SetBox(XPnt3d(0.5, 0.5, 100.0));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 1.0));
    box.SetBox(XPnt3d(-2.0, 3.0, 0.0));
    EXPECT_TRUE(hasBounds(box, -2.0, 1.0, 0.0, 3.0));
    box.SetBox(XPnt3d(4.0, -5.0, 0.0));
    EXPECT_TRUE(hasBounds(box, -2.0, 4.0, -5.0, 3.0));
}

TEST(Enve2d, DoesNotGrowWithPointsThatAreNone) {
    Enve2d box(0.0, 0.0, 1.0, 1.0);
    box.SetBox(XPnt3d(9.0, 9.0, 9.0, 1));
    box.SetBox(XPnt3d(kNaN, 9.0, 0.0));
    box.SetBox(XPnt3d(9.0, kNaN, 0.0));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 1.0));
}

TEST(Enve2d, GivesCentreAndSizeInBothSpellings) {
    const Enve2d box(1.0, 10.0, 4.0, 30.0);
    EXPECT_EQ(box.MidPoint().x, 2.5);
    EXPECT_EQ(box.MidPoint().y, 20.0);
    EXPECT_EQ(box.Width(), 3.0);
    EXPECT_EQ(box.Hight(), 20.0);
    EXPECT_EQ(box.width(), box.Width());
    EXPECT_EQ(box.hight(), box.Hight());
}

struct MeetingCase {
    const char* name;
    Enve2d other;
    bool meets;
};

const MeetingCase kMeetings[] = {
    {"Same", {0.0, 0.0, 10.0, 10.0}, true},           {"Inside", {4.0, 4.0, 5.0, 5.0}, true},
    {"Around", {-1.0, -1.0, 11.0, 11.0}, true},       {"Overlapping", {5.0, 5.0, 20.0, 20.0}, true},
    {"ACross", {4.0, -5.0, 6.0, 20.0}, true},         {"TouchingRight", {10.0, 0.0, 20.0, 10.0}, true},
    {"TouchingLeft", {-5.0, 0.0, 0.0, 10.0}, true},   {"TouchingTop", {0.0, 10.0, 10.0, 20.0}, true},
    {"TouchingBottom", {0.0, -5.0, 10.0, 0.0}, true}, {"TouchingACorner", {10.0, 10.0, 20.0, 20.0}, true},
    {"APointInside", {3.0, 3.0, 3.0, 3.0}, true},     {"APointOnTheEdge", {10.0, 3.0, 10.0, 3.0}, true},
    {"Right", {10.000001, 0.0, 20.0, 10.0}, false},   {"Left", {-5.0, 0.0, -0.000001, 10.0}, false},
    {"Above", {0.0, 10.000001, 10.0, 20.0}, false},   {"Below", {0.0, -5.0, 10.0, -0.000001}, false},
    {"Inverted", {6.0, 6.0, 4.0, 4.0}, false},
};

class Enve2dMeetings : public ::testing::TestWithParam<MeetingCase> {};

TEST_P(Enve2dMeetings, WhereTheyShareAPoint) {
    const Enve2d box(0.0, 0.0, 10.0, 10.0);
    EXPECT_EQ(box.isIntersect(GetParam().other), GetParam().meets);
    EXPECT_EQ(GetParam().other.isIntersect(box), GetParam().meets);
}

INSTANTIATE_TEST_SUITE_P(, Enve2dMeetings, ::testing::ValuesIn(kMeetings),
                         [](const auto& tested) { return tested.param.name; });

TEST(Enve2d, InvalidMeetsNothing) {
    Enve2d invalid;
    invalid.setInvalid();
    const Enve2d everything(-1e300, -1e300, 1e300, 1e300);
    EXPECT_FALSE(invalid.isIntersect(everything));
    EXPECT_FALSE(everything.isIntersect(invalid));
    EXPECT_FALSE(invalid.isIntersect(invalid));
}

TEST(Enve3d, StartsAsZeros) {
    const Enve3d box;
    EXPECT_TRUE(hasBounds(box, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(box.isValid());
}

TEST(Enve3d, HoldsItsBoundsInPairs) {
    const Enve3d box{1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    const double* const bounds = &box.xmin;
    EXPECT_EQ(&box.xmax - bounds, 1);
    EXPECT_EQ(&box.ymin - bounds, 2);
    EXPECT_EQ(&box.ymax - bounds, 3);
    EXPECT_EQ(&box.zmin - bounds, 4);
    EXPECT_EQ(&box.zmax - bounds, 5);
    EXPECT_TRUE(hasBounds(box, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
}

TEST(Enve3d, IsEmptyWithTheMarkersOnceMadeInvalid) {
    Enve3d box{1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    box.setInvalid();
    EXPECT_TRUE(hasBounds(box, kLowerOfNothing, kUpperOfNothing, kLowerOfNothing, kUpperOfNothing,
                          kLowerOfNothing, kUpperOfNothing));
    EXPECT_FALSE(box.isValid());
}

TEST(Enve3d, IsJudgedByXAndYAlone) {
    EXPECT_TRUE(flatBox(0.0, 1.0, 0.0, 1.0).isValid());
    EXPECT_TRUE((Enve3d{0.0, 1.0, 0.0, 1.0, 5.0, -5.0}.isValid()));
    EXPECT_FALSE((Enve3d{1.0, 0.0, 0.0, 1.0, 0.0, 1.0}.isValid()));
    EXPECT_FALSE((Enve3d{0.0, 1.0, 1.0, 0.0, 0.0, 1.0}.isValid()));
    EXPECT_FALSE((Enve3d{kNaN, 1.0, 0.0, 1.0, 0.0, 1.0}.isValid()));
}

TEST(Enve3d, InvalidBecomesThePointItselfWhenItGrows) {
    for (const double distance : {1.0, 1e10}) {
        Enve3d box;
        box.setInvalid();
        box.SetBox(XPnt3d(distance, -distance, distance));
        EXPECT_TRUE(hasBounds(box, distance, distance, -distance, -distance, distance, distance));
    }
}

TEST(Enve3d, GrowsToHoldPoints) {
    Enve3d box{0.0, 1.0, 0.0, 1.0, 0.0, 1.0};
    box.SetBox(XPnt3d(0.5, 0.5, 0.5));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0));
    box.SetBox(XPnt3d(-1.0, 2.0, -3.0));
    box.SetBox(XPnt3d(4.0, -5.0, 6.0));
    EXPECT_TRUE(hasBounds(box, -1.0, 4.0, -5.0, 2.0, -3.0, 6.0));
}

TEST(Enve3d, ThatIsFlatTakesTheHeightOfThePointThatItGrowsBy) {
    Enve3d box = flatBox(0.0, 1.0, 0.0, 1.0);
    ASSERT_FALSE(box.hasZ());
    box.SetBox(XPnt3d(0.5, 2.0, 7.0));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 2.0, 7.0, 7.0));
    box.SetBox(XPnt3d(0.5, 0.5, 5.0));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 2.0, 5.0, 7.0));
}

TEST(Enve3d, DoesNotGrowWithPointsThatAreNone) {
    Enve3d box{0.0, 1.0, 0.0, 1.0, 0.0, 1.0};
    box.SetBox(XPnt3d::invalid());
    box.SetBox(XPnt3d(kNaN, 9.0, 9.0));
    box.SetBox(XPnt3d(9.0, kNaN, 9.0));
    box.SetBox(XPnt3d(9.0, 9.0, kNaN));
    EXPECT_TRUE(hasBounds(box, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0));
}

TEST(Enve3d, NormalizeOrdersEachPair) {
    Enve3d box{2.0, 1.0, 3.0, 4.0, 6.0, 5.0};
    box.Normalize();
    EXPECT_TRUE(hasBounds(box, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    box.Normalize();
    EXPECT_TRUE(hasBounds(box, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
}

TEST(Enve3d, NormalizeLeavesAMissingZRangeAlone) {
    Enve3d box = flatBox(2.0, 1.0, 4.0, 3.0);
    box.Normalize();
    EXPECT_TRUE(hasBounds(box, 1.0, 2.0, 3.0, 4.0, kLowerOfNothing, kUpperOfNothing));
}

TEST(Enve3d, NormalizeOrdersXAndYWhateverTheirValue) {
    Enve3d box;
    box.setInvalid();
    box.Normalize();
    EXPECT_TRUE(hasBounds(box, kUpperOfNothing, kLowerOfNothing, kUpperOfNothing, kLowerOfNothing,
                          kLowerOfNothing, kUpperOfNothing));
    box = {kLowerOfNothing, 1.0, 2.0, kUpperOfNothing, 1.0, 0.0};
    box.Normalize();
    EXPECT_TRUE(hasBounds(box, 1.0, kLowerOfNothing, kUpperOfNothing, 2.0, 0.0, 1.0));
}

TEST(Enve3d, OffsetMovesIt) {
    Enve3d box{0.0, 1.0, 0.0, 1.0, 0.0, 1.0};
    box.offset(10.0, -20.0, 30.0);
    EXPECT_TRUE(hasBounds(box, 10.0, 11.0, -20.0, -19.0, 30.0, 31.0));
}

TEST(Enve3d, OffsetMovesXAndYWhateverTheirValue) {
    Enve3d box{kLowerOfNothing, 2147483650.0, -2147483650.0, kUpperOfNothing, 0.0, 1.0};
    box.offset(10.0, -20.0, 30.0);
    EXPECT_TRUE(hasBounds(box, 2147483657.0, 2147483660.0, -2147483670.0, -2147483667.0, 30.0, 31.0));
}

TEST(Enve3d, OffsetKeepsAMissingZRangeMissing) {
    Enve3d box = flatBox(0.0, 1.0, 0.0, 1.0);
    box.offset(10.0, 20.0, 30.0);
    EXPECT_TRUE(hasBounds(box, 10.0, 11.0, 20.0, 21.0, kLowerOfNothing, kUpperOfNothing));
}

TEST(Enve3d, GivesCentreSizeAndDiagonal) {
    const Enve3d box{1.0, 3.0, 10.0, 13.0, -4.0, 2.0};
    EXPECT_EQ(box.MidPoint().x, 2.0);
    EXPECT_EQ(box.MidPoint().y, 11.5);
    EXPECT_EQ(box.MidPoint().z, -1.0);
    EXPECT_EQ(box.Width(), 2.0);
    EXPECT_EQ(box.HightY(), 3.0);
    EXPECT_EQ(box.getDiagonal(), 7.0);
}

TEST(Enve3d, AMissingZRangeCountsAsFlatAtZero) {
    // Either marker alone makes the range missing.
    const Enve3d boxes[] = {flatBox(0.0, 6.0, 2.0, 10.0),
                            {0.0, 6.0, 2.0, 10.0, kLowerOfNothing, 5.0},
                            {0.0, 6.0, 2.0, 10.0, 5.0, kUpperOfNothing}};
    for (const Enve3d& box : boxes) {
        EXPECT_EQ(box.MidPoint().x, 3.0);
        EXPECT_EQ(box.MidPoint().y, 6.0);
        EXPECT_EQ(box.MidPoint().z, 0.0);
        EXPECT_EQ(box.getDiagonal(), 10.0);
    }
}

TEST(Enve3d, SeenFromAboveIsItsRectangle) {
    EXPECT_TRUE(hasBounds(Enve3d{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}.getEnve2d(), 1.0, 2.0, 3.0, 4.0));
}

}  // namespace
}  // namespace qel::test
