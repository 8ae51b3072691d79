#include <algorithm>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"

namespace {

/// The unit of `pan`: hundredths of the view.
constexpr float kPanSteps = 100.0F;
/// Distance of the eye in `lookAtTriangle`, in model units.
constexpr double kTriangleDistance = 50.0;

}  // namespace

std::int32_t CQelTrackBall::setCamera(qel::XPnt3d newEye, qel::XPnt3d newTarget, qel::XPnt3d newUp) {
    if (!qel::isFinite(newEye) || !qel::isFinite(newTarget) || !qel::isFinite(newUp)) {
        return 0;
    }
    eye = newEye;
    target = newTarget;
    up = newUp;
    updateView();
    return 0;
}

bool CQelTrackBall::placeEyeAndTarget(const qel::XPnt3d& newEye, const qel::XPnt3d& newTarget) {
    const bool isFinite = qel::isFinite(newEye) && qel::isFinite(newTarget);
    if (isFinite) {
        eye = newEye;
        target = newTarget;
    }
    return isFinite;
}

void CQelTrackBall::moveEyeAndTarget(const qel::XPnt3d& delta) {
    // In place, so that a point marked invalid stays invalid.
    qel::XPnt3d newEye = eye;
    qel::XPnt3d newTarget = target;
    placeEyeAndTarget(newEye += delta, newTarget += delta);
}

std::int32_t CQelTrackBall::updateViewAndSphere() {
    updateView();
    updateSphereRadius();
    return 1;
}

std::int32_t CQelTrackBall::moveBy(double dx, double dy, double dz) {
    if (!qel::areFinite(dx, dy, dz)) {
        return 1;
    }
    moveEyeAndTarget({-dx, -dy, -dz});
    return updateViewAndSphere();
}

std::int32_t CQelTrackBall::pan(double dx, double dy) {
    if (!qel::areFinite(dx, dy)) {
        return 1;
    }
    const double step = static_cast<double>(std::min(viewWidth, viewHeight) / kPanSteps);
    const double right = dx * step;
    const double upward = -(dy * step);
    qel::XPnt3d side = qel::cross(eye - target, up);
    side.normalize();
    moveEyeAndTarget(side * right + up * upward);
    return updateViewAndSphere();
}

// The sum of the corners, not their mean, and the view is not loaded: existing hosts rely on both.
std::int32_t CQelTrackBall::lookAtTriangle(const qel::PNT3D& p1, const qel::PNT3D& p2, const qel::PNT3D& p3) {
    const qel::XPnt3d first(p1.x, p1.y, p1.z);
    const qel::XPnt3d second(p2.x, p2.y, p2.z);
    const qel::XPnt3d third(p3.x, p3.y, p3.z);
    const qel::XPnt3d sum = first + second + third;
    qel::XPnt3d normal = qel::cross(second - first, third - second);
    normal.normalize();
    if (!qel::isFinite(sum) || !qel::isFinite(normal)) {
        return 1;
    }
    target = sum;
    eye = target + normal * kTriangleDistance;
    return 1;
}
