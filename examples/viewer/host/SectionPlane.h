#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "Enve3d.h"
#include "QelArrayElements.h"
#include "SceneParts.h"

namespace qelview {

/// A plane that cuts a scene: what lies beyond it, in the direction of its normal, is not drawn.
struct SectionPlane {
    /// Of unit length.
    qel::XPnt3d normal{0.0, 0.0, 1.0};
    /// Distance from the origin along the normal.
    double offset = 0.0;

    /// How far a point lies beyond the plane; negative for points that are drawn.
    [[nodiscard]] double beyond(const qel::XPnt3d& point) const { return qel::dot(normal, point) - offset; }
};

/// The lowest and the highest place of a box along a direction, from the origin, in lengths of the direction.
[[nodiscard]] std::pair<double, double> rangeAlong(const qel::XPnt3d& direction, const qel::Enve3d& box);

/// Appends the lines in which triangles meet a plane, two points for each. Triangles in the plane and those that only touch it have none.
/// @param indices three a triangle; empty if each three vertices are a triangle.
void appendSectionLines(const SectionPlane& plane, const std::vector<qel::ArrayVertex>& vertices,
                        const std::vector<qel::ArrayIndex>& indices, Points& lines);

}  // namespace qelview
