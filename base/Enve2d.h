#pragma once

#include "QelBaseExport.h"
#include "XPnt2d.h"
#include "XPnt3d.h"

namespace qel {

/// An axis-aligned rectangle. It is valid while no lower bound exceeds its upper bound.
///
/// The bounds are stored in the order lower x, upper x, lower y, upper y. A default envelope is all zeros.
struct QEL_BASE_API Enve2d {
    /// @{
    /// The bounds.
    double xmin = 0.0;
    double xmax = 0.0;
    double ymin = 0.0;
    double ymax = 0.0;
    /// @}

    constexpr Enve2d() noexcept = default;
    /// Takes both lower bounds first, then both upper bounds, unlike the order in memory.
    constexpr Enve2d(double lowerX, double lowerY, double upperX, double upperY) noexcept
        : xmin(lowerX), xmax(upperX), ymin(lowerY), ymax(upperY) {}

    /// Empties the envelope: lower bounds become 2147483647.0, upper bounds -2147483647.0.
    void setInvalid() noexcept;
    /// True if no lower bound exceeds its upper bound.
    [[nodiscard]] bool isValid() const noexcept { return xmin <= xmax && ymin <= ymax; }

    /// Grows the envelope to contain the point's x and y; an invalid envelope becomes the point itself. A
    /// point that is invalid or NaN changes nothing.
    void SetBox(const XPnt3d& point) noexcept;
    /// True if the two rectangles share at least one point; an invalid one shares none.
    [[nodiscard]] bool isIntersect(const Enve2d& other) const noexcept;
    /// Centre of the rectangle.
    [[nodiscard]] XPnt2d MidPoint() const noexcept { return {(xmin + xmax) * 0.5, (ymin + ymax) * 0.5}; }
    /// Extent in x.
    [[nodiscard]] double Width() const noexcept { return xmax - xmin; }
    /// Extent in y.
    [[nodiscard]] double Hight() const noexcept { return ymax - ymin; }
    /// The same as `Width`.
    [[nodiscard]] double width() const noexcept { return Width(); }
    /// The same as `Hight`.
    [[nodiscard]] double hight() const noexcept { return Hight(); }
};

}  // namespace qel
