#pragma once

namespace qel {

/// How a mesh is drawn. Culling is not part of it: `GL_CULL_FACE` counts as the host has set it.
struct MeshStyle {
    /// Whether the lights shade the mesh, which then needs normals.
    bool lighting = true;
    /// Whether what lies in front hides the mesh.
    bool depthTest = true;
    /// Line width or point size in pixels for the polygon modes GL_LINE and GL_POINT.
    float width = 1.0F;
};

}  // namespace qel
