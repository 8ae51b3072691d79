#include <cmath>
#include <numbers>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelGl.h"
#include "QelQuad.h"

std::int32_t CQelTrackBall::onResize(std::uint32_t width, std::uint32_t height) {
    // The next float is 2^31, which OpenGL would receive as a negative size.
    constexpr std::uint32_t kLargest = 2147483520;
    if (width == 0 || height == 0 || width > kLargest || height > kLargest) {
        return 1;
    }
    makeDisplayCurrent();
    CQelTrackBall::setViewport(0, 0, static_cast<std::int32_t>(width), static_cast<std::int32_t>(height));
    viewWidth = static_cast<float>(width);
    viewHeight = static_cast<float>(height);
    aspect = static_cast<double>(viewWidth / viewHeight);
    updateOrthoBox(false);
    updateView();
    updateSphereRadius();
    return 1;
}

std::int32_t CQelTrackBall::updateView() {
    applyProjection();
    applyModelview();
    return 1;
}

std::int32_t CQelTrackBall::applyProjection() {
    if (ownerDetached) {
        return 0;
    }
    makeDisplayCurrent();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    if (ortho) {
        glOrtho(orthoBox.left, orthoBox.right, orthoBox.bottom, orthoBox.top, orthoBox.nearDistance,
                orthoBox.farDistance);
    } else {
        gluPerspective(fovY, aspect, zNear, zFar);
    }
    held.projectionDirty = true;
    return 0;
}

std::int32_t CQelTrackBall::applyModelview() {
    if (ownerDetached) {
        return 0;
    }
    makeDisplayCurrent();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(eye.x, eye.y, eye.z, target.x, target.y, target.z, up.x, up.y, up.z);
    held.modelviewDirty = true;
    return 0;
}

// applyModelview restores the mono view. The cached model-view stays the mono one meanwhile, so picking does
// not depend on the eye drawn last.
std::int32_t CQelTrackBall::applyStereoModelview(double offset) {
    if (ownerDetached || !qel::areFinite(offset)) {
        return 0;
    }
    const qel::XPnt3d direction = eye - target;
    // An eye at its target has no direction to rotate; atan(0 / 0) would be NaN.
    const double distance = direction.norm();
    const double angle = distance > 0.0 ? std::atan(offset / distance) : 0.0;
    qel::QelQuad turn(1.0, 0.0, 0.0, 0.0);
    turn.rotate(static_cast<float>(up.x), static_cast<float>(up.y), static_cast<float>(up.z), angle);
    const qel::XPnt3d turned = turn.toMatrix() * direction + target;
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(turned.x, turned.y, turned.z, target.x, target.y, target.z, up.x, up.y, up.z);
    return 0;
}

std::int32_t CQelTrackBall::setOrtho() {
    // The box that keeps the apparent size needs the depth of a drawn frame: refreshDepth builds it.
    orthoPending = !ortho;
    ortho = true;
    updateView();
    return 1;
}

std::int32_t CQelTrackBall::setPerspective() {
    ortho = false;
    updateView();
    return 1;
}

std::int32_t CQelTrackBall::setFieldOfView(double degrees) {
    if (!qel::areFinite(degrees)) {
        return 0;
    }
    fovY = degrees;
    updateOrthoBox(false);
    held.projectionDirty = true;
    updateView();
    updateSphereRadius();
    return 0;
}

double CQelTrackBall::tanHalfFieldOfView() const {
    return std::tan(fovY * 0.5 * std::numbers::pi / 180.0);
}

std::int32_t CQelTrackBall::updateOrthoBox(bool fromExtent) {
    double distance = qel::dist(eye, extent.MidPoint());
    if (!fromExtent) {
        // The first call computes the mean of a new depth copy; the second returns it as stored, in single
        // precision.
        static_cast<void>(getMeanDepth());
        const double depth = getMeanDepth();
        const qel::XPnt3d middle = unProjectOfView(static_cast<double>(viewWidth * 0.5F),
                                                   static_cast<double>(viewHeight * 0.5F), depth);
        // Matrices with numbers that OpenGL cannot hold give no distance. The extent does, and the box built
        // from it replaces them.
        if (qel::isFinite(middle)) {
            distance = qel::dist(eye, middle);
        }
    }
    const double halfHeight = std::tan(fovY * std::numbers::pi / 180.0 * 0.5) * distance;
    const double halfWidth = halfHeight * aspect;
    // An angle without a finite tangent, or a scene out of range, leaves the box unchanged.
    if (qel::areFinite(halfWidth, halfHeight)) {
        orthoBox = {-halfWidth, halfWidth, -halfHeight, halfHeight, zNear, zFar};
    }
    return 0;
}

double CQelTrackBall::viewSpanAtCenter() {
    return viewSpanAtDepth(isOrtho() ? 0.0 : projectPnt(rotationCenter).z);
}

double CQelTrackBall::viewSpanAtDepth(double depth) {
    if (isOrtho()) {
        return orthoBox.right - orthoBox.left;
    }
    const qel::XPnt3d corner = unProjectOfView(0.0, 0.0, depth);
    // The view's width, along the window's y axis: pixels are square, so both axes measure the same.
    const qel::XPnt3d across = unProjectOfView(0.0, static_cast<double>(viewWidth), depth);
    return qel::dist(corner, across);
}

float CQelTrackBall::getPixelsPerUnit() {
    const double span = viewSpanAtCenter();
    const float inPixels = isOrtho() ? static_cast<float>(static_cast<double>(viewWidth) / span)
                                     : viewWidth / static_cast<float>(span);
    // The pixels of a view without a size cover nothing.
    return qel::areFinite(inPixels) ? inPixels : 0.0F;
}
