#pragma once

#include "SceneParts.h"

namespace qelview {

/// Angle between two faces from which their common edge stays sharp.
inline constexpr double kCreaseAngleDegrees = 40.0;

/// Computes the normals of a mesh from its triangles. Surfaces are smooth across vertices
/// at the same place, whether or not they are shared; edges sharper than the crease angle stay sharp, for
/// which vertices are duplicated at the end of the arrays. The mesh has indices afterwards.
void makeNormals(TriangleMesh& mesh, double creaseAngleDegrees = kCreaseAngleDegrees);

/// A normal of length 1 in the same direction; along z if it has none.
[[nodiscard]] qel::XPnt3f unitNormal(const qel::XPnt3d& normal);

}  // namespace qelview
