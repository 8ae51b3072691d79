#pragma once

#include <string>

namespace qelview {

/// The smallest number of the form 1, 2 or 5 times a power of ten that is not below a positive number.
[[nodiscard]] double roundAtLeast(double smallest);
/// The largest such number that is not above it.
[[nodiscard]] double roundAtMost(double largest);

/// A number with as many decimals as a step of this size needs.
[[nodiscard]] std::string withStep(double value, double step);

}  // namespace qelview
