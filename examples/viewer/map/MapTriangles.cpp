#include "MapTriangles.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "PolygonCutter.h"

namespace qelview {

Line2d trianglesOf(const Rings2d& rings) {
    std::vector<Points> contours;
    Line2d points;
    for (const Line2d& ring : rings) {
        Points& contour = contours.emplace_back();
        std::transform(ring.begin(), ring.end(), std::back_inserter(contour),
                       [](const qel::XPnt2d& point) { return qel::XPnt3d(point.x, point.y, 0.0); });
        points.insert(points.end(), ring.begin(), ring.end());
    }
    PolygonCutter cutter(Filling::Odd);
    const PolygonCutter::Triangles& cut = cutter.cut(contours, {0.0, 0.0, 1.0});
    for (const PolygonCutter::Crossing& crossing : cut.crossings) {
        points.push_back({crossing.position.x, crossing.position.y});
    }
    Line2d triangles;
    triangles.reserve(cut.corners.size());
    std::transform(cut.corners.begin(), cut.corners.end(), std::back_inserter(triangles),
                   [&points](std::uint32_t corner) { return points[corner]; });
    return triangles;
}

}  // namespace qelview
