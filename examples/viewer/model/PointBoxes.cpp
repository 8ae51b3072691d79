#include "PointBoxes.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "AllCores.h"
#include "Reach.h"

namespace qelview {

namespace {

/// A pass over this many points takes no noticeable time.
constexpr std::size_t kFew = 200'000;

Reach reachOf(const Points& points) {
    const std::vector<Piece> pieces = piecesOf(points.size());
    std::vector<Reach> reaches(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        Reach reach;
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            reach.include(points[i]);
        }
        reaches[number] = reach;
    });
    for (std::size_t number = 1; number < reaches.size(); ++number) {
        reaches.front().include(reaches[number]);
    }
    return reaches.front();
}

}  // namespace

qel::Enve3d boxOf(const Points& points) {
    return reachOf(points).box();
}

void appendOutline(Points& outline, const Points& points, const std::vector<SpatialPart>& parts) {
    if (points.size() <= kFew || parts.empty()) {
        outline.insert(outline.end(), points.begin(), points.end());
        return;
    }
    for (const SpatialPart& part : parts) {
        for (const double x : {part.box.xmin, part.box.xmax}) {
            for (const double y : {part.box.ymin, part.box.ymax}) {
                outline.emplace_back(x, y, part.box.zmin);
                outline.emplace_back(x, y, part.box.zmax);
            }
        }
    }
}

}  // namespace qelview
