#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "MatrixHelp.h"
#include "QelMatrix.h"
#include "base/EigenOracle.h"

namespace qel::test {
namespace {

const char* const kNoInverse = "invert is not availble!\n";

/// What a function prints on standard output.
template <class Function>
std::string printedBy(Function function) {
    ::testing::internal::CaptureStdout();
    function();
    return ::testing::internal::GetCapturedStdout();
}

template <class T>
class QelMatrixInvert : public ::testing::Test {};

using BothPrecisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(QelMatrixInvert, BothPrecisions);

TYPED_TEST(QelMatrixInvert, LeavesTheIdentityAsItIs) {
    for (std::int32_t size = 1; size <= 5; ++size) {
        matrix<TypeParam> m(size, size);
        m.setIdentity();
        const std::vector<TypeParam> before = valuesOf(m);
        EXPECT_TRUE(m.invert());
        EXPECT_EQ(valuesOf(m), before);
    }
}

/// Powers of two throughout, so that every step is exact and so is the expected inverse.
struct ExactCase {
    const char* name;
    std::int32_t size;
    std::vector<double> given;
    std::vector<double> inverse;
};

const ExactCase kExactCases[] = {
    {"one element", 1, {4}, {0.25}},
    {"a diagonal", 2, {2, 0, 0, -8}, {0.5, 0, 0, -0.125}},
    {"the largest in the last row", 2, {0, 2, 4, 0}, {0, 0.25, 0.5, 0}},
    {"rows in a circle", 3, {0, 2, 0, 0, 0, 4, 8, 0, 0}, {0, 0, 0.125, 0.5, 0, 0, 0, 0.25, 0}},
    {"rows in the other circle", 3, {0, 0, 2, 4, 0, 0, 0, 8, 0}, {0, 0.25, 0, 0, 0, 0.125, 0.5, 0, 0}},
    {"largest off the diagonal", 2, {1, 4, 2, 4}, {-1, 1, 0.5, -0.25}},
    {"four mixed rows",
     4,
     {0, 0, 0, 2, 0, 16, 0, 0, 0, 0, 4, 0, 8, 0, 0, 0},
     {0, 0, 0, 0.125, 0, 0.0625, 0, 0, 0, 0, 0.25, 0, 0.5, 0, 0, 0}},
};

TYPED_TEST(QelMatrixInvert, UndoesItsRowAndColumnSwaps) {
    for (const ExactCase& exact : kExactCases) {
        matrix<TypeParam> m(exact.size, exact.size);
        std::vector<TypeParam> expected;
        for (std::size_t index = 0; index < exact.given.size(); ++index) {
            const auto place = static_cast<std::int32_t>(index);
            m.setElement(place / exact.size, place % exact.size, static_cast<TypeParam>(exact.given[index]));
            expected.push_back(static_cast<TypeParam>(exact.inverse[index]));
        }
        EXPECT_TRUE(m.invert()) << exact.name;
        EXPECT_EQ(valuesOf(m), expected) << exact.name;
    }
}

TYPED_TEST(QelMatrixInvert, AgreesWithAnotherLibrary) {
    std::mt19937 random(40);
    for (int round = 0; round < 300; ++round) {
        const std::int32_t size = 1 + round % 6;
        const matrix<TypeParam> m = anyMatrix<TypeParam>(size, size, random);
        const Rows expected = inverseOf(rowsOf(m));
        const double condition = normOf(expected) * normOf(rowsOf(m));
        matrix<TypeParam> inPlace = m;
        ASSERT_TRUE(inPlace.invert());
        // The error grows with the condition; full pivoting keeps its factor small.
        const double tolerance = 30.0 * kEpsilon<TypeParam> * condition * normOf(expected);
        ASSERT_LE(largestDifference(rowsOf(inPlace), expected), tolerance);
        ASSERT_EQ(valuesOf(m.inverse()), valuesOf(inPlace));
    }
}

TYPED_TEST(QelMatrixInvert, LeavesTheOriginalOfAnInverseAlone) {
    const matrix<TypeParam> m = filled<TypeParam>(2, 2, {2, 0, 0, 4});
    const matrix<TypeParam> inverse = m.inverse();
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{2, 0, 0, 4}));
    EXPECT_EQ(valuesOf(inverse), (std::vector<TypeParam>{TypeParam(0.5), 0, 0, TypeParam(0.25)}));
}

TYPED_TEST(QelMatrixInvert, OfAnOblongMatrixIsRefusedSilently) {
    matrix<TypeParam> m = filled<TypeParam>(2, 3, {1, 2, 3, 4, 5, 6});
    bool done = true;
    EXPECT_EQ(printedBy([&] { done = m.invert(); }), "");
    EXPECT_FALSE(done);
    EXPECT_EQ(valuesOf(m), (std::vector<TypeParam>{1, 2, 3, 4, 5, 6}));
}

