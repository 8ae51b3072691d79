#pragma once

#include "QelColor.h"
#include "QelGl.h"
#include "XPnt3d.h"

/// Pieces of the bare forms: what a careful host would write around its own calls of OpenGL.

namespace qel::bench {

inline void switchTo(GLenum capability, bool on) {
    if (on) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

inline bool switched(GLenum capability, bool on) {
    const bool was = glIsEnabled(capability) != GL_FALSE;
    switchTo(capability, on);
    return was;
}

inline float widened(float width) {
    float was = 0.0F;
    glGetFloatv(GL_LINE_WIDTH, &was);
    glLineWidth(width);
    return was;
}

inline float enlarged(float size) {
    float was = 0.0F;
    glGetFloatv(GL_POINT_SIZE, &was);
    glPointSize(size);
    return was;
}

struct KeptColor {
    float values[4] = {};
};

inline KeptColor coloured(const QelColor3f& color) {
    KeptColor was;
    glGetFloatv(GL_CURRENT_COLOR, was.values);
    glColor3f(color.r, color.g, color.b);
    return was;
}

inline void colourBack(const KeptColor& was) {
    glColor4f(was.values[0], was.values[1], was.values[2], was.values[3]);
}

inline void vertexAt(const XPnt3d& point) {
    glVertex3d(point.x, point.y, point.z);
}

/// A marker's state around what `draw` draws.
template <class Draw>
void asLines(const QelColor3f& color, float width, bool lighting, bool depthTest, Draw draw) {
    const KeptColor oldColor = coloured(color);
    const float oldWidth = widened(width);
    const bool wasLit = switched(GL_LIGHTING, lighting);
    const bool wasTested = switched(GL_DEPTH_TEST, depthTest);
    draw();
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
    glLineWidth(oldWidth);
    colourBack(oldColor);
}

}  // namespace qel::bench
