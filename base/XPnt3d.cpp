#include "XPnt3d.h"

#include <cmath>
#include <limits>

#include "XPnt2d.h"
#include "XPnt3f.h"

namespace qel {

XPnt3d::XPnt3d(const XPnt3f& point) noexcept
    : x(static_cast<double>(point.x)), y(static_cast<double>(point.y)), z(static_cast<double>(point.z)) {}

XPnt2d XPnt3d::to2d() const noexcept {
    return {x, y};
}

XPnt3d& XPnt3d::normalize() noexcept {
    const double length = norm();
    if (length > 0.0 && std::isfinite(length)) {
        x /= length;
        y /= length;
        z /= length;
    }
    return *this;
}

// std::hypot does not overflow or underflow in between: a vector of length 1e200 keeps its length.
double XPnt3d::norm() const noexcept {
    // Of an infinite coordinate some C++ libraries make a NaN.
    const bool isInfinite = std::isinf(x) || std::isinf(y) || std::isinf(z);
    return isInfinite ? std::numeric_limits<double>::infinity() : std::hypot(x, y, z);
}

double XPnt3d::norm_2d() const noexcept {
    return std::hypot(x, y);
}

double dist(const XPnt3d& a, const XPnt3d& b) noexcept {
    return (a - b).norm();
}

}  // namespace qel
