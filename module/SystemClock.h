#pragma once

#include <cstdint>

namespace qel {

/// Milliseconds since the system started, wrapping around after 49.7 days.
[[nodiscard]] std::uint32_t systemTick() noexcept;

}  // namespace qel
