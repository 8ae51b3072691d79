#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>

#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {

inline constexpr int kSurfaceSize = 64;

/// Adds calls to the end of a list.
inline void append(Calls& list, Calls more) {
    list.insert(list.end(), more.begin(), more.end());
}

inline std::string callToSwitch(std::uint32_t capability, bool enabled) {
    return call(enabled ? "glEnable" : "glDisable", capability);
}

inline std::string callToSetSize(std::uint32_t parameter, float value) {
    return call(parameter == GL_POINT_SIZE ? "glPointSize" : "glLineWidth", value);
}

/// What a guard calls when it begins and when it ends, in a host's OpenGL state that is known.
struct HostState {
    bool lighting = true;
    bool depthTest = false;
    float lineWidth = 3.0F;
    float pointSize = 4.0F;
    /// Numbers that OpenGL gives back exactly.
    float color[4] = {0.5F, 0.25F, 0.75F, 0.125F};

    void apply() const {
        (lighting ? glEnable : glDisable)(GL_LIGHTING);
        (depthTest ? glEnable : glDisable)(GL_DEPTH_TEST);
        glLineWidth(lineWidth);
        glPointSize(pointSize);
        glColor4f(color[0], color[1], color[2], color[3]);
    }

    static Calls beginColor(QelColor3f given) {
        return {call("glGetFloatv", GL_CURRENT_COLOR, out), call("glColor3f", given.r, given.g, given.b)};
    }
    std::string endColor() const { return call("glColor4f", color[0], color[1], color[2], color[3]); }

    static Calls beginSize(std::uint32_t parameter, float value) {
        return {call("glGetFloatv", parameter, out), callToSetSize(parameter, value)};
    }
    std::string endSize(std::uint32_t parameter) const {
        return callToSetSize(parameter, parameter == GL_POINT_SIZE ? pointSize : lineWidth);
    }

    static Calls beginSwitch(std::uint32_t capability, bool enabled) {
        return {call("glIsEnabled", capability), callToSwitch(capability, enabled)};
    }
    std::string endLighting() const { return callToSwitch(GL_LIGHTING, lighting); }
    std::string endDepthTest() const { return callToSwitch(GL_DEPTH_TEST, depthTest); }
};

/// The style of a marker.
struct MarkerStyle {
    std::uint32_t parameter = GL_LINE_WIDTH;
    float size = 2.5F;
    QelColor3f color{1.0F, 0.5F, 0.0F};
    bool lighting = false;
    bool depthTest = true;
};

/// The calls of a marker: its style, what it draws, and the host's state again.
inline Calls inStyle(const MarkerStyle& style, const HostState& host, const Calls& drawn) {
    Calls all = HostState::beginColor(style.color);
    append(all, HostState::beginSize(style.parameter, style.size));
    append(all, HostState::beginSwitch(GL_LIGHTING, style.lighting));
    append(all, HostState::beginSwitch(GL_DEPTH_TEST, style.depthTest));
    append(all, drawn);
    append(all, {host.endDepthTest(), host.endLighting(), host.endSize(style.parameter), host.endColor()});
    return all;
}

/// A primitive of glVertex3d vertices.
inline Calls primitive(std::uint32_t mode, std::initializer_list<XPnt3d> vertices) {
    Calls all{call("glBegin", mode)};
    for (const XPnt3d& vertex : vertices) {
        all.push_back(call("glVertex3d", vertex.x, vertex.y, vertex.z));
    }
    all.push_back(call("glEnd"));
    return all;
}

/// A symbol of the module's, a context to draw into, and a host's state that differs from OpenGL's defaults.
/// No case may end with an OpenGL error.
class SymbolTest : public ::testing::Test {
  protected:
    SymbolTest() { host.apply(); }

    void TearDown() override { EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)); }

    GlSurface surface{kSurfaceSize, kSurfaceSize};
    HostState host;
    ref_ptr<IQelSymbol> symbol{newQelSymbol()};
};

/// The ball at (0.1, 2, 3) with a radius of 0.7.
inline Calls ballCalls() {
    return {call("gluNewQuadric"),
            call("glPushMatrix"),
            call("gluQuadricDrawStyle", any, GLU_SILHOUETTE),
            call("glTranslatef", 0.1F, 2, 3),
            call("gluSphere", any, 0.7, 20, 20),
            call("glTranslatef", -0.1F, -2, -3),
            call("gluDeleteQuadric", any),
            call("glPopMatrix")};
}

}  // namespace qel::test
