#pragma once

#include <string>

namespace qelview {

/// The smallest of 1, 2 and 5 times a power of ten that is not below a positive number.
[[nodiscard]] double roundAtLeast(double smallest);
/// The largest of them that is not above it.
[[nodiscard]] double roundAtMost(double largest);

/// A number with as many decimals as a step of this size needs.
[[nodiscard]] std::string withStep(double value, double step);

}  // namespace qelview
