#include <cmath>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"

namespace {

/// Direction components below this, in model units, count as zero.
constexpr double kFlat = 1e-6;

}  // namespace

CQelTrackBall::CQelTrackBall() = default;

CQelTrackBall::~CQelTrackBall() {
    holdDisplay(nullptr);
}

void CQelTrackBall::holdDisplay(IQelDisplay* newDisplay) {
    IQelDisplay* const old = display;
    if (newDisplay != nullptr && newDisplay != owner) {
        newDisplay->ref();
    }
    display = newDisplay;
    if (old != nullptr && old != owner) {
        old->unref();
    }
}

std::int32_t CQelTrackBall::setDisplay(IQelDisplay* newDisplay) {
    if (newDisplay != display) {
        holdDisplay(newDisplay);
        if (ownerDetached) {
            // The cached values belong to the destroyed context.
            held.setDirty();
            ownerDetached = false;
        }
    }
    return 0;
}

void CQelTrackBall::setOwner(IQelDisplay* newOwner) {
    owner = newOwner;
}

void CQelTrackBall::detachOwner() {
    if (display == owner) {
        display = nullptr;
    }
    owner = nullptr;
    ownerDetached = display == nullptr;
}

IQelDisplay* CQelTrackBall::getDisplay() {
    return display;
}

std::int32_t CQelTrackBall::onButtonUp() {
    drag.button = qel::DragNone;
    return 1;
}

std::int32_t CQelTrackBall::getDragButton() {
    return drag.button;
}

std::int32_t CQelTrackBall::isBusy() {
    return 0;
}

std::int32_t CQelTrackBall::getMode() {
    return -1;
}

qel::Enve3d CQelTrackBall::getExtent() {
    return extent;
}

bool CQelTrackBall::isOrtho() {
    return ortho;
}

bool CQelTrackBall::isPlanView() {
    const qel::XPnt3d direction = eye - target;
    return ortho && std::fabs(direction.x) < kFlat && std::fabs(direction.y) < kFlat &&
           std::fabs(direction.z) > kFlat;
}

bool CQelTrackBall::isLevelView() {
    return ortho && std::fabs(eye.z - target.z) < kFlat;
}

std::int32_t CQelTrackBall::setOverlayOption(bool show) {
    overlayOption = show;
    return 0;
}

bool CQelTrackBall::getOverlayOption() {
    return overlayOption;
}

double CQelTrackBall::getFieldOfView() {
    return fovY;
}

double CQelTrackBall::getNearPlane() {
    return zNear;
}

std::int32_t CQelTrackBall::setNearPlane(double distance) {
    if (qel::areFinite(distance)) {
        zNear = distance;
    }
    return 0;
}

double CQelTrackBall::getFarPlane() {
    return zFar;
}

std::int32_t CQelTrackBall::setFarPlane(double distance) {
    if (qel::areFinite(distance)) {
        zFar = distance;
    }
    return 0;
}

qel::XPnt3d CQelTrackBall::getEye() {
    return eye;
}

qel::XPnt3d CQelTrackBall::getUp() {
    return up;
}

qel::XPnt3d CQelTrackBall::getTarget() {
    return target;
}

float CQelTrackBall::getWidth() {
    return viewWidth;
}

float CQelTrackBall::getHeight() {
    return viewHeight;
}
