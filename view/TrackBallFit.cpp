#include <cmath>
#include <iterator>
#include <numbers>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelQuad.h"
#include "detail/FlatBox.h"

namespace {

constexpr double kNearShareOfDiagonal = 800.0;
constexpr double kFarDiagonals = 20.0;

struct StandardView {
    qel::XPnt3d eye;
    qel::XPnt3d up;
};

/// The up vector of an isometric view: the eye's direction rotated by 90 degrees about a horizontal axis.
qel::XPnt3d isometricUp(const qel::XPnt3d& eye, double side) {
    qel::XPnt3d axis(side, -side, 0.0);
    axis.normalize();
    qel::QelQuad turn(1.0, 0.0, 0.0, 0.0);
    turn.rotate(static_cast<float>(axis.x), static_cast<float>(axis.y), static_cast<float>(axis.z),
                std::numbers::pi * 0.5);
    qel::XPnt3d up = turn.toMatrix() * eye;
    return up.normalize();
}

/// A view above 7 has no row: its eye lies on its target, and the fit that follows handles that.
StandardView standardView(std::uint32_t view) {
    constexpr StandardView kAxisViews[] = {
        {{0.0, 0.0, 100.0}, {0.0, 1.0, 0.0}}, {{0.0, 0.0, -100.0}, {0.0, -1.0, 0.0}},
        {{0.0, 100.0, 0.0}, {0.0, 0.0, 1.0}}, {{0.0, -100.0, 0.0}, {0.0, 0.0, 1.0}},
        {{100.0, 0.0, 0.0}, {0.0, 0.0, 1.0}}, {{-100.0, 0.0, 0.0}, {0.0, 0.0, 1.0}},
    };
    if (view < std::size(kAxisViews)) {
        return kAxisViews[view];
    }
    if (view == qel::ViewIsometric) {
        const qel::XPnt3d eye(100.0, 100.0, 100.0);
        return {eye, isometricUp(eye, 1.0)};
    }
    if (view == qel::ViewIsometricBelow) {
        const qel::XPnt3d eye(-100.0, -100.0, -100.0);
        return {eye, isometricUp(eye, -1.0)};
    }
    return {};
}

}  // namespace

std::int32_t CQelTrackBall::setExtent(qel::Enve3d newExtent, bool zoom) {
    if (!newExtent.isValid() || !qel::isFinite(newExtent)) {
        return -1;
    }
    const bool flat = !newExtent.hasZ();
    newExtent = qel::withZRange(newExtent);
    const double diagonal = newExtent.getDiagonal();
    if (!std::isfinite(diagonal * kFarDiagonals)) {
        return -1;
    }
    extent = newExtent;
    zNear = diagonal / kNearShareOfDiagonal;
    zFar = diagonal * kFarDiagonals;
    if (zoom) {
        zoomToModel(false);
    }
    return flat ? 1 : 0;
}

std::int32_t CQelTrackBall::zoomToModel(bool precise) {
    return zoomToExtent(extent, precise);
}

std::int32_t CQelTrackBall::zoomToExtent(qel::Enve3d box, bool precise) {
    if (!box.isValid() || !qel::isFinite(box)) {
        return -1;
    }
    box = qel::withZRange(box);
    makeDisplayCurrent();
    const qel::XPnt3d middle = box.MidPoint();
    if (!placeEyeAndTarget(precise ? eyeOfPreciseFit(box, middle) : eyeOfQuickFit(box, middle), middle)) {
        return -1;
    }
    rotationCenter = middle;
    return updateViewAndSphere();
}

qel::XPnt3d CQelTrackBall::eyeOfQuickFit(const qel::Enve3d& box, const qel::XPnt3d& middle) const {
    const qel::XPnt3d from = eye.isValid() ? eye : qel::XPnt3d();
    const double distance = qel::dist(target, from);
    // An eye on its target has no direction to keep: both move to the midpoint.
    const double factor = distance > 0.0 ? box.getDiagonal() * 0.5 / tanHalfFieldOfView() / distance : 0.0;
    return middle + (from - target) * factor;
}

qel::XPnt3d CQelTrackBall::eyeOfPreciseFit(const qel::Enve3d& box, const qel::XPnt3d& middle) {
    held.setDirty();
    const double depth = projectPnt(middle).z;
    qel::Enve3d image;
    image.setInvalid();
    for (const double x : {box.xmin, box.xmax}) {
        for (const double y : {box.ymin, box.ymax}) {
            for (const double z : {box.zmin, box.zmax}) {
                image.SetBox(project(x, y, z));
            }
        }
    }
    const qel::XPnt3d corner = unProject(image.xmin, image.ymin, depth);
    const double width = qel::dist(corner, unProject(image.xmax, image.ymin, depth)) / aspect;
    const double height = qel::dist(corner, unProject(image.xmin, image.ymax, depth));
    const double half = (width > height ? width : height) * 0.5;
    const double distance = half / tanHalfFieldOfView();
    // From the current eye: unlike the quick fit, this one aims the camera at the midpoint.
    qel::XPnt3d direction = eye - middle;
    direction.normalize();
    return middle + direction * distance;
}

std::int32_t CQelTrackBall::setOrthoView(qel::XPnt3d newTarget, qel::XPnt3d direction, qel::XPnt3d newUp,
                                         qel::Enve3d newExtent) {
    if (!qel::isFinite(newUp) || !qel::isFinite(newExtent)) {
        return 0;
    }
    const qel::XPnt3d newEye = newTarget - direction;
    const qel::XPnt3d middle = newExtent.MidPoint();
    const float distance = static_cast<float>(qel::dist(newTarget, newEye));
    const double fitted =
        static_cast<double>(static_cast<float>(newExtent.getDiagonal())) * 0.5 / tanHalfFieldOfView();
    const float factor = distance > 0.0F ? static_cast<float>(fitted / static_cast<double>(distance)) : 0.0F;
    if (!placeEyeAndTarget(middle + (newEye - newTarget) * static_cast<double>(factor), middle)) {
        return 0;
    }
    up = newUp;
    up.normalize();
    orthoPending = !ortho;
    ortho = true;
    extent = newExtent;
    rotationCenter = middle;
    updateOrthoBox(true);
    updateViewAndSphere();
    return 0;
}

std::int32_t CQelTrackBall::setStandardView(std::uint32_t view) {
    const StandardView placed = standardView(view);
    eye = placed.eye;
    target = qel::XPnt3d();
    up = placed.up;
    zoomToModel(false);
    return 1;
}

float CQelTrackBall::getScreenCoverage(const qel::Enve3d& box) {
    if (!box.isValid()) {
        return -1.0F;
    }
    if (!isBoxVisible(box)) {
        return 0.0F;
    }
    const qel::XPnt3d middle = box.MidPoint();
    const qel::XPnt3d rim = middle + up * (box.getDiagonal() * 0.5);
    const qel::XPnt3d across = projectPnt(rim) - projectPnt(middle);
    const Place scale = windowScale();
    const double share =
        2.0 * std::hypot(across.x / scale.x, across.y / scale.y) / static_cast<double>(viewWidth);
    return static_cast<float>(share < 1.0 ? share : 1.0);
}
