#pragma once

#include <cstdint>

namespace qel {

/// The one conversion from model or window coordinates to pixel integers.
///
/// Truncates toward zero. NaN and values that do not fit give -2147483648, as the processor's own conversion
/// does, so a wild coordinate lies far outside every window instead of being undefined behaviour.
[[nodiscard]] constexpr std::int32_t truncateToInt(double value) noexcept {
    constexpr double kFirstTooLow = -2147483649.0;
    constexpr double kFirstTooHigh = 2147483648.0;
    if (value > kFirstTooLow && value < kFirstTooHigh) {
        return static_cast<std::int32_t>(value);
    }
    return INT32_MIN;
}

/// True for window positions that are safe to read. Drivers add sizes to positions in 32 bits, and some read
/// invalid memory if that overflows; nothing is ever drawn so far out.
[[nodiscard]] constexpr bool isReadablePixel(std::int32_t x, std::int32_t y) noexcept {
    constexpr std::int32_t kFarthest = 1 << 24;
    return x > -kFarthest && x < kFarthest && y > -kFarthest && y < kFarthest;
}

}  // namespace qel
