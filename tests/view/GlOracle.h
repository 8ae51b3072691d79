#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>

#include "QelGl.h"
#include "XPnt3d.h"
#include "kit/CallTrace.h"

/// What the tests of the camera measure it with: the matrices that OpenGL holds, GLU called by the test
/// itself, and glm.

namespace qel::test {

/// Half the height of the view at the distance 1, with the field of view that a camera has at first.
inline const double kTanHalf = std::tan(27.0 * 0.5 * 3.141592653589793 / 180.0);

/// OpenGL keeps its matrices in single precision; entries and what is computed with them carry that rounding,
/// relative to the largest figure involved.
inline constexpr double kGlRounding = 4e-7;

/// Distances computed in another order of the same double operations.
inline constexpr double kDoubleRounding = 1e-14;

inline glm::dvec3 asGlm(const XPnt3d& point) {
    return {point.x, point.y, point.z};
}

inline XPnt3d asPoint(const glm::dvec3& point) {
    return {point.x, point.y, point.z};
}

inline ::testing::AssertionResult isCloseTo(const XPnt3d& actual, const XPnt3d& expected, double tolerance) {
    if (glm::distance(asGlm(actual), asGlm(expected)) <= tolerance) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") instead of (" << expected.x
           << ", " << expected.y << ", " << expected.z << "), "
           << glm::distance(asGlm(actual), asGlm(expected)) << " away";
}

inline ::testing::AssertionResult isExactly(const XPnt3d& actual, const XPnt3d& expected) {
    return isCloseTo(actual, expected, 0.0);
}

/// Entries may differ by `tolerance` parts of the largest of them.
inline ::testing::AssertionResult matrixIsNear(const double* actual, const glm::dmat4& expected,
                                               double tolerance) {
    const double* const wanted = glm::value_ptr(expected);
    double largest = 0.0;
    for (int i = 0; i < 16; ++i) {
        largest = std::max(largest, std::fabs(wanted[i]));
    }
    for (int i = 0; i < 16; ++i) {
        if (!(std::fabs(actual[i] - wanted[i]) <= tolerance * largest)) {
            return ::testing::AssertionFailure()
                   << "entry " << i << " is " << actual[i] << " instead of " << wanted[i];
        }
    }
    return ::testing::AssertionSuccess();
}

/// The matrices and the viewport that OpenGL holds, and what GLU computes with them.
struct GlView {
    double modelview[16] = {};
    double projection[16] = {};
    GLint viewport[4] = {};

    static GlView current() {
        const CallTrace::Pause unrecorded;
        GlView view;
        glGetDoublev(GL_MODELVIEW_MATRIX, view.modelview);
        glGetDoublev(GL_PROJECTION_MATRIX, view.projection);
        glGetIntegerv(GL_VIEWPORT, view.viewport);
        return view;
    }

    XPnt3d project(const XPnt3d& point) const {
        const CallTrace::Pause unrecorded;
        XPnt3d window;
        gluProject(point.x, point.y, point.z, modelview, projection, viewport, &window.x, &window.y,
                   &window.z);
        return window;
    }

    XPnt3d unProject(double x, double y, double z) const {
        const CallTrace::Pause unrecorded;
        XPnt3d point;
        gluUnProject(x, y, z, modelview, projection, viewport, &point.x, &point.y, &point.z);
        return point;
    }

    glm::dmat4 modelviewMatrix() const { return glm::make_mat4(modelview); }
    glm::dmat4 projectionMatrix() const { return glm::make_mat4(projection); }

    /// The point in clip coordinates.
    glm::dvec4 clip(const XPnt3d& point) const {
        return projectionMatrix() * modelviewMatrix() * glm::dvec4(asGlm(point), 1.0);
    }
};

/// The model-view matrix of a camera, computed by glm.
inline glm::dmat4 lookAt(const XPnt3d& eye, const XPnt3d& target, const XPnt3d& up) {
    return glm::lookAt(asGlm(eye), asGlm(target), asGlm(up));
}

/// Draws a rectangle of pixels at a window depth, whatever the camera; lower bounds inclusive, upper
/// exclusive.
inline void drawAtDepth(int x0, int y0, int x1, int y1, double depth) {
    const CallTrace::Pause unrecorded;
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    glPushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT | GL_TRANSFORM_BIT | GL_CURRENT_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_BLEND);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_ALWAYS);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    // Depth 0 lies at z = 0 and depth 1 at z = -1.
    glOrtho(0.0, viewport[2], 0.0, viewport[3], 0.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glTranslated(0.0, 0.0, -depth);
    glRecti(x0, y0, x1, y1);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

}  // namespace qel::test
