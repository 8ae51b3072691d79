#pragma once

#include <vector>

#include "MapData.h"

namespace qelview {

/// The parts of a line that lie in a rectangle, in order.
[[nodiscard]] std::vector<Line2d> clipLine(const Line2d& line, const qel::Enve2d& area);

/// The area that a ring encloses, clipped to a rectangle; outside, the ring follows the rectangle's edge.
/// Empty if nothing is left.
[[nodiscard]] Line2d clipRing(const Line2d& ring, const qel::Enve2d& area);

[[nodiscard]] inline bool contains(const qel::Enve2d& area, const qel::XPnt2d& point) {
    return point.x >= area.xmin && point.x <= area.xmax && point.y >= area.ymin && point.y <= area.ymax;
}

[[nodiscard]] qel::Enve2d boundsOf(const Line2d& line);

}  // namespace qelview
