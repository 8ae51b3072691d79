#pragma once

#include <algorithm>
#include <limits>

#include "Enve3d.h"
#include "XPnt3d.h"

namespace qelview {

/// The box of many points: faster than an envelope, which checks its validity for each.
struct Reach {
    qel::XPnt3d low{kInfinite, kInfinite, kInfinite};
    qel::XPnt3d high{-kInfinite, -kInfinite, -kInfinite};

    void include(const qel::XPnt3d& point) {
        low = qel::XPnt3d{std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
        high = qel::XPnt3d{std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
    }
    [[nodiscard]] bool isEmpty() const { return low.x > high.x; }
    void include(const Reach& other) {
        if (!other.isEmpty()) {
            include(other.low);
            include(other.high);
        }
    }
    /// Not valid if there were no points.
    [[nodiscard]] qel::Enve3d box() const {
        qel::Enve3d box;
        box.setInvalid();
        if (!isEmpty()) {
            box.SetBox(low);
            box.SetBox(high);
        }
        return box;
    }

  private:
    static constexpr double kInfinite = std::numeric_limits<double>::infinity();
};

}  // namespace qelview
