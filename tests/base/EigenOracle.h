#pragma once

#include <cstdint>
#include <vector>

#include "XPnt3d.h"

/// Eigen's linear algebra, for tests to compare with. Eigen takes long to compile, so one source alone
/// includes it.

namespace qel::test {

/// A matrix, row after row.
using Rows = std::vector<double>;

Rows productOf(const Rows& a, std::int32_t rowsOfA, const Rows& b);
/// Of a square matrix.
Rows inverseOf(const Rows& matrix);
/// The root of the sum of all squares.
double normOf(const Rows& matrix);
/// Of entries in the same place.
double largestDifference(const Rows& a, const Rows& b);

/// 4 x 4.
Rows identity();
/// 4 x 4, for column vectors.
Rows turnAbout(double x, double y, double z, double radians);
/// 3 x 3, for column vectors, of a quaternion of any length.
Rows turnOf(double w, double x, double y, double z);

/// How far the point lies in front of the plane through three points, which face counter-clockwise.
double heightAbove(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& point);
/// Where the infinite line meets the plane through three points.
XPnt3d meetingPoint(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& from, const XPnt3d& to);

}  // namespace qel::test
