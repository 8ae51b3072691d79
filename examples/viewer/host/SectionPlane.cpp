#include "SectionPlane.h"

#include <array>
#include <cmath>

namespace qelview {

namespace {

struct Corner {
    qel::XPnt3d at;
    double beyond = 0.0;
};

/// Where an edge whose ends lie on both sides meets the plane.
qel::XPnt3d meetingOf(const Corner& a, const Corner& b) {
    return a.at + (b.at - a.at) * (a.beyond / (a.beyond - b.beyond));
}

void appendLine(const std::array<Corner, 3>& corners, Points& lines) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Corner& alone = corners[i];
        const Corner& next = corners[(i + 1) % 3];
        const Corner& last = corners[(i + 2) % 3];
        // A corner in the plane counts to the side that is drawn, so that neighbours agree about their common edge.
        const bool isAlone =
            (alone.beyond > 0.0) != (next.beyond > 0.0) && (alone.beyond > 0.0) != (last.beyond > 0.0);
        if (isAlone) {
            lines.push_back(meetingOf(alone, next));
            lines.push_back(meetingOf(alone, last));
            return;
        }
    }
}

}  // namespace

std::pair<double, double> rangeAlong(const qel::XPnt3d& direction, const qel::Enve3d& box) {
    const double middle = qel::dot(direction, box.MidPoint());
    const double reach =
        0.5 * (std::abs(direction.x) * (box.xmax - box.xmin) + std::abs(direction.y) * (box.ymax - box.ymin) +
               std::abs(direction.z) * (box.zmax - box.zmin));
    return {middle - reach, middle + reach};
}

void appendSectionLines(const SectionPlane& plane, const std::vector<qel::ArrayVertex>& vertices,
                        const std::vector<qel::ArrayIndex>& indices, Points& lines) {
    std::vector<Corner> corners;
    corners.reserve(vertices.size());
    for (const qel::ArrayVertex& vertex : vertices) {
        const qel::XPnt3d at(static_cast<double>(vertex.x), static_cast<double>(vertex.y),
                             static_cast<double>(vertex.z));
        corners.push_back({at, plane.beyond(at)});
    }
    const std::size_t count = indices.empty() ? vertices.size() : indices.size();
    const auto cornerAt = [&](std::size_t i) { return corners[indices.empty() ? i : indices[i]]; };
    for (std::size_t i = 0; i + 2 < count; i += 3) {
        appendLine({cornerAt(i), cornerAt(i + 1), cornerAt(i + 2)}, lines);
    }
}

}  // namespace qelview
