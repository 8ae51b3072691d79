#include <cmath>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "detail/QelTruncate.h"

namespace {

/// Length in pixels of a zoom drag that reaches the scene.
constexpr double kZoomDragPixels = 800.0;
constexpr double kLargestMotion = 1000.0;
/// Number of full dolly steps from one end of the model to the other.
constexpr double kDollySteps = 150.0;
constexpr int kMotionAxes = 6;

}  // namespace

std::int32_t CQelTrackBall::onButtonDown(std::int32_t button, std::int32_t x, std::int32_t y) {
    return onButtonDown(button, static_cast<double>(x), static_cast<double>(y));
}

std::int32_t CQelTrackBall::onButtonDown(std::int32_t button, double x, double y) {
    if (!qel::areFinite(x, y)) {
        return 1;
    }
    drag.lastMouse = {x, y};
    drag.pressMouse = {x, y};
    drag.button = button;
    if (button == qel::DragNone) {
        return 1;
    }
    double vector[3] = {};
    mapToSphere(x, y, vector);
    // Another view's context may be current at the press.
    makeDisplayCurrent();
    getModelViewMatrix(drag.pressInverse);
    drag.pressInverse.invert();
    // Directions only: eye space to model space without the translation.
    for (std::int32_t column = 0; column < 3; ++column) {
        drag.pressInverse.setElement(3, column, 0.0);
    }
    drag.sphereStart = qel::transformPoint({vector[0], vector[1], vector[2]}, drag.pressInverse);
    drag.eye = eye;
    drag.target = target;
    drag.up = up;
    return 1;
}

std::int32_t CQelTrackBall::onMouseMove(std::int32_t x, std::int32_t y) {
    return onMouseMove(static_cast<double>(x), static_cast<double>(y));
}

std::int32_t CQelTrackBall::onMouseMove(double x, double y) {
    if (drag.button == qel::DragNone || !qel::areFinite(x, y)) {
        return 1;
    }
    switch (drag.button) {
        case qel::DragPan:
            panTo(x, y);
            break;
        case qel::DragRotate:
            rotateTo(x, y);
            break;
        case qel::DragZoom: {
            const double moved = static_cast<double>(static_cast<float>(y - drag.lastMouse.y));
            // The first point pressed stays the aim for the whole drag.
            zoomAt(static_cast<float>(moved / kZoomDragPixels), qel::truncateToInt(drag.pressMouse.x),
                   qel::truncateToInt(drag.pressMouse.y));
            break;
        }
        default:
            break;
    }
    drag.lastMouse = {x, y};
    return 1;
}

void CQelTrackBall::panTo(double x, double y) {
    const float unitsPerPixel = static_cast<float>(viewSpanAtCenter()) / viewWidth;
    // A view without a size has no pixels to pan by.
    if (!qel::areFinite(unitsPerPixel)) {
        return;
    }
    qel::XPnt3d forward = target - eye;
    forward.normalize();
    qel::XPnt3d right = qel::cross(forward, up);
    right.normalize();
    qel::XPnt3d upward = up;
    upward.normalize();
    const Place scale = windowScale();
    const float alongX =
        static_cast<float>(qel::truncateToInt(x - drag.lastMouse.x) / scale.x) * unitsPerPixel;
    const float alongY =
        static_cast<float>(qel::truncateToInt(y - drag.lastMouse.y) / scale.y) * unitsPerPixel;
    const qel::XPnt3d delta = right * static_cast<double>(alongX) + upward * static_cast<double>(alongY);
    moveBy(delta.x, delta.y, delta.z);
}

std::int32_t CQelTrackBall::applyMotion(const double* values) {
    if (values == nullptr) {
        return -1;
    }
    for (int axis = 0; axis < kMotionAxes; ++axis) {
        if (!(values[axis] >= -kLargestMotion && values[axis] <= kLargestMotion)) {
            return -1;
        }
    }
    const qel::XPnt3d center = projectPnt(rotationCenter);
    onButtonDown(qel::DragRotate, center.x, center.y);
    onMouseMove(center.x + values[3], center.y + values[4]);
    onButtonUp();
    // A drag that starts outside the sphere's outline starts on its rim and rolls the view about the line of
    // sight.
    const double edge = static_cast<double>(sphereRadiusPx * 2.0F) * windowScale().x + center.x;
    onButtonDown(qel::DragRotate, edge, center.y);
    onMouseMove(edge, center.y + values[5]);
    onButtonUp();
    onButtonDown(qel::DragPan, center.x, center.y);
    onMouseMove(center.x + values[0], center.y + values[1]);
    onButtonUp();
    qel::XPnt3d inwards = rotationCenter - eye;
    inwards.normalize();
    moveEyeAndTarget(inwards * (extent.getDiagonal() / kDollySteps * values[2]));
    updateOrthoBox(false);
    return updateViewAndSphere();
}
