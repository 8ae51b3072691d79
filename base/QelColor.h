#pragma once

#include <cstdint>

namespace qel {

/// RGB colour of three bytes.
struct QelColor3b {
    /// @{
    /// The components, each from 0 to 255.
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    /// @}

    /// @{
    /// Black unless the components are given.
    constexpr QelColor3b() noexcept = default;
    constexpr QelColor3b(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept
        : r(red), g(green), b(blue) {}
    /// @}
};

/// RGBA colour of four bytes; opaque black by default.
struct QelColor4b {
    /// @{
    /// The components, each from 0 to 255; an alpha of 255 is opaque.
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 255;
    /// @}

    /// @{
    /// Opaque black unless the components are given.
    constexpr QelColor4b() noexcept = default;
    constexpr QelColor4b(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                         std::uint8_t alpha = 255) noexcept
        : r(red), g(green), b(blue), a(alpha) {}
    /// @}
    /// The same colour without alpha.
    [[nodiscard]] constexpr QelColor3b toColor3b() const noexcept { return {r, g, b}; }
};

/// RGB colour of three floats, each from 0 to 1; black by default.
struct QelColor3f {
    /// @{
    /// The components.
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    /// @}

    /// @{
    /// Black unless the components are given.
    constexpr QelColor3f() noexcept = default;
    constexpr QelColor3f(float red, float green, float blue) noexcept : r(red), g(green), b(blue) {}
    /// @}
};

}  // namespace qel
