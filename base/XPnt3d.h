#pragma once

#include <cstdint>

#include "QelBaseExport.h"

namespace qel {

struct XPnt2d;
struct XPnt3f;

/// Three plain doubles, for copying a point in and out of foreign storage.
struct PNT3D {
    /// @{
    /// The coordinates.
    double x;
    double y;
    double z;
    /// @}
};

/// A point or vector of three doubles in model or window units, with a validity flag.
///
/// Arrays of these points are drawn straight from memory, so the layout is fixed: x, y, z, then an 8-byte
/// validity word (0 is valid). Copies keep the validity; arithmetic ignores it.
struct QEL_BASE_API XPnt3d {
    /// @{
    /// The coordinates.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    /// @}
    /// 0 for a valid point.
    std::int64_t validity = 0;

    /// The origin, valid.
    constexpr XPnt3d() noexcept = default;
    /// Takes coordinates and a validity flag: 0 for a valid point, any other value for "no point".
    constexpr XPnt3d(double px, double py, double pz, short flag = 0) noexcept
        : x(px), y(py), z(pz), validity(flag) {}
    /// Widens a single-precision point; the result is valid.
    XPnt3d(const XPnt3f& point) noexcept;  // NOLINT(google-explicit-constructor)

    /// Copies three coordinates and makes the point valid.
    // A template, so that `point = {1, 2, 3}` is not ambiguous: the ordinary assignment of a point wins.
    template <class = void>
    XPnt3d& operator=(const PNT3D& point) noexcept {
        return set(point.x, point.y, point.z);
    }
    /// Sets the coordinates, makes the point valid and returns it.
    XPnt3d& set(double px, double py, double pz) noexcept {
        x = px;
        y = py;
        z = pz;
        validity = 0;
        return *this;
    }

    /// The value that means "no point".
    [[nodiscard]] static constexpr XPnt3d invalid() noexcept { return {0.0, 0.0, 0.0, 1}; }
    /// True unless the point is `invalid()` or a copy of it.
    [[nodiscard]] constexpr bool isValid() const noexcept { return validity == 0; }

    /// The three coordinates as a plain structure.
    [[nodiscard]] constexpr PNT3D Copy() const noexcept { return {x, y, z}; }
    /// The point without its z.
    [[nodiscard]] XPnt2d to2d() const noexcept;

    /// Scales the vector to unit length in place and returns it. A vector stays as it is if its length is zero
    /// or not finite.
    XPnt3d& normalize() noexcept;
    /// Euclidean length; infinite if a coordinate is.
    [[nodiscard]] double norm() const noexcept;
    /// Length of (x, y).
    [[nodiscard]] double norm_2d() const noexcept;

    /// @{
    /// Changes the coordinates in place and keeps the validity.
    XPnt3d& operator+=(const XPnt3d& other) noexcept {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }
    XPnt3d& operator-=(const XPnt3d& other) noexcept {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }
    XPnt3d& operator*=(const double& factor) noexcept {
        x *= factor;
        y *= factor;
        z *= factor;
        return *this;
    }
    /// @}
};

static_assert(sizeof(XPnt3d) == 32, "point arrays are handed to OpenGL with a stride of 32 bytes");

/// @{
/// Componentwise arithmetic; the result is valid.
[[nodiscard]] constexpr XPnt3d operator+(const XPnt3d& a, const XPnt3d& b) noexcept {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] constexpr XPnt3d operator-(const XPnt3d& a, const XPnt3d& b) noexcept {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
[[nodiscard]] constexpr XPnt3d operator*(const XPnt3d& point, const double& factor) noexcept {
    return {point.x * factor, point.y * factor, point.z * factor};
}
/// @}

/// Scalar product.
[[nodiscard]] constexpr double dot(const XPnt3d& a, const XPnt3d& b) noexcept {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
/// Euclidean distance between two points.
[[nodiscard]] QEL_BASE_API double dist(const XPnt3d& a, const XPnt3d& b) noexcept;
/// Vector product a x b.
[[nodiscard]] constexpr XPnt3d cross(const XPnt3d& a, const XPnt3d& b) noexcept {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
/// Vector product of the two edges from the first point: (b - a) x (c - a).
[[nodiscard]] constexpr XPnt3d cross(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c) noexcept {
    return cross(b - a, c - a);
}

}  // namespace qel
