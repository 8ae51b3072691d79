#include "ViewName.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace qelview {

namespace {

struct NamedView {
    const char* name;
    qel::XPnt3d towardsEye;
};

constexpr double kDiagonal = 1.0 / std::numbers::sqrt3;
constexpr std::array<NamedView, 8> kStandardViews{{
    {"Top", {0.0, 0.0, 1.0}},
    {"Bottom", {0.0, 0.0, -1.0}},
    {"Back", {0.0, 1.0, 0.0}},
    {"Front", {0.0, -1.0, 0.0}},
    {"Right", {1.0, 0.0, 0.0}},
    {"Left", {-1.0, 0.0, 0.0}},
    {"Isometric", {kDiagonal, kDiagonal, kDiagonal}},
    {"Isometric from below", {-kDiagonal, -kDiagonal, -kDiagonal}},
}};

/// Less than half a degree, which is what the text rounds to.
constexpr double kSameDirection = 0.008;

const char* sideOf(const qel::XPnt3d& direction) {
    if (std::abs(direction.x) > std::abs(direction.y)) {
        return direction.x > 0.0 ? "Right" : "Left";
    }
    return direction.y > 0.0 ? "Back" : "Front";
}

}  // namespace

std::string viewName(const qel::XPnt3d& towardsEye) {
    qel::XPnt3d direction = towardsEye;
    direction.normalize();
    const auto* const standard = std::find_if(
        kStandardViews.begin(), kStandardViews.end(),
        [&](const NamedView& view) { return qel::dist(view.towardsEye, direction) < kSameDirection; });
    if (standard != kStandardViews.end()) {
        return standard->name;
    }
    const double degrees = std::asin(std::clamp(direction.z, -1.0, 1.0)) * 180.0 / std::numbers::pi;
    const long rounded = std::lround(std::abs(degrees));
    const std::string height =
        rounded == 0 ? "" : ", " + std::to_string(rounded) + (degrees > 0.0 ? " deg above" : " deg below");
    return sideOf(direction) + height;
}

}  // namespace qelview
