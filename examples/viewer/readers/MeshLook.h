#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// How what mesh files hold is shown, whatever their format.

inline constexpr LineStyle kLinesOfMeshFiles{{150, 200, 255}, 1.5F};

/// A channel of a colour as OpenGL takes it: from 0 to 1, and 0 for what is no number.
[[nodiscard]] inline float shownShare(double channel) {
    return channel >= 0.0 ? static_cast<float>(std::min(channel, 1.0)) : 0.0F;
}

[[nodiscard]] inline qel::QelColor3b colorOfDot(const qel::QelColor3f& color) {
    const auto byte = [](float share) { return static_cast<std::uint8_t>(std::lround(share * 255.0F)); };
    return {byte(color.r), byte(color.g), byte(color.b)};
}

/// A normal of length 1 in the same direction; along z if it has none.
[[nodiscard]] inline qel::XPnt3f unitNormal(const qel::XPnt3d& normal) {
    // The reciprocal of a shorter one is not finite.
    constexpr double kShortest = 1e-300;
    const double length = normal.norm();
    const bool isUsable = std::isfinite(length) && length > kShortest;
    const qel::XPnt3d unit = isUsable ? normal * (1.0 / length) : qel::XPnt3d(0.0, 0.0, 1.0);
    return {static_cast<float>(unit.x), static_cast<float>(unit.y), static_cast<float>(unit.z)};
}

/// The triangle that a corner of a strip ends, from the third corner on. Every second one is turned round, so
/// that all look the same way.
[[nodiscard]] inline std::array<std::uint32_t, 3> triangleOfStrip(const std::vector<std::uint32_t>& corners,
                                                                  std::size_t last) {
    const std::size_t turned = last % 2;
    return {corners[last - 2 + turned], corners[last - 1 - turned], corners[last]};
}

}  // namespace qelview
