#pragma once

#include <cstdint>
#include <limits>

namespace qel::test {

/// Numbers that tests pass where ordinary ones are expected.
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

}  // namespace qel::test
