#pragma once

#include <algorithm>

namespace qel {

/// Bounds of an empty range. Every real coordinate lies between them, so growing needs no special case.
inline constexpr double kUnsetLower = 2147483647.0;
inline constexpr double kUnsetUpper = -2147483647.0;

/// True if either bound is its marker: such a range has no extent to order, move or measure.
[[nodiscard]] constexpr bool isUnsetRange(double lower, double upper) noexcept {
    return lower == kUnsetLower || upper == kUnsetUpper;
}

constexpr void growBounds(double& lower, double& upper, double value) noexcept {
    lower = std::min(lower, value);
    upper = std::max(upper, value);
}

}  // namespace qel
