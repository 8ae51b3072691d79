#pragma once

namespace qel {

/// How a mesh is drawn.
struct MeshStyle {
    /// Whether the lights shade the mesh, which then needs normals.
    bool lighting = true;
    /// Whether what lies in front hides the mesh.
    bool depthTest = true;
    /// Line width or point size in pixels for the polygon modes GL_LINE and GL_POINT.
    float width = 1.0F;
};

}  // namespace qel
