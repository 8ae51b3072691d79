#pragma once

#include "QelBaseExport.h"
#include "XPnt3d.h"

namespace qel {

/// A 4x4 matrix of doubles that acts on column points, with the translation in the fourth column. A default
/// matrix is the identity.
struct QEL_BASE_API QelMatrix4d {
    /// Elements by row, then column.
    double element[4][4] = {
        {1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
};

/// The transformed point: M x (x, y, z, 1). The fourth component is dropped without a division, since the
/// matrices of this library are affine.
[[nodiscard]] QEL_BASE_API XPnt3d operator*(const QelMatrix4d& matrix, const XPnt3d& point) noexcept;

}  // namespace qel
