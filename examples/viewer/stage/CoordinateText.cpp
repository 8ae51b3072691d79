#include "CoordinateText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace qelview {

int decimalsFor(double size) {
    // A ten-thousandth of the scene: about what a pixel covers.
    constexpr double kFinest = 1e-4;
    constexpr int kMostDecimals = 9;
    const double finest = size > 0.0 ? std::log10(size * kFinest) : 0.0;
    return std::clamp(static_cast<int>(std::ceil(-finest)), 0, kMostDecimals);
}

std::string decimalText(double value, double size) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimalsFor(size), value);
    return text.data();
}

std::string coordinateText(const qel::XPnt3d& point, const qel::XPnt3d& origin, double size) {
    const int decimals = decimalsFor(size);
    std::array<char, 256> text{};
    std::snprintf(text.data(), text.size(), "x %.*f  y %.*f  z %.*f", decimals, point.x + origin.x, decimals,
                  point.y + origin.y, decimals, point.z + origin.z);
    return text.data();
}

}  // namespace qelview
