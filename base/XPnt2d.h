#pragma once

namespace qel {

/// A point of two doubles, in the plane or on the screen.
struct XPnt2d {
    /// @{
    /// The coordinates.
    double x = 0.0;
    double y = 0.0;
    /// @}

    /// @{
    /// The origin unless coordinates are given.
    constexpr XPnt2d() noexcept = default;
    constexpr XPnt2d(double px, double py) noexcept : x(px), y(py) {}
    /// @}
};

}  // namespace qel
