#pragma once

#include "QelMatrix.h"

namespace qel {

/// A rotation as a quaternion of floats, real part last. It need not have unit length.
struct QuatF {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    float w = 0.0F;
};

// All of these work on the upper-left 3 x 3 block of a matrix of at least 3 x 3.

/// The uniform scale of the block: the root of a third of its sum of squares.
[[nodiscard]] float getScale(const matrix<float>& m);
/// Multiplies the block by a factor.
void scaleRotation(matrix<float>& m, float scale);
/// Copies the block of `rotation` into `m`.
void copyRotation(matrix<float>& m, const matrix<float>& rotation);
/// Replaces the block of `m` by that of `rotation`, keeping the uniform scale of `m`.
void setRotationKeepScale(matrix<float>& m, const matrix<float>& rotation);
/// Writes the rotation of a quaternion into the block, then transposes the whole matrix, so that it rotates
/// row vectors. The zero quaternion gives the identity block.
void setRotationFromQuat(matrix<float>& m, const QuatF& quat);

}  // namespace qel
