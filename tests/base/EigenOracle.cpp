#include "EigenOracle.h"

#include <Eigen/Geometry>
#include <Eigen/LU>
#include <cmath>

namespace qel::test {
namespace {

using Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

Eigen::Map<const Matrix> asMatrix(const Rows& values, Eigen::Index rows) {
    return {values.data(), rows, static_cast<Eigen::Index>(values.size()) / rows};
}

Rows asRows(const Matrix& matrix) {
    return {matrix.data(), matrix.data() + matrix.size()};
}

Eigen::Vector3d asVector(const XPnt3d& point) {
    return {point.x, point.y, point.z};
}

}  // namespace

Rows productOf(const Rows& a, std::int32_t rowsOfA, const Rows& b) {
    const auto first = asMatrix(a, rowsOfA);
    // Without the blocks that make large products fast, which take longest to compile.
    return asRows(Matrix(first.lazyProduct(asMatrix(b, first.cols()))));
}

Rows inverseOf(const Rows& matrix) {
    const Eigen::Index size{std::lround(std::sqrt(static_cast<double>(matrix.size())))};
    return asRows(Matrix(asMatrix(matrix, size).inverse()));
}

double normOf(const Rows& matrix) {
    return asMatrix(matrix, 1).norm();
}

double largestDifference(const Rows& a, const Rows& b) {
    return (asMatrix(a, 1) - asMatrix(b, 1)).cwiseAbs().maxCoeff();
}

Rows identity() {
    return asRows(Matrix::Identity(4, 4));
}

Rows turnAbout(double x, double y, double z, double radians) {
    Matrix turn = Matrix::Identity(4, 4);
    turn.topLeftCorner<3, 3>() =
        Eigen::AngleAxisd(radians, Eigen::Vector3d(x, y, z).normalized()).toRotationMatrix();
    return asRows(turn);
}

Rows turnOf(double w, double x, double y, double z) {
    return asRows(Matrix(Eigen::Quaterniond(w, x, y, z).normalized().toRotationMatrix()));
}

double heightAbove(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& point) {
    // Eigen's own plane through three points faces the other way, so its normal is given.
    const Eigen::Vector3d normal = (asVector(b) - asVector(a)).cross(asVector(c) - asVector(a)).normalized();
    return Eigen::Hyperplane<double, 3>(normal, asVector(a)).signedDistance(asVector(point));
}

XPnt3d meetingPoint(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& from, const XPnt3d& to) {
    const auto plane = Eigen::Hyperplane<double, 3>::Through(asVector(a), asVector(b), asVector(c));
    const auto line = Eigen::ParametrizedLine<double, 3>::Through(asVector(from), asVector(to));
    const Eigen::Vector3d hit = line.intersectionPoint(plane);
    return {hit.x(), hit.y(), hit.z()};
}

}  // namespace qel::test
