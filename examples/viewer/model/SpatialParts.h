#pragma once

#include "SceneParts.h"

namespace qelview {

/// Sorts the triangles of a mesh, or the points of a cloud, by place, and notes the parts of the scene that
/// can be in view without the others. Small ones stay as they are, without parts.
///
/// The boxes do not follow when positions change later: sort last.
///
/// Parts have at most a 256th of all elements, or 4,096 if that is more; several at one place may have more.
void sortIntoParts(TriangleMesh& mesh);
void sortIntoParts(PointCloud& cloud);

}  // namespace qelview
