#include "RoundNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace qelview {

namespace {

/// So that 0.1 counts as round although it is not exact in binary.
constexpr double kSlack = 1e-9;
constexpr int kMostDecimals = 15;

}  // namespace

double roundAtLeast(double smallest) {
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double round : {1.0, 2.0, 5.0}) {
        if (round * power >= smallest * (1.0 - kSlack)) {
            return round * power;
        }
    }
    return 10.0 * power;
}

double roundAtMost(double largest) {
    const double power = std::pow(10.0, std::floor(std::log10(largest * (1.0 + kSlack))));
    for (const double round : {5.0, 2.0}) {
        if (round * power <= largest * (1.0 + kSlack)) {
            return round * power;
        }
    }
    return power;
}

std::string withStep(double value, double step) {
    const int decimals =
        std::clamp(static_cast<int>(std::ceil(-std::log10(step) - kSlack)), 0, kMostDecimals);
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

}  // namespace qelview
