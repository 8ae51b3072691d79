#pragma once

#include "XPnt3d.h"

namespace qel {

/// A point or vector of three floats, where single precision is wanted.
struct XPnt3f {
    /// @{
    /// The coordinates.
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    /// @}

    /// @{
    /// The origin unless coordinates are given.
    constexpr XPnt3f() noexcept = default;
    constexpr XPnt3f(float px, float py, float pz) noexcept : x(px), y(py), z(pz) {}
    /// @}
    /// Rounds each coordinate to the nearest float.
    explicit constexpr XPnt3f(const XPnt3d& point) noexcept
        : x(static_cast<float>(point.x)), y(static_cast<float>(point.y)), z(static_cast<float>(point.z)) {}
};

/// @{
/// Componentwise arithmetic.
[[nodiscard]] constexpr XPnt3f operator+(const XPnt3f& a, const XPnt3f& b) noexcept {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] constexpr XPnt3f operator*(const XPnt3f& point, const float& factor) noexcept {
    return {point.x * factor, point.y * factor, point.z * factor};
}
/// @}

}  // namespace qel
