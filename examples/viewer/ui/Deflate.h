#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace qelview {

/// Compresses bytes into a zlib stream. Fast rather than small: pictures are written in a fraction of the time
/// that they take to draw.
[[nodiscard]] std::vector<std::uint8_t> deflated(std::span<const std::uint8_t> bytes);

}  // namespace qelview
