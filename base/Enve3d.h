#pragma once

#include "Enve2d.h"
#include "QelBaseExport.h"
#include "XPnt3d.h"

namespace qel {

/// An axis-aligned box in model units. Validity depends on x and y only, so flat data is valid.
///
/// The bounds are stored in the order xmin, xmax, ymin, ymax, zmin, zmax. A default box is all zeros. A z
/// range with a lower bound of 2147483647.0 or an upper bound of -2147483647.0 is missing: the box is flat.
struct QEL_BASE_API Enve3d {
    /// @{
    /// The bounds.
    double xmin = 0.0;
    double xmax = 0.0;
    double ymin = 0.0;
    double ymax = 0.0;
    double zmin = 0.0;
    double zmax = 0.0;
    /// @}

    /// Empties the box: lower bounds become 2147483647.0, upper bounds -2147483647.0.
    void setInvalid() noexcept;
    /// True if no lower bound of x or y exceeds its upper bound; z does not matter.
    [[nodiscard]] bool isValid() const noexcept { return xmin <= xmax && ymin <= ymax; }
    /// True if the z range is not missing.
    [[nodiscard]] bool hasZ() const noexcept;

    /// Grows the box to contain the point; an invalid box becomes the point itself. A point that is invalid
    /// or NaN changes nothing.
    void SetBox(const XPnt3d& point) noexcept;
    /// Swaps bounds so that no minimum exceeds its maximum, which makes an invalid box valid. A missing z
    /// range stays missing.
    void Normalize() noexcept;
    /// Moves the box, valid or not, by model units. A missing z range stays missing.
    void offset(double dx, double dy, double dz) noexcept;

    /// Centre of the box; a missing z range counts as z = 0.
    [[nodiscard]] XPnt3d MidPoint() const noexcept;
    /// Extent in x.
    [[nodiscard]] double Width() const noexcept { return xmax - xmin; }
    /// Extent in y.
    [[nodiscard]] double HightY() const noexcept { return ymax - ymin; }
    /// Length of the diagonal; a missing z range counts as height 0.
    [[nodiscard]] double getDiagonal() const noexcept;
    /// The box seen from above: its x-y rectangle.
    [[nodiscard]] Enve2d getEnve2d() const noexcept { return {xmin, ymin, xmax, ymax}; }
};

}  // namespace qel
