#include "CoordinateText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace qelview {

namespace {

void addLine(std::string& text, const char* name, const qel::XPnt3d& point) {
    text += name;
    for (const double value : {point.x, point.y, point.z}) {
        std::array<char, 64> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        text += " " + std::string(digits.data(), end);
    }
    text += "\n";
}

}  // namespace

int decimalsFor(double size) {
    // A ten-thousandth of the scene: about what a pixel covers.
    constexpr double kFinest = 1e-4;
    constexpr int kMostDecimals = 9;
    const double finest = size > 0.0 ? std::log10(size * kFinest) : 0.0;
    return std::clamp(static_cast<int>(std::ceil(-finest)), 0, kMostDecimals);
}

std::string fixed(double value, int decimals) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string coordinateText(const qel::XPnt3d& point, const qel::XPnt3d& origin, double size) {
    const int decimals = decimalsFor(size);
    return "x " + fixed(point.x + origin.x, decimals) + "  y " + fixed(point.y + origin.y, decimals) +
           "  z " + fixed(point.z + origin.z, decimals);
}

std::string cameraText(const qel::XPnt3d& eye, const qel::XPnt3d& target, const qel::XPnt3d& up) {
    std::string text;
    addLine(text, "eye", eye);
    addLine(text, "target", target);
    addLine(text, "up", up);
    return text;
}

}  // namespace qelview
