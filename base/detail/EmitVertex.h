#pragma once

#include "QelGl.h"
#include "XPnt3d.h"

namespace qel {

/// Passes a vertex to OpenGL, between `glBegin` and `glEnd`.
inline void emitVertex(const XPnt3d& point) {
    glVertex3d(point.x, point.y, point.z);
}

}  // namespace qel
