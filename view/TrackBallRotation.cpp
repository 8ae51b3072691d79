#include <algorithm>
#include <cmath>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelRotation.h"

namespace {

/// Vectors of the sphere closer together than this cause no rotation.
constexpr double kNoTurn = 1e-5;
/// Positions beyond this, in radii of the sphere, are moved to it: their squares still fit a float.
constexpr double kFarthestOut = 1e18;

/// A distance in pixels relative to the sphere's radius. A sphere of radius 0 has only a rim: any scale gives
/// its direction.
double inRadii(double distance, double radius) {
    const double share = distance / (radius > 0.0 ? radius : 1e-3);
    return std::isnan(share) ? 0.0 : std::clamp(share, -kFarthestOut, kFarthestOut);
}

}  // namespace

std::int32_t CQelTrackBall::updateSphereRadius() {
    // Orthographic views need no depth, but projecting makes the camera read the new matrices back now; later
    // OpenGL may hold the host's pixel coordinates.
    const double depth = projectPnt(rotationCenter).z;
    const float halfDiagonal = static_cast<float>(extent.getDiagonal() * 0.5);
    const float span = static_cast<float>(viewSpanAtDepth(depth));
    const float radius = span * 0.5F > halfDiagonal ? halfDiagonal : span * 0.5F;
    const float radiusPx = radius * viewWidth / span;
    // A view without a size has no sphere; the next resize computes one.
    if (qel::areFinite(span, radiusPx)) {
        sphereRadius = radius;
        sphereRadiusPx = radiusPx;
    }
    return 0;
}

std::int32_t CQelTrackBall::setRotationCenter(double x, double y, double z) {
    if (!qel::areFinite(x, y, z)) {
        return 1;
    }
    rotationCenter.set(x, y, z);
    updateSphereRadius();
    return 1;
}

std::int32_t CQelTrackBall::setRotationCenterAt(std::int32_t x, std::int32_t y) {
    const qel::XPnt3d point = pickModelPnt(static_cast<double>(x), static_cast<double>(y));
    return setRotationCenter(point.x, point.y, point.z);
}

void CQelTrackBall::mapToSphere(double x, double y, double* vector) {
    const qel::XPnt3d center = projectPnt(rotationCenter);
    const double radius = static_cast<double>(sphereRadiusPx);
    const Place scale = windowScale();
    const double px = inRadii((x - center.x) / scale.x, radius);
    const double py = inRadii((y - center.y) / scale.y, radius);
    const double squared = px * px + py * py;
    if (squared > 1.0) {
        const float length = std::sqrt(static_cast<float>(squared));
        const double shrink = static_cast<double>(1.0F / length);
        vector[0] = px * shrink;
        vector[1] = py * shrink;
        vector[2] = 0.0;
    } else {
        vector[0] = px;
        vector[1] = py;
        vector[2] = static_cast<double>(std::sqrt(static_cast<float>(1.0 - squared)));
    }
}

void CQelTrackBall::rotateTo(double x, double y) {
    // Back at the press means no rotation, although the projected centre, which OpenGL computes in single
    // precision, has moved slightly with the camera.
    if (x == drag.pressMouse.x && y == drag.pressMouse.y) {
        drag.sphereCurrent = drag.sphereStart;
    } else {
        double vector[3] = {};
        mapToSphere(x, y, vector);
        drag.sphereCurrent = qel::transformPoint({vector[0], vector[1], vector[2]}, drag.pressInverse);
    }
    const qel::XPnt3d axis = qel::cross(drag.sphereStart, drag.sphereCurrent);
    qel::QuatF quat;
    if (qel::dist(axis, qel::XPnt3d()) > kNoTurn) {
        // Not normalised: for two unit vectors this is the unit quaternion of twice the angle between them,
        // so a drag across the whole sphere rotates the model by a full turn.
        quat = {static_cast<float>(axis.x), static_cast<float>(axis.y), static_cast<float>(axis.z),
                static_cast<float>(qel::dot(drag.sphereCurrent, drag.sphereStart))};
    }
    // A camera whose matrix cannot be inverted does not rotate; the result would be NaN.
    if (!qel::areFinite(quat.x, quat.y, quat.z, quat.w)) {
        quat = {};
    }
    qel::setRotationFromQuat(drag.turnOfMove, quat);
    // Without the scale: a drag only rotates.
    qel::copyRotation(drag.rotation, drag.turnOfMove);
    applyDragRotation();
    updateView();
}

std::int32_t CQelTrackBall::applyDragRotation() {
    // Always from the camera at the press, so that errors do not accumulate over a drag.
    const qel::XPnt3d center = rotationCenter;
    drag.rotation.transpose();
    qel::XPnt3d newUp = qel::transformPoint(drag.up, drag.rotation);
    newUp.normalize();
    const bool isPlaced =
        placeEyeAndTarget(qel::transformPoint(drag.eye - center, drag.rotation) + center,
                          qel::transformPoint(drag.target - center, drag.rotation) + center);
    if (isPlaced && qel::isFinite(newUp)) {
        up = newUp;
    }
    drag.rotation.transpose();
    drag.inverse = drag.rotation;
    drag.inverse.invert();
    drag.sphereStartView = qel::transformPoint(drag.sphereStart, drag.inverse);
    drag.sphereCurrentView = qel::transformPoint(drag.sphereCurrent, drag.inverse);
    return 1;
}
