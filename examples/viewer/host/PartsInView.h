#pragma once

#include <cstddef>
#include <vector>

#include "IQelTrackBall.h"
#include "SceneParts.h"

namespace qelview {

/// Triangles of a mesh, or points of a cloud, of which one in `step` is drawn.
struct DrawnRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t step = 1;

    bool operator==(const DrawnRange&) const = default;
};

/// Asks the camera which parts it sees. OpenGL must hold it, as `IQelTrackBall::updateView` loads it.
/// @param thinning 1 draws everything in view. With n, about one element in n is drawn: those of a part that
/// is twice as wide on the screen have four times the share of it.
/// @param ranges receives what to draw; its storage is used again.
void findPartsInView(IQelTrackBall& camera, const std::vector<SpatialPart>& parts, std::size_t thinning,
                     std::vector<DrawnRange>& ranges);

}  // namespace qelview
