#pragma once

#include <cstdint>

#include "QelBaseExport.h"
#include "XPnt3d.h"

namespace qel {

/// Tests whether a point lies in front of the plane through a, b, c, on the side of (b - a) x (c - a).
/// @param tolerance in model units: a point up to this far behind the plane still counts as in front.
/// @return 1 if the signed distance of `point` from the plane exceeds -tolerance; 0 if not, or if a, b, c
/// span no plane.
[[nodiscard]] QEL_GEOMETRY_API std::int32_t isPntInFront(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c,
                                                         const XPnt3d& point, double tolerance) noexcept;

/// Intersects the infinite line through p0 and p1 with the plane through a, b, c.
/// @param hit receives the intersection; unchanged if there is none.
/// @return true if there is one; false if the line is parallel to the plane or either is degenerate.
[[nodiscard]] QEL_GEOMETRY_API bool intersect(const XPnt3d& a, const XPnt3d& b, const XPnt3d& c,
                                              const XPnt3d& p0, const XPnt3d& p1, XPnt3d& hit) noexcept;

}  // namespace qel
