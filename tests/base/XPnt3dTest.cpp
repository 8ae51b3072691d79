#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include "ExtremeNumbers.h"
#include "XPnt2d.h"
#include "XPnt3d.h"
#include "XPnt3f.h"

namespace qel::test {
namespace {

/// Coordinates by value, so that a failure prints them.
::testing::AssertionResult isAt(const XPnt3d& point, double x, double y, double z) {
    if (point.x == x && point.y == y && point.z == z) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "(" << point.x << ", " << point.y << ", " << point.z << ")";
}

TEST(XPnt3d, HoldsThreeDoublesAndTheValidityInTheFourthWord) {
    EXPECT_EQ(sizeof(XPnt3d), 32U);
    EXPECT_EQ(offsetof(XPnt3d, x), 0U);
    EXPECT_EQ(offsetof(XPnt3d, y), 8U);
    EXPECT_EQ(offsetof(XPnt3d, z), 16U);
    EXPECT_EQ(offsetof(XPnt3d, validity), 24U);
    EXPECT_EQ(sizeof(PNT3D), 24U);
    EXPECT_EQ(sizeof(XPnt3f), 12U);
    EXPECT_EQ(sizeof(XPnt2d), 16U);
}

TEST(XPnt3d, StartsAtTheOriginAndIsValid) {
    const XPnt3d point;
    EXPECT_TRUE(isAt(point, 0.0, 0.0, 0.0));
    EXPECT_TRUE(point.isValid());
}

TEST(XPnt3d, TakesItsCoordinatesAndTheFlag) {
    const XPnt3d point(1.5, -2.5, 3.5, 0);
    EXPECT_TRUE(isAt(point, 1.5, -2.5, 3.5));
    EXPECT_TRUE(point.isValid());
}

TEST(XPnt3d, StaysInvalidThroughCopies) {
    const XPnt3d invalid = XPnt3d::invalid();
    EXPECT_FALSE(invalid.isValid());
    const XPnt3d copy(invalid);
    EXPECT_FALSE(copy.isValid());
    XPnt3d assigned(1.0, 2.0, 3.0);
    assigned = copy;
    EXPECT_FALSE(assigned.isValid());
    const XPnt3d array[2] = {assigned, XPnt3d()};
    EXPECT_FALSE(array[0].isValid());
    EXPECT_TRUE(array[1].isValid());
}

TEST(XPnt3d, BecomesValidWithNewCoordinates) {
    XPnt3d point = XPnt3d::invalid();
    EXPECT_EQ(&point.set(1.0, 2.0, 3.0), &point);
    EXPECT_TRUE(isAt(point, 1.0, 2.0, 3.0));
    EXPECT_TRUE(point.isValid());

    point = XPnt3d::invalid();
    point = PNT3D{4.0, 5.0, 6.0};
    EXPECT_TRUE(isAt(point, 4.0, 5.0, 6.0));
    EXPECT_TRUE(point.isValid());
}

TEST(XPnt3d, TakesCoordinatesInBraces) {
    XPnt3d point = XPnt3d::invalid();
    point = {1, 2, 3};
    EXPECT_TRUE(isAt(point, 1.0, 2.0, 3.0));
    EXPECT_TRUE(point.isValid());
    point = {4.5, 5.5, 6.5, 1};
    EXPECT_TRUE(isAt(point, 4.5, 5.5, 6.5));
    EXPECT_FALSE(point.isValid());
    point = {};
    EXPECT_TRUE(isAt(point, 0.0, 0.0, 0.0));
    EXPECT_TRUE(point.isValid());
}

TEST(XPnt3d, TakesWhatDerivesFromAPlainStructure) {
    struct Named : PNT3D {
        int name = 7;
    };
    XPnt3d point;
    point = Named{{1.0, 2.0, 3.0}};
    EXPECT_TRUE(isAt(point, 1.0, 2.0, 3.0));
}

TEST(XPnt3d, CopiesOutAsAPlainStructure) {
    const PNT3D plain = XPnt3d(1.0, -2.0, 1e300).Copy();
    EXPECT_EQ(plain.x, 1.0);
    EXPECT_EQ(plain.y, -2.0);
    EXPECT_EQ(plain.z, 1e300);
    static_assert(std::is_trivially_copyable_v<PNT3D>);
}

TEST(XPnt3d, SeenFromAboveKeepsXAndY) {
    const XPnt2d seen = XPnt3d(1.25, -2.5, 9.0).to2d();
    EXPECT_EQ(seen.x, 1.25);
    EXPECT_EQ(seen.y, -2.5);
}

TEST(XPnt3d, WidensAndNarrowsBetweenPrecisions) {
    const XPnt3f narrow(0.1F, -0.2F, 16777217.0F);
    const XPnt3d wide(narrow);
    EXPECT_TRUE(isAt(wide, static_cast<double>(0.1F), static_cast<double>(-0.2F), 16777216.0));
    EXPECT_TRUE(wide.isValid());
    const XPnt3f back(XPnt3d(0.1, -0.2, 16777217.0));
    EXPECT_EQ(back.x, 0.1F);
    EXPECT_EQ(back.y, -0.2F);
    EXPECT_EQ(back.z, 16777216.0F);
}

TEST(XPnt3d, MeasuresItsLength) {
    EXPECT_EQ(XPnt3d(2.0, 3.0, 6.0).norm(), 7.0);
    EXPECT_EQ(XPnt3d(3.0, -4.0, 100.0).norm_2d(), 5.0);
    EXPECT_EQ(XPnt3d().norm(), 0.0);
    EXPECT_EQ(dist(XPnt3d(1.0, 1.0, 1.0), XPnt3d(3.0, 4.0, 7.0)), 7.0);
}

TEST(XPnt3d, MeasuresLengthsWhoseSquaresDoNotFit) {
    EXPECT_DOUBLE_EQ(XPnt3d(3e200, 4e200, 0.0).norm(), 5e200);
    EXPECT_DOUBLE_EQ(XPnt3d(3e-200, 4e-200, 0.0).norm(), 5e-200);
}

TEST(XPnt3d, NormalizesInPlace) {
    XPnt3d point(2.0, -3.0, 6.0);
    EXPECT_EQ(&point.normalize(), &point);
    EXPECT_DOUBLE_EQ(point.x, 2.0 / 7.0);
    EXPECT_DOUBLE_EQ(point.y, -3.0 / 7.0);
    EXPECT_DOUBLE_EQ(point.z, 6.0 / 7.0);
}

TEST(XPnt3d, NormalizingZeroLeavesZero) {
    XPnt3d zero;
    zero.normalize();
    EXPECT_TRUE(isAt(zero, 0.0, 0.0, 0.0));
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(XPnt3d, WithAnInfiniteCoordinateIsInfinitelyLong) {
    EXPECT_EQ(XPnt3d(kInfinity, 0.0, 0.0).norm(), kInfinity);
    EXPECT_EQ(XPnt3d(1.0, -kInfinity, kInfinity).norm(), kInfinity);
    EXPECT_EQ(XPnt3d(0.0, kNotANumber, -kInfinity).norm(), kInfinity);
    EXPECT_EQ(dist(XPnt3d(1.0, 2.0, 3.0), XPnt3d(1.0, 2.0, -kInfinity)), kInfinity);
    EXPECT_TRUE(std::isnan(XPnt3d(0.0, kNotANumber, 1.0).norm()));
}

TEST(XPnt3d, NormalizingLeavesVectorsWithoutAFiniteLength) {
    const XPnt3d vectors[] = {{kInfinity, 0.0, 0.0},
                              {kInfinity, -kInfinity, 1.0},
                              {0.5, 0.0, -kInfinity},
                              {1.7e308, 1.7e308, 1.7e308}};
    for (const XPnt3d& vector : vectors) {
        XPnt3d normalized(vector);
        normalized.normalize();
        EXPECT_TRUE(isAt(normalized, vector.x, vector.y, vector.z));
    }
}

TEST(XPnt3d, NormalizingBearsNoNaN) {
    constexpr double kTiny = std::numeric_limits<double>::denorm_min();
    const XPnt3d vectors[] = {{kInfinity, 0.0, 0.0},
                              {kInfinity, -kInfinity, 1.0},
                              {1.7e308, 1.7e308, 1.7e308},
                              {kTiny, 0.0, -kTiny},
                              {1e-320, 1e-320, 1e-320}};
    for (XPnt3d vector : vectors) {
        vector.normalize();
        EXPECT_FALSE(std::isnan(vector.x) || std::isnan(vector.y) || std::isnan(vector.z));
    }
}

TEST(XPnt3d, AddsSubtractsAndScalesInPlace) {
    XPnt3d point(1.0, 2.0, 3.0);
    EXPECT_EQ(&(point += XPnt3d(0.5, 0.25, -1.0)), &point);
    EXPECT_TRUE(isAt(point, 1.5, 2.25, 2.0));
    EXPECT_EQ(&(point -= XPnt3d(1.0, 1.0, 1.0)), &point);
    EXPECT_TRUE(isAt(point, 0.5, 1.25, 1.0));
    EXPECT_EQ(&(point *= -4.0), &point);
    EXPECT_TRUE(isAt(point, -2.0, -5.0, -4.0));
}

TEST(XPnt3d, AddsSubtractsAndScalesIntoANewPoint) {
    const XPnt3d a(1.0, 2.0, 3.0);
    const XPnt3d b(0.5, -4.0, 8.0);
    EXPECT_TRUE(isAt(a + b, 1.5, -2.0, 11.0));
    EXPECT_TRUE(isAt(a - b, 0.5, 6.0, -5.0));
    EXPECT_TRUE(isAt(a * 2.0, 2.0, 4.0, 6.0));
    const XPnt3f sum = XPnt3f(1.0F, 2.0F, 3.0F) + XPnt3f(0.5F, 0.25F, -3.0F);
    EXPECT_EQ(sum.x, 1.5F);
    EXPECT_EQ(sum.y, 2.25F);
    EXPECT_EQ(sum.z, 0.0F);
    const XPnt3f scaled = XPnt3f(1.0F, 2.0F, 3.0F) * 0.1F;
    EXPECT_EQ(scaled.x, 0.1F);
    EXPECT_EQ(scaled.y, 2.0F * 0.1F);
    EXPECT_EQ(scaled.z, 3.0F * 0.1F);
}

TEST(XPnt3d, MultipliesAsScalarAndVectorProduct) {
    const XPnt3d x(1.0, 0.0, 0.0);
    const XPnt3d y(0.0, 1.0, 0.0);
    EXPECT_EQ(dot(XPnt3d(1.0, 2.0, 3.0), XPnt3d(4.0, -5.0, 6.0)), 12.0);
    EXPECT_TRUE(isAt(cross(x, y), 0.0, 0.0, 1.0));
    EXPECT_TRUE(isAt(cross(y, x), 0.0, 0.0, -1.0));
    EXPECT_TRUE(isAt(cross(XPnt3d(1.0, 2.0, 3.0), XPnt3d(4.0, 5.0, 6.0)), -3.0, 6.0, -3.0));
}

TEST(XPnt3d, CrossOfThreePointsTakesTheEdgesThatLeaveTheFirst) {
    const XPnt3d a(10.0, 20.0, 30.0);
    const XPnt3d b = a + XPnt3d(2.0, 0.0, 0.0);
    const XPnt3d c = a + XPnt3d(0.0, 3.0, 0.0);
    EXPECT_TRUE(isAt(cross(a, b, c), 0.0, 0.0, 6.0));
    EXPECT_TRUE(isAt(cross(a, c, b), 0.0, 0.0, -6.0));
    EXPECT_TRUE(isAt(cross(b, c, a), 0.0, 0.0, 6.0));
}

TEST(XPnt3dInThePlane, StartsAtTheOrigin) {
    const XPnt2d origin;
    EXPECT_EQ(origin.x, 0.0);
    EXPECT_EQ(origin.y, 0.0);
    const XPnt2d point(3.5, -4.5);
    EXPECT_EQ(point.x, 3.5);
    EXPECT_EQ(point.y, -4.5);
}

}  // namespace
}  // namespace qel::test
