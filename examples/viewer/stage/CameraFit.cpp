#include "CameraFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace qelview {

namespace {

/// Less would be no distance at all, as for a single point.
constexpr double kSmallestDistance = 1e-5;

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
    // The sides of the pyramid of sight: how far out points reach, measured where they meet the plane of the eye.
    const std::array<qel::XPnt3d, 6> sides{back * slopeX + right,
                                           back * slopeX - right,
                                           back * slopeUp + up,
                                           back * slopeDown - up,
                                           back,
                                           back * -1.0};
    std::array<double, 6> reaches{};
    std::transform(sides.begin(), sides.end(), reaches.begin(), [&points](const qel::XPnt3d& side) {
        double reach = -std::numeric_limits<double>::infinity();
        for (const qel::XPnt3d& point : points) {
            reach = std::max(reach, qel::dot(point, side));
        }
        return reach;
    });
    const auto& [toTheRight, toTheLeft, upwards, downwards, nearest, farthest] = reaches;
    // Two opposite sides meet where the eye may be at the nearest: halfway between them, and so far back.
    const double x = (toTheRight - toTheLeft) * 0.5;
    const double z =
        std::max((toTheRight + toTheLeft) / (2.0 * slopeX), (upwards + downwards) / (slopeUp + slopeDown));
    const double y = (upwards - downwards + z * (slopeDown - slopeUp)) * 0.5;
    const double clear = std::max(z, nearest + kSmallestDistance);
    const double middle = (nearest - farthest) * 0.5;
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
