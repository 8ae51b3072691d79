#include "HeightColors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace qelview {

namespace {

/// From low to high; neighbours differ in lightness too, for eyes that do not tell all colours apart.
constexpr std::array<qel::QelColor3f, 6> kRamp{{
    {0.19F, 0.24F, 0.62F},
    {0.13F, 0.52F, 0.72F},
    {0.24F, 0.72F, 0.53F},
    {0.72F, 0.85F, 0.38F},
    {0.97F, 0.72F, 0.25F},
    {0.83F, 0.25F, 0.18F},
}};

double heightOf(const qel::ArrayVertex& vertex, UpAxis up) {
    return static_cast<double>(up == UpAxis::Y ? vertex.y : vertex.z);
}

}  // namespace

void HeightRange::include(const qel::ArrayVertex& vertex) {
    const double height = heightOf(vertex, up);
    low = std::min(low, height);
    high = std::max(high, height);
}

qel::QelColor3f colorOfHeight(double share) {
    constexpr double kSteps = kRamp.size() - 1;
    const double place = std::isnan(share) ? kSteps * 0.5 : std::clamp(share, 0.0, 1.0) * kSteps;
    const auto below = std::min(static_cast<std::size_t>(place), kRamp.size() - 2);
    const auto part = static_cast<float>(place - static_cast<double>(below));
    const qel::QelColor3f& from = kRamp.at(below);
    const qel::QelColor3f& to = kRamp.at(below + 1);
    return {from.r + (to.r - from.r) * part, from.g + (to.g - from.g) * part,
            from.b + (to.b - from.b) * part};
}

qel::QelColor3f colorIn(const HeightRange& range, const qel::ArrayVertex& vertex) {
    return colorOfHeight((heightOf(vertex, range.up) - range.low) / (range.high - range.low));
}

}  // namespace qelview