TYPED_TEST(QelMatrixInvert, OfZeroSaysSoAndChangesNothing) {
    matrix<TypeParam> m(3, 3);
    bool done = true;
    EXPECT_EQ(printedBy([&] { done = m.invert(); }), kNoInverse);
    EXPECT_FALSE(done);
    EXPECT_EQ(valuesOf(m), std::vector<TypeParam>(9, TypeParam{0}));
}

/// Matrices of rank 1: the first step runs, the second finds no pivot. What the first step leaves tells which
/// pivot it took and what it did with it.
struct SingularCase {
    const char* name;
    std::vector<double> given;
    std::vector<double> left;
};

const SingularCase kSingularCases[] = {
    {"the first is the largest", {4, 2, 2, 1}, {0.25, 0.5, -0.5, 0}},
    {"of equals the first wins", {2, -2, -2, 2}, {0.5, -1, 1, 0}},
    {"of equals the first in row order wins", {1, 2, 1, 2}, {0.5, 0.5, -1, 0}},
    {"of equals in different rows the first wins", {2, 2, -2, -2}, {0.5, 1, 1, 0}},
    {"the last is the largest", {1, 2, 2, 4}, {0.25, 0.5, -0.5, 0}},
    {"a negative one is the largest", {-4, 2, 2, -1}, {-0.25, -0.5, 0.5, 0}},
};

TYPED_TEST(QelMatrixInvert, OfASingularMatrixKeepsWhatTheStepsBeforeMadeOfIt) {
    for (const SingularCase& singular : kSingularCases) {
        matrix<TypeParam> m(2, 2);
        std::vector<TypeParam> left;
        for (std::size_t index = 0; index < 4; ++index) {
            const auto place = static_cast<std::int32_t>(index);
            m.setElement(place / 2, place % 2, static_cast<TypeParam>(singular.given[index]));
            left.push_back(static_cast<TypeParam>(singular.left[index]));
        }
        matrix<TypeParam> inverse;
        EXPECT_EQ(printedBy([&] { inverse = m.inverse(); }), kNoInverse) << singular.name;
        EXPECT_EQ(valuesOf(inverse), left) << singular.name;
        bool done = true;
        EXPECT_EQ(printedBy([&] { done = m.invert(); }), kNoInverse) << singular.name;
        EXPECT_FALSE(done) << singular.name;
        EXPECT_EQ(valuesOf(m), left) << singular.name;
    }
}

TYPED_TEST(QelMatrixInvert, FindsNoPivotAmongNaNs) {
    matrix<TypeParam> m(2, 2);
    for (std::int32_t place = 0; place < 4; ++place) {
        m.setElement(place / 2, place % 2, std::numeric_limits<TypeParam>::quiet_NaN());
    }
    bool done = true;
    EXPECT_EQ(printedBy([&] { done = m.invert(); }), kNoInverse);
    EXPECT_FALSE(done);
}

TYPED_TEST(QelMatrixInvert, PrintsNothingWhenItSucceeds) {
    matrix<TypeParam> m = anyMatrix<TypeParam>(4, 4, 41);
    bool done = false;
    EXPECT_EQ(printedBy([&] { done = m.invert(); }), "");
    EXPECT_TRUE(done);
}

TEST(QelMatrixInvertInSinglePrecision, TakesTheSmallestNumbersForPivotsToo) {
    // Its square, or its magnitude in a coarser type, would be zero.
    constexpr float kSmall = 1e-38F;
    matrix<float> m(1, 1);
    m.setElement(0, 0, kSmall);
    EXPECT_TRUE(m.invert());
    EXPECT_EQ(m.element(0, 0), static_cast<float>(1.0 / static_cast<double>(kSmall)));
}

TEST(QelMatrixInvertInSinglePrecision, RoundsEveryStepToFloat) {
    // Eliminated by hand, with the pivots in place; the values are not exact, so another order shows.
    const float a[2][2] = {{3.0F, 0.1F}, {0.7F, 1.3F}};
    matrix<float> m = filled<float>(2, 2, {3.0, 0.0, 0.0, 0.0});
    m.setElement(0, 1, a[0][1]);
    m.setElement(1, 0, a[1][0]);
    m.setElement(1, 1, a[1][1]);
    const float p = static_cast<float>(1.0 / static_cast<double>(a[0][0]));
    const float right = a[0][1] * p;
    const float corner = a[1][1] - right * a[1][0];
    const float below = -(p * a[1][0]);
    const float q = static_cast<float>(1.0 / static_cast<double>(corner));
    const float belowDone = below * q;
    const float first = p - belowDone * right;
    ASSERT_TRUE(m.invert());
    EXPECT_EQ(valuesOf(m), (std::vector<float>{first, -(q * right), belowDone, q}));
}

}  // namespace
}  // namespace qel::test
