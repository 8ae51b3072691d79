#include "WildArguments.h"

#include <array>
#include <cmath>
#include <limits>

#include "ExtremeNumbers.h"

namespace qel::test {

namespace {

constexpr std::array kWildReals{
    0.0,           -0.0,         1e-300,   std::numeric_limits<double>::denorm_min(),
    1e-7,          1e7,          -1e7,     2147483647.0,
    -2147483647.0, 4294967296.0, 1e39,     -1e39,
    1e154,         1.7e308,      -1.7e308, kInfinity,
    -kInfinity,    kNaN};
constexpr std::array kWildWholes{0, 1, -1, 2, 3, 7, 8, 46341, 65536, kLargest, kSmallest, kSmallest + 1};
constexpr std::array kSizes{0U, 1U, 2U, 17U, 64U, 100U, 200U, 46341U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU};
constexpr std::array kLengths{0U, 1U, 40U, 254U, 255U, 256U, 10000U};

/// One wild value in so many.
constexpr std::size_t kSeldom = 12;

}  // namespace

double WildArguments::ordinary() {
    constexpr double kReach = 200.0;
    return kReach * (static_cast<double>(bits() >> 11U) * 0x1p-53 - 0.5);
}

double WildArguments::real() {
    const double value = pick(kSeldom) == 0 ? kWildReals.at(pick(kWildReals.size())) : ordinary();
    isCallSound = isCallSound && std::isfinite(value);
    return value;
}

float WildArguments::single() {
    constexpr double kLargestSingle = static_cast<double>(std::numeric_limits<float>::max());
    const double value = real();
    // Narrowing what does not fit is undefined before the call is even made.
    const auto narrowed =
        std::fabs(value) > kLargestSingle
            ? std::copysign(std::numeric_limits<float>::infinity(), static_cast<float>(value > 0 ? 1 : -1))
            : static_cast<float>(value);
    isCallSound = isCallSound && std::isfinite(narrowed);
    return narrowed;
}

std::int32_t WildArguments::whole() {
    return pick(3) == 0 ? kWildWholes.at(pick(kWildWholes.size())) : static_cast<std::int32_t>(pick(12));
}

std::uint32_t WildArguments::size() {
    return pick(3) == 0 ? kSizes.at(pick(kSizes.size())) : static_cast<std::uint32_t>(1 + pick(200));
}

std::int32_t WildArguments::pixel() {
    return pick(kSeldom) == 0 ? whole() : static_cast<std::int32_t>(pick(240)) - 20;
}

XPnt3d WildArguments::point() {
    const double x = real();
    const double y = real();
    return {x, y, real()};
}

PNT3D WildArguments::plainPoint() {
    const XPnt3d from = point();
    return {from.x, from.y, from.z};
}

XPnt2d WildArguments::flatPoint() {
    const double x = real();
    return {x, real()};
}

Enve3d WildArguments::box() {
    Enve3d box;
    if (pick(kSeldom) == 0) {
        box.setInvalid();
        return box;
    }
    for (double* const bound : {&box.xmin, &box.xmax, &box.ymin, &box.ymax, &box.zmin, &box.zmax}) {
        *bound = real();
    }
    if (flag()) {
        box.Normalize();
    }
    return box;
}

Enve2d WildArguments::rect() {
    const double a = real();
    const double b = real();
    const double c = real();
    return {a, b, c, real()};
}

PixelRect WildArguments::pixelRect() {
    const std::int32_t x1 = pixel();
    const std::int32_t y1 = pixel();
    const std::int32_t x2 = pixel();
    return {x1, y1, x2, pixel()};
}

QelColor3f WildArguments::color() {
    const float red = single();
    const float green = single();
    return {red, green, single()};
}

QelColor3b WildArguments::byteColor() {
    const auto byte = [this] { return static_cast<std::uint8_t>(pick(256)); };
    const std::uint8_t red = byte();
    const std::uint8_t green = byte();
    return {red, green, byte()};
}

QelColor4b WildArguments::colorWithAlpha() {
    const QelColor3b color = byteColor();
    return {color.r, color.g, color.b, static_cast<std::uint8_t>(pick(256))};
}

const std::string& WildArguments::text() {
    static constexpr std::array<const char*, 4> kPieces{"label ", "%s%n%d ", "%", "\x01\xff "};
    const std::size_t length = kLengths.at(pick(kLengths.size()));
    lastText.clear();
    while (lastText.size() < length) {
        lastText += kPieces.at(pick(kPieces.size()));
    }
    lastText.resize(length);
    return lastText;
}

}  // namespace qel::test
