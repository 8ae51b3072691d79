#pragma once

#include <vector>

#include "SceneParts.h"

namespace qelview {

/// The ground of the sample scene: a block of hills, 24 by 18 units, with z upwards.

inline constexpr double kLandHalfWidth = 12.0;
inline constexpr double kLandHalfDepth = 9.0;
/// z of the lower side of the block.
inline constexpr double kLandFloor = -1.4;

/// z of the ground at (x, y).
[[nodiscard]] double groundHeight(double x, double y);

/// (x, y) on the ground, or `lift` above it.
[[nodiscard]] qel::XPnt3d onGround(double x, double y, double lift = 0.0);

/// The surface: indexed, smooth, coloured by height.
[[nodiscard]] TriangleMesh makeGround();

/// The cut sides and the floor of the block: triangle by triangle, with the layers of the soil.
[[nodiscard]] TriangleMesh makeBlockSides();

/// Lines of equal height.
/// @param isIndex whether the lines of every fifth level are wanted, or those of the levels between.
[[nodiscard]] std::vector<Points> makeContours(bool isIndex);

}  // namespace qelview
