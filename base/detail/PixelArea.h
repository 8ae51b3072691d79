#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace qel {

/// Number of pixels of a view, in 64 bits because the product of two sizes does not fit 32. A negative size
/// has none.
[[nodiscard]] constexpr std::size_t pixelArea(std::int32_t width, std::int32_t height) noexcept {
    return static_cast<std::size_t>(std::max(width, 0)) * static_cast<std::size_t>(std::max(height, 0));
}

}  // namespace qel
