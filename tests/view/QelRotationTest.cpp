#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "MatrixHelp.h"
#include "QelMatrix.h"
#include "QelRotation.h"
#include "base/EigenOracle.h"

namespace qel::test {
namespace {

const std::vector<float> kIdentityBlock{1, 0, 0, 0, 1, 0, 0, 0, 1};

matrix<float> fourByFour() {
    return filled<float>(4, 4, {1, 2, 3, 40, 4, 5, 6, 50, 7, 8, 10, 60, 70, 80, 90, 100});
}

TEST(QelRotationScale, IsTheRootOfAThirdOfTheSumOfSquares) {
    // 1 + 4 + 9 + 16 + 25 + 36 + 49 + 64 + 100 = 304, in whole numbers a float holds.
    EXPECT_EQ(getScale(fourByFour()), std::sqrt(304.0F / 3.0F));
    matrix<float> m(3, 3);
    EXPECT_EQ(getScale(m), 0.0F);
    m.setIdentity();
    EXPECT_EQ(getScale(m), 1.0F);
    scaleRotation(m, 2.5F);
    EXPECT_EQ(getScale(m), 2.5F);
}

TEST(QelRotationScale, IsSummedInSinglePrecision) {
    // 1 is lost beside 2 to the 24th in a float; a sum in double would keep all eight.
    matrix<float> m = filled<float>(3, 3, {4096, 1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(getScale(m), std::sqrt(16777216.0F / 3.0F));
    EXPECT_NE(getScale(m), static_cast<float>(std::sqrt(16777224.0 / 3.0)));
}

TEST(QelRotationScale, MultipliesTheBlockAlone) {
    matrix<float> m = fourByFour();
    scaleRotation(m, 0.5F);
    EXPECT_EQ(valuesOf(m),
              (std::vector<float>{0.5F, 1, 1.5F, 40, 2, 2.5F, 3, 50, 3.5F, 4, 5, 60, 70, 80, 90, 100}));
}

TEST(QelRotationBlock, IsCopiedAlone) {
    matrix<float> m = fourByFour();
    copyRotation(m, filled<float>(3, 3, {-1, -2, -3, -4, -5, -6, -7, -8, -9}));
    EXPECT_EQ(valuesOf(m),
              (std::vector<float>{-1, -2, -3, 40, -4, -5, -6, 50, -7, -8, -9, 60, 70, 80, 90, 100}));
}

TEST(QelRotationBlock, IsReplacedUnderTheSameScale) {
    matrix<float> m(4, 4);
    m.setIdentity();
    scaleRotation(m, 3.0F);
    m.setElement(3, 0, 7.0F);
    const matrix<float> quarter = filled<float>(3, 3, {0, 1, 0, -1, 0, 0, 0, 0, 1});
    setRotationKeepScale(m, quarter);
    EXPECT_EQ(valuesOf(m), (std::vector<float>{0, 3, 0, 0, -3, 0, 0, 0, 0, 0, 3, 0, 7, 0, 0, 1}));
    EXPECT_EQ(getScale(m), 3.0F);
}

matrix<float> ofQuat(float x, float y, float z, float w) {
    matrix<float> m(3, 3);
    setRotationFromQuat(m, {x, y, z, w});
    return m;
}

TEST(QelRotationFromQuaternion, OfZeroIsTheIdentity) {
    EXPECT_EQ(valuesOf(ofQuat(0, 0, 0, 0)), kIdentityBlock);
    EXPECT_EQ(valuesOf(ofQuat(0, 0, 0, 1)), kIdentityBlock);
    EXPECT_EQ(valuesOf(ofQuat(0, 0, 0, -5)), kIdentityBlock);
}

TEST(QelRotationFromQuaternion, TurnsRowVectors) {
    // A quarter about z turns x to y; for row vectors the image of x is the first row.
    const matrix<float> quarter = ofQuat(0, 0, 1, 1);
    EXPECT_EQ(valuesOf(quarter), (std::vector<float>{0, 1, 0, -1, 0, 0, 0, 0, 1}));
    // A third of a turn about the diagonal: x to y, y to z, z to x.
    EXPECT_EQ(valuesOf(ofQuat(0.5F, 0.5F, 0.5F, 0.5F)), (std::vector<float>{0, 1, 0, 0, 0, 1, 1, 0, 0}));
}

TEST(QelRotationFromQuaternion, AgreesWithAnotherLibraryWhateverTheLength) {
    std::mt19937 random(50);
    std::uniform_real_distribution<float> component(-1.0F, 1.0F);
    for (int round = 0; round < 500; ++round) {
        const float x = component(random);
        const float y = component(random);
        const float z = component(random);
        const float w = component(random);
        // Its rows turn row vectors, so it is the turn the other way.
        const Rows expected = turnOf(static_cast<double>(w), static_cast<double>(-x), static_cast<double>(-y),
                                     static_cast<double>(-z));
        ASSERT_LE(largestDifference(rowsOf(ofQuat(x, y, z, w)), expected), 1e-6);
    }
}

TEST(QelRotationFromQuaternion, MeasuresItsLengthInSinglePrecision) {
    // The squares do not fit a float: too large ones turn nothing, and so do those that vanish.
    EXPECT_EQ(valuesOf(ofQuat(1e20F, 0, 0, 1e20F)), kIdentityBlock);
    EXPECT_EQ(valuesOf(ofQuat(1e-25F, 0, 0, 1e-25F)), kIdentityBlock);
}

TEST(QelRotationFromQuaternion, IsRoundedToFloatAtEveryStep) {
    const float x = 0.1F;
    const float y = -0.7F;
    const float z = 0.3F;
    const float w = 0.9F;
    const float n = x * x + y * y + z * z + w * w;
    const float s = static_cast<float>(2.0 / static_cast<double>(n));
    const float xz = x * (z * s);
    const float wy = w * (y * s);
    const float xx = x * (x * s);
    const float yy = y * (y * s);
    const matrix<float> m = ofQuat(x, y, z, w);
    EXPECT_EQ(m.element(2, 0), xz + wy);
    EXPECT_EQ(m.element(0, 2), xz - wy);
    EXPECT_EQ(m.element(2, 2), static_cast<float>(1.0 - static_cast<double>(yy + xx)));
}

TEST(QelRotationFromQuaternion, TransposesTheWholeMatrix) {
    matrix<float> m = fourByFour();
    setRotationFromQuat(m, {0, 0, 0, 1});
    EXPECT_EQ(valuesOf(m), (std::vector<float>{1, 0, 0, 70, 0, 1, 0, 80, 0, 0, 1, 90, 40, 50, 60, 100}));
}

TEST(QelRotationFromQuaternion, WritesOnlyWhatTheMatrixHas) {
    matrix<float> m(2, 4);
    setRotationFromQuat(m, {0, 0, 1, 1});
    EXPECT_EQ(m.rowCount(), 4);
    EXPECT_EQ(m.columnCount(), 2);
    EXPECT_EQ(valuesOf(m), (std::vector<float>{0, 1, -1, 0, 0, 0, 0, 0}));
}

TEST(QelRotationFromQuaternion, DetachesFromASharedBuffer) {
    matrix<float> m(3, 3);
    const SharedBuffer<float> shared(m);
    setRotationFromQuat(m, {0, 0, 0, 1});
    EXPECT_EQ(valuesOf(m), kIdentityBlock);
    EXPECT_EQ(shared.elements()[0], 0.0F);
}

}  // namespace
}  // namespace qel::test
