#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "MotionFile.h"

namespace qelview {

/// The motions in input reports of multi-axis controllers (usage page 1, usage 8), which may hold anything.
///
/// A report is its number and then axes of two bytes each, low byte first: report 1 has translations to the right, towards the user and down,
/// and after them the rotations if the device sends all six at once; report 2 has the rotations about the same axes. Buttons and reports of
/// other numbers or lengths move nothing. The scene follows the cap: pushed to the right, it goes to the right.
/// @param reports one after the other.
/// @param bytesOfOne length of each; what is left over at the end is not read.
[[nodiscard]] std::vector<MotionStep> motionsOf(std::span<const std::uint8_t> reports,
                                                std::size_t bytesOfOne);

}  // namespace qelview
