#include <algorithm>
#include <cmath>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"

namespace {

/// From this mean depth on, the unprojected point lies far behind what is visible, so large steps are slowed.
constexpr double kFarDepth = 0.97;
constexpr float kLargeStep = 0.1F;
constexpr double kSlowedStep = 0.067;

}  // namespace

std::int32_t CQelTrackBall::zoomAt(float factor, std::int32_t x, std::int32_t y) {
    if (!qel::areFinite(factor)) {
        return 1;
    }
    // Clamped again: the mean is stored in single precision and may exceed a bound by rounding.
    const double depth = clampMeanDepth(getMeanDepth());
    const qel::XPnt3d point = unProject(static_cast<double>(x), static_cast<double>(y), depth);
    const bool slowed = factor > kLargeStep && !ortho && depth > kFarDepth;
    moveEyeAndTarget((point - eye) * (slowed ? kSlowedStep : static_cast<double>(factor)));
    updateOrthoBox(false);
    return updateViewAndSphere();
}

void CQelTrackBall::scaleEyeDistance(const qel::PixelRect& rect, bool inwards) {
    const auto side = [](std::int32_t from, std::int32_t to, float whole) {
        const double length = std::fabs(static_cast<double>(to) - static_cast<double>(from));
        return static_cast<float>(length) / whole;
    };
    const double share =
        static_cast<double>(std::max(side(rect.x1, rect.x2, viewWidth), side(rect.y1, rect.y2, viewHeight)));
    // A view without a size has no share to compute. A rectangle without one puts the eye on the target; the
    // infinite factor of the way back is refused.
    if (!ortho && qel::areFinite(share)) {
        placeEyeAndTarget(target + (eye - target) * (inwards ? share : 1.0 / share), target);
    }
    updateView();
}

std::int32_t CQelTrackBall::zoomInRect(const qel::PixelRect& rect) {
    scaleEyeDistance(rect, true);
    return 1;
}

std::int32_t CQelTrackBall::zoomOutRect(const qel::PixelRect& rect) {
    scaleEyeDistance(rect, false);
    return 1;
}
