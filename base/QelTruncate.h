#pragma once

#include <cstdint>

namespace qel {

/// The one conversion from model or window numbers to pixel integers.
///
/// Truncates toward zero. NaN and everything that does not fit give -2147483648, the answer of the
/// processor's own conversion, so a wild coordinate lands far outside every window instead of being
/// undefined.
[[nodiscard]] constexpr std::int32_t truncateToInt(double value) noexcept {
    constexpr double kFirstTooLow = -2147483649.0;
    constexpr double kFirstTooHigh = 2147483648.0;
    if (value > kFirstTooLow && value < kFirstTooHigh) {
        return static_cast<std::int32_t>(value);
    }
    return INT32_MIN;
}

}  // namespace qel
