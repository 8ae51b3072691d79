#pragma once

namespace qel {

/// How a mesh is drawn.
struct MeshStyle {
    /// Whether the lights of the display shade the mesh; normals should be given then.
    bool lighting = true;
    /// Whether the mesh is hidden by what lies in front of it.
    bool depthTest = true;
    /// Width of lines and size of points in pixels, where a polygon mode of GL_LINE or GL_POINT draws them.
    float width = 1.0F;
};

}  // namespace qel
