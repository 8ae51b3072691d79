#include "MapTriangles.h"

#include <algorithm>
#include <iterator>

#include "PolygonCutter.h"

namespace qelview {

Points trianglesOf(const std::vector<Points>& rings) {
    Points points;
    for (const Points& ring : rings) {
        points.insert(points.end(), ring.begin(), ring.end());
    }
    PolygonCutter cutter(Filling::Odd);
    const PolygonCutter::Triangles& cut = cutter.cut(rings, {0.0, 0.0, 1.0});
    for (const PolygonCutter::Crossing& crossing : cut.crossings) {
        points.push_back(crossing.position);
    }
    Points triangles;
    triangles.reserve(cut.corners.size());
    std::transform(cut.corners.begin(), cut.corners.end(), std::back_inserter(triangles),
                   [&points](std::uint32_t corner) { return points[corner]; });
    return triangles;
}

}  // namespace qelview
