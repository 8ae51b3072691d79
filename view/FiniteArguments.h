#pragma once

#include <cmath>

#include "Enve3d.h"
#include "XPnt3d.h"

namespace qel {

/// True if every number is finite. Other arguments are refused: a NaN in the camera would never leave it.
template <class... Numbers>
[[nodiscard]] bool areFinite(Numbers... numbers) {
    return (std::isfinite(numbers) && ...);
}

[[nodiscard]] inline bool isFinite(const XPnt3d& point) {
    return areFinite(point.x, point.y, point.z);
}

/// A box whose middle or diagonal overflows is as useless as one with infinite bounds.
[[nodiscard]] inline bool isFinite(const Enve3d& box) {
    return areFinite(box.xmin, box.xmax, box.ymin, box.ymax, box.zmin, box.zmax, box.getDiagonal()) &&
           isFinite(box.MidPoint());
}

}  // namespace qel
