#include "CameraFit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace qelview {

namespace {

/// Less would be no distance at all, as for a single point.
constexpr double kSmallestDistance = 1e-5;

/// One side of the pyramid of sight: how far out points reach, measured where they meet the plane of the eye.
struct FrustumSide {
    double reach = -std::numeric_limits<double>::infinity();
    void include(double point) { reach = std::max(reach, point); }
};

}  // namespace

CameraPlace placeToSee(const std::vector<qel::XPnt3d>& points, const CameraPlace& camera, double fovY,
                       double aspect, const UsableView& usable) {
    qel::XPnt3d back = camera.eye - camera.target;
    back.normalize();
    qel::XPnt3d right = qel::cross(camera.up, back);
    right.normalize();
    const qel::XPnt3d up = qel::cross(back, right);
    const double slopeOfView = std::tan(fovY * 0.5 * std::numbers::pi / 180.0);
    const double slopeX = slopeOfView * aspect * usable.sideways;
    const double slopeUp = slopeOfView * usable.above;
    const double slopeDown = slopeOfView * usable.below;
    FrustumSide toTheRight;
    FrustumSide toTheLeft;
    FrustumSide upwards;
    FrustumSide downwards;
    FrustumSide nearest;
    FrustumSide farthest;
    for (const qel::XPnt3d& point : points) {
        const double x = qel::dot(point, right);
        const double y = qel::dot(point, up);
        const double z = qel::dot(point, back);
        toTheRight.include(x + z * slopeX);
        toTheLeft.include(-x + z * slopeX);
        upwards.include(y + z * slopeUp);
        downwards.include(-y + z * slopeDown);
        nearest.include(z);
        farthest.include(-z);
    }
    // Two opposite sides meet where the eye may be at the nearest: halfway between them, and so far back.
    const double x = (toTheRight.reach - toTheLeft.reach) * 0.5;
    const double z = std::max((toTheRight.reach + toTheLeft.reach) / (2.0 * slopeX),
                              (upwards.reach + downwards.reach) / (slopeUp + slopeDown));
    const double y = (upwards.reach - downwards.reach + z * (slopeDown - slopeUp)) * 0.5;
    const double clear = std::max(z, nearest.reach + kSmallestDistance);
    const double middle = (nearest.reach - farthest.reach) * 0.5;
    const qel::XPnt3d eye = right * x + up * y + back * clear;
    return {eye, eye - back * (clear - middle), camera.up};
}

double shareOfUsableView(const std::vector<qel::XPnt3d>& places, double width, double height,
                         const UsableView& usable) {
    double share = 0.0;
    for (const qel::XPnt3d& place : places) {
        const double fromMiddle = 2.0 * place.y / height - 1.0;
        share = std::max({share, std::abs(2.0 * place.x / width - 1.0) / usable.sideways,
                          fromMiddle / usable.above, -fromMiddle / usable.below});
    }
    return share;
}

}  // namespace qelview
