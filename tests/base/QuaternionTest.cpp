#include <gtest/gtest.h>

#include <Eigen/Dense>
#include <Eigen/Geometry>
#include <cmath>
#include <numbers>
#include <random>

#include "QelMatrix4d.h"
#include "QelQuad.h"

namespace qel::test {
namespace {

/// The axis reaches the quaternion in single precision; what is computed from
/// there is double.
constexpr double kRounding = 1e-12;

Eigen::Matrix4d asEigen(const QelMatrix4d& matrix) {
    Eigen::Matrix4d result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            result(row, column) = matrix.element[row][column];
        }
    }
    return result;
}

Eigen::Vector3d asEigen(const XPnt3d& point) {
    return {point.x, point.y, point.z};
}

Eigen::Matrix4d turnAbout(float x, float y, float z, double angle) {
    const Eigen::Vector3d axis =
        Eigen::Vector3d(static_cast<double>(x), static_cast<double>(y), static_cast<double>(z)).normalized();
    Eigen::Matrix4d result = Eigen::Matrix4d::Identity();
    result.topLeftCorner<3, 3>() = Eigen::AngleAxisd(angle, axis).toRotationMatrix();
    return result;
}

TEST(Matrix4d, StartsAsTheIdentity) {
    EXPECT_EQ(asEigen(QelMatrix4d()), Eigen::Matrix4d::Identity().eval());
    const XPnt3d point = QelMatrix4d() * XPnt3d(1.5, -2.5, 3.5);
    EXPECT_EQ(asEigen(point), Eigen::Vector3d(1.5, -2.5, 3.5));
}

TEST(Matrix4d, ActsOnColumnPointsWithTheTranslationInTheFourthColumn) {
    const QelMatrix4d matrix{
        {{1.0, 2.0, 3.0, 10.0}, {4.0, 5.0, 6.0, 20.0}, {7.0, 8.0, 10.0, 30.0}, {0.0, 0.0, 0.0, 1.0}}};
    const XPnt3d point = matrix * XPnt3d(1.0, -1.0, 2.0);
    EXPECT_EQ(asEigen(point), Eigen::Vector3d(15.0, 31.0, 49.0));
}

TEST(Matrix4d, IsCopiedByAssignment) {
    QelMatrix4d matrix;
    QelMatrix4d other;
    other.element[1][3] = 7.0;
    matrix = other;
    EXPECT_EQ(matrix.element[1][3], 7.0);
}

TEST(Quaternion, OneWithoutImaginaryPartsTurnsNothing) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    EXPECT_EQ(asEigen(held.toMatrix()), Eigen::Matrix4d::Identity().eval());
    EXPECT_EQ(asEigen(QelQuad().toMatrix()), Eigen::Matrix4d::Identity().eval());
}

TEST(Quaternion, TakesTheRealPartFirst) {
    const Eigen::Quaterniond expected = Eigen::Quaterniond(0.5, -0.25, 0.75, 1.25).normalized();
    const Eigen::Matrix3d actual = asEigen(QelQuad(0.5, -0.25, 0.75, 1.25).toMatrix()).topLeftCorner<3, 3>();
    EXPECT_LE((actual - expected.toRotationMatrix()).cwiseAbs().maxCoeff(), kRounding);
}

TEST(Quaternion, TurnsRightHandedAboutTheAxes) {
    struct {
        float axis[3];
        XPnt3d from;
        Eigen::Vector3d to;
    } const turns[] = {{{0.0F, 0.0F, 1.0F}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}},
                       {{1.0F, 0.0F, 0.0F}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},
                       {{0.0F, 1.0F, 0.0F}, {0.0, 0.0, 1.0}, {1.0, 0.0, 0.0}}};
    for (const auto& turn : turns) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        EXPECT_EQ(held.rotate(turn.axis[0], turn.axis[1], turn.axis[2], std::numbers::pi / 2), 1);
        EXPECT_LE((asEigen(held.toMatrix() * turn.from) - turn.to).norm(), kRounding);
    }
}

TEST(Quaternion, TakesAnAxisOfAnyLength) {
    for (const float length : {1e-6F, 1.0F, 1e6F}) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        held.rotate(length * 1.0F, length * 2.0F, length * -2.0F, 0.7);
        const Eigen::Matrix4d expected = turnAbout(length * 1.0F, length * 2.0F, length * -2.0F, 0.7);
        EXPECT_LE((asEigen(held.toMatrix()) - expected).cwiseAbs().maxCoeff(), kRounding);
    }
}

TEST(Quaternion, AZeroAxisTurnsNothing) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    held.rotate(0.0F, 0.0F, 1.0F, 0.5);
    const Eigen::Matrix4d before = asEigen(held.toMatrix());
    EXPECT_EQ(held.rotate(0.0F, 0.0F, 0.0F, 1.0), -1);
    EXPECT_EQ(asEigen(held.toMatrix()), before);
}

TEST(Quaternion, CombinesTurnsInTheOrderTheyAreMade) {
    std::mt19937 random(20);
    std::uniform_real_distribution<float> component(-1.0F, 1.0F);
    std::uniform_real_distribution<double> angle(-6.0, 6.0);
    for (int round = 0; round < 200; ++round) {
        QelQuad held(1.0, 0.0, 0.0, 0.0);
        Eigen::Matrix4d expected = Eigen::Matrix4d::Identity();
        for (int turn = 0; turn < 4; ++turn) {
            const float x = component(random);
            const float y = component(random);
            const float z = component(random);
            const double radians = angle(random);
            held.rotate(x, y, z, radians);
            expected = turnAbout(x, y, z, radians) * expected;
        }
        ASSERT_LE((asEigen(held.toMatrix()) - expected).cwiseAbs().maxCoeff(), kRounding);
    }
}

TEST(Quaternion, WritesTheSameMatrixThatItReturns) {
    QelQuad held(1.0, 0.0, 0.0, 0.0);
    held.rotate(1.0F, 2.0F, 3.0F, 1.1);
    QelMatrix4d written;
    written.element[3][0] = 99.0;
    EXPECT_EQ(held.toMatrix(written), 1);
    EXPECT_EQ(asEigen(written), asEigen(held.toMatrix()));
}

TEST(Quaternion, MayHaveAnyLength) {
    const Eigen::Matrix4d unit = asEigen(QelQuad(0.8, 0.6, 0.0, 0.0).toMatrix());
    EXPECT_LE((asEigen(QelQuad(8.0, 6.0, 0.0, 0.0).toMatrix()) - unit).cwiseAbs().maxCoeff(), kRounding);
    EXPECT_EQ(asEigen(QelQuad(0.0, 0.0, 0.0, 0.0).toMatrix()), Eigen::Matrix4d::Identity().eval());
}

}  // namespace
}  // namespace qel::test
