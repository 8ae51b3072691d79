#pragma once

#include <algorithm>

namespace qel {

/// Bounds of a range that holds nothing yet: any number read from a file is inside them, so growing works.
inline constexpr double kUnsetLower = 2147483647.0;
inline constexpr double kUnsetUpper = -2147483647.0;

/// True for a range that carries one of the two markers: it has no extent to order, move or measure.
[[nodiscard]] constexpr bool isUnsetRange(double lower, double upper) noexcept {
    return lower == kUnsetLower || upper == kUnsetUpper;
}

constexpr void growBounds(double& lower, double& upper, double value) noexcept {
    lower = std::min(lower, value);
    upper = std::max(upper, value);
}

}  // namespace qel
