#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qelview {

/// One step of a six-axis input device: pan x and y in pixels, dolly, turn x and y in pixels, roll in pixels;
/// each from -1000 to 1000.
using MotionStep = std::array<double, 6>;

/// Reads recorded six-axis input; `motionHelp` describes the lines.
/// @throws ReadError "line N: REASON" for the first wrong line.
[[nodiscard]] std::vector<MotionStep> parseMotion(std::string_view text);

/// The format of recorded input, for the help text.
[[nodiscard]] std::string motionHelp();

}  // namespace qelview
