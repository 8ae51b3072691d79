#include "QelPredicates.h"

namespace qel {

namespace {

/// Sine of the angle between a line and a plane below which rounding decides where they intersect.
constexpr double kParallelSine = 1e-12;

}  // namespace

std::int32_t isPntInFront(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& point,
                          double tolerance) noexcept {
    const XPnt3d normal = cross(a, b, c);
    const double length = normal.norm();
    if (!(length > 0.0)) {
        return 0;
    }
    return dot(normal, point - a) / length > -tolerance ? 1 : 0;
}

bool intersect(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c, const XPnt3d& p0, const XPnt3d& p1,
               XPnt3d& hit) noexcept {
    const XPnt3d normal = cross(a, b, c);
    const XPnt3d along = p1 - p0;
    const double slope = dot(normal, along);
    if (!((slope < 0.0 ? -slope : slope) > kParallelSine * normal.norm() * along.norm())) {
        return false;
    }
    hit = p0 + along * (dot(normal, a - p0) / slope);
    return true;
}

}  // namespace qel
