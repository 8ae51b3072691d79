#include "Enve2d.h"

#include "detail/EnvelopeBounds.h"

namespace qel {

void Enve2d::setInvalid() noexcept {
    xmin = ymin = kUnsetLower;
    xmax = ymax = kUnsetUpper;
}

void Enve2d::SetBox(const XPnt3d& point) noexcept {
    if (!point.isValid() || !(point.x == point.x && point.y == point.y)) {
        return;
    }
    if (!isValid()) {
        *this = Enve2d(point.x, point.y, point.x, point.y);
        return;
    }
    growBounds(xmin, xmax, point.x);
    growBounds(ymin, ymax, point.y);
}

bool Enve2d::isIntersect(const Enve2d& other) const noexcept {
    return isValid() && other.isValid() && xmin <= other.xmax && other.xmin <= xmax && ymin <= other.ymax &&
           other.ymin <= ymax;
}

}  // namespace qel
