#pragma once

#include "Enve3d.h"

namespace qel {

/// The box with a z range: a missing one becomes z = 0.
[[nodiscard]] inline Enve3d withZRange(Enve3d box) noexcept {
    if (!box.hasZ()) {
        box.zmin = box.zmax = 0.0;
    }
    return box;
}

}  // namespace qel
