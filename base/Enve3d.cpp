#include "Enve3d.h"

#include <cmath>
#include <utility>

#include "detail/EnvelopeBounds.h"

namespace qel {

namespace {

void orderBounds(double& lower, double& upper) noexcept {
    if (lower > upper) {
        std::swap(lower, upper);
    }
}

void moveBounds(double& lower, double& upper, double distance) noexcept {
    lower += distance;
    upper += distance;
}

}  // namespace

void Enve3d::setInvalid() noexcept {
    xmin = ymin = zmin = kUnsetLower;
    xmax = ymax = zmax = kUnsetUpper;
}

bool Enve3d::hasZ() const noexcept {
    return !isUnsetRange(zmin, zmax);
}

void Enve3d::SetBox(const XPnt3d& point) noexcept {
    if (!point.isValid() || !(point.x == point.x && point.y == point.y && point.z == point.z)) {
        return;
    }
    if (!isValid()) {
        *this = {point.x, point.x, point.y, point.y, point.z, point.z};
        return;
    }
    growBounds(xmin, xmax, point.x);
    growBounds(ymin, ymax, point.y);
    if (hasZ()) {
        growBounds(zmin, zmax, point.z);
    } else {
        zmin = zmax = point.z;
    }
}

void Enve3d::Normalize() noexcept {
    orderBounds(xmin, xmax);
    orderBounds(ymin, ymax);
    if (hasZ()) {
        orderBounds(zmin, zmax);
    }
}

void Enve3d::offset(double dx, double dy, double dz) noexcept {
    moveBounds(xmin, xmax, dx);
    moveBounds(ymin, ymax, dy);
    if (hasZ()) {
        moveBounds(zmin, zmax, dz);
    }
}

XPnt3d Enve3d::MidPoint() const noexcept {
    return {(xmin + xmax) * 0.5, (ymin + ymax) * 0.5, hasZ() ? (zmin + zmax) * 0.5 : 0.0};
}

double Enve3d::getDiagonal() const noexcept {
    return std::hypot(Width(), HightY(), hasZ() ? zmax - zmin : 0.0);
}

}  // namespace qel
