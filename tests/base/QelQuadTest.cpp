#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <numbers>
#include <random>

#include "EigenOracle.h"
#include "QelMatrix4d.h"
#include "QelQuad.h"

namespace qel::test {
namespace {

/// The axis reaches the quaternion in single precision; what is computed from there is double.
constexpr double kRounding = 1e-12;

Rows rowsOf(const QelMatrix4d& matrix) {
    Rows rows;
    for (const auto& row : matrix.element) {
        rows.insert(rows.end(), std::begin(row), std::end(row));
    }
    return rows;
}

TEST(QelMatrix4d, StartsAsTheIdentity) {
    EXPECT_EQ(rowsOf(QelMatrix4d()), identity());
    const XPnt3d point = QelMatrix4d() * XPnt3d(1.5, -2.5, 3.5);
    EXPECT_EQ(dist(point, {1.5, -2.5, 3.5}), 0.0);
}

TEST(QelMatrix4d, ActsOnColumnPointsWithTheTranslationInTheFourthColumn) {
    const QelMatrix4d matrix{
        {{1.0, 2.0, 3.0, 10.0}, {4.0, 5.0, 6.0, 20.0}, {7.0, 8.0, 10.0, 30.0}, {0.0, 0.0, 0.0, 1.0}}};
    const XPnt3d point = matrix * XPnt3d(1.0, -1.0, 2.0);
    EXPECT_EQ(dist(point, {15.0, 31.0, 49.0}), 0.0);
}

TEST(QelMatrix4d, IsCopiedByAssignment) {
    QelMatrix4d matrix;
    QelMatrix4d other;
    other.element[1][3] = 7.0;
    matrix = other;
    EXPECT_EQ(matrix.element[1][3], 7.0);
}

TEST(QelQuad, OneWithoutImaginaryPartsTurnsNothing) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    EXPECT_EQ(rowsOf(held.toMatrix()), identity());
    EXPECT_EQ(rowsOf(QelQuad().toMatrix()), identity());
}

TEST(QelQuad, TakesTheRealPartFirst) {
    const QelMatrix4d m = QelQuad(0.5, -0.25, 0.75, 1.25).toMatrix();
    const Rows actual = {m.element[0][0], m.element[0][1], m.element[0][2], m.element[1][0], m.element[1][1],
                         m.element[1][2], m.element[2][0], m.element[2][1], m.element[2][2]};
    EXPECT_LE(largestDifference(actual, turnOf(0.5, -0.25, 0.75, 1.25)), kRounding);
}

TEST(QelQuad, TurnsRightHandedAboutTheAxes) {
    struct {
        float axis[3];
        XPnt3d from;
        XPnt3d to;
    } const turns[] = {{{0.0F, 0.0F, 1.0F}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}},
                       {{1.0F, 0.0F, 0.0F}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},
                       {{0.0F, 1.0F, 0.0F}, {0.0, 0.0, 1.0}, {1.0, 0.0, 0.0}}};
    for (const auto& turn : turns) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        EXPECT_EQ(held.rotate(turn.axis[0], turn.axis[1], turn.axis[2], std::numbers::pi / 2), 1);
        EXPECT_LE(dist(held.toMatrix() * turn.from, turn.to), kRounding);
    }
}

TEST(QelQuad, TakesAnAxisOfAnyLength) {
    for (const float length : {1e-6F, 1.0F, 1e6F}) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        held.rotate(length * 1.0F, length * 2.0F, length * -2.0F, 0.7);
        const Rows expected =
            turnAbout(static_cast<double>(length * 1.0F), static_cast<double>(length * 2.0F),
                      static_cast<double>(length * -2.0F), 0.7);
        EXPECT_LE(largestDifference(rowsOf(held.toMatrix()), expected), kRounding);
    }
}

TEST(QelQuad, AZeroAxisTurnsNothing) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    held.rotate(0.0F, 0.0F, 1.0F, 0.5);
    const Rows before = rowsOf(held.toMatrix());
    EXPECT_EQ(held.rotate(0.0F, 0.0F, 0.0F, 1.0), -1);
    EXPECT_EQ(rowsOf(held.toMatrix()), before);
}

TEST(QelQuad, CombinesTurnsInTheOrderTheyAreMade) {
    std::mt19937 random(20);
    std::uniform_real_distribution<float> component(-1.0F, 1.0F);
    std::uniform_real_distribution<double> angle(-6.0, 6.0);
    for (int round = 0; round < 200; ++round) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        Rows expected = identity();
        for (int turn = 0; turn < 4; ++turn) {
            const float x = component(random);
            const float y = component(random);
            const float z = component(random);
            const double radians = angle(random);
            held.rotate(x, y, z, radians);
            expected = productOf(
                turnAbout(static_cast<double>(x), static_cast<double>(y), static_cast<double>(z), radians), 4,
                expected);
        }
        ASSERT_LE(largestDifference(rowsOf(held.toMatrix()), expected), kRounding);
    }
}

TEST(QelQuad, WritesTheSameMatrixThatItReturns) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    held.rotate(1.0F, 2.0F, 3.0F, 1.1);
    QelMatrix4d written;
    written.element[3][0] = 99.0;
    EXPECT_EQ(held.toMatrix(written), 1);
    EXPECT_EQ(rowsOf(written), rowsOf(held.toMatrix()));
}

TEST(QelQuad, MayHaveAnyLength) {
    const Rows unit = rowsOf(QelQuad(0.8, 0.6, 0.0, 0.0).toMatrix());
    EXPECT_LE(largestDifference(rowsOf(QelQuad(8.0, 6.0, 0.0, 0.0).toMatrix()), unit), kRounding);
    EXPECT_EQ(rowsOf(QelQuad(0.0, 0.0, 0.0, 0.0).toMatrix()), identity());
}

}  // namespace
}  // namespace qel::test
