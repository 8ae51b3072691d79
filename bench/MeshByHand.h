#pragma once

#include "ByHand.h"
#include "QelArrayElements.h"
#include "QelMeshStyle.h"

/// Meshes from client arrays, for the bare forms.

namespace qel::bench {

struct KeptModes {
    GLint shadeModel = 0;
    GLint polygon[2] = {};
};

inline KeptModes smoothAndFilled() {
    KeptModes was;
    glGetIntegerv(GL_SHADE_MODEL, &was.shadeModel);
    glShadeModel(GL_SMOOTH);
    glGetIntegerv(GL_POLYGON_MODE, was.polygon);
    glPolygonMode(GL_FRONT, GL_FILL);
    glPolygonMode(GL_BACK, GL_FILL);
    return was;
}

inline void modesBack(const KeptModes& was) {
    glShadeModel(static_cast<GLenum>(was.shadeModel));
    glPolygonMode(GL_FRONT, static_cast<GLenum>(was.polygon[0]));
    glPolygonMode(GL_BACK, static_cast<GLenum>(was.polygon[1]));
}

/// Where the arrays of a mesh lie; no colours if their address is null.
struct MeshMemory {
    const void* vertices;
    GLenum normalType;
    GLsizei normalStride;
    const void* normals;
    const void* colors;
};

/// The state of a mesh around what `draw` draws from the arrays.
template <class Draw>
void asMesh(const MeshStyle& style, const MeshMemory& memory, Draw draw) {
    const bool wasLit = switched(GL_LIGHTING, style.lighting);
    const bool wasTested = switched(GL_DEPTH_TEST, style.depthTest);
    const float oldWidth = widened(style.width);
    const float oldSize = enlarged(style.width);
    const bool wasTextured = switched(GL_TEXTURE_2D, false);
    const KeptModes modes = smoothAndFilled();
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ArrayVertex), memory.vertices);
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(memory.normalType, memory.normalStride, memory.normals);
    if (memory.colors != nullptr) {
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(3, GL_FLOAT, sizeof(ArrayColor4f), memory.colors);
    }
    glIsTexture(0);
    draw();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    if (memory.colors != nullptr) {
        glDisableClientState(GL_COLOR_ARRAY);
    }
    glIsTexture(0);
    modesBack(modes);
    switchTo(GL_TEXTURE_2D, wasTextured);
    glPointSize(oldSize);
    glLineWidth(oldWidth);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
}

}  // namespace qel::bench
