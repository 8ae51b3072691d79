#include "GlSurface.h"

#include <gtest/gtest.h>

#include <memory>

#include "CallTrace.h"
#include "QelGl.h"

namespace qel::test {
namespace {

TEST(GlSurface, StartsBlackWithTheViewportOverAllOfIt) {
    const GlSurface surface(48, 32);
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 48);
    EXPECT_EQ(viewport[3], 32);
    EXPECT_EQ(surface.pixel(0, 0), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(surface.pixel(47, 31), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(surface.depth(20, 20), 1.0F);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(GlSurface, HasFineColourAndDepth) {
    const GlSurface surface(8, 8);
    GLint red = 0;
    GLint depth = 0;
    glGetIntegerv(GL_RED_BITS, &red);
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    EXPECT_EQ(red, 8);
    EXPECT_GE(depth, 24);
}

TEST(GlSurface, ShowsWhatIsDrawnWithTheOriginLowerLeft) {
    const GlSurface surface(40, 20);
    gluOrtho2D(0, 40, 0, 20);
    glEnable(GL_DEPTH_TEST);
    glColor3f(0, 1, 0);
    glRectf(0, 0, 10, 5);
    EXPECT_EQ(surface.pixel(2, 2), (Rgba{0, 255, 0, 255}));
    EXPECT_EQ(surface.pixel(2, 17), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(surface.pixel(30, 2), (Rgba{0, 0, 0, 255}));
    EXPECT_NEAR(surface.depth(2, 2), 0.5F, 1e-6F);
}

TEST(GlSurface, LendsItsContextToGlu) {
    const GlSurface surface(32, 32);
    glMatrixMode(GL_PROJECTION);
    gluPerspective(60, 2, 1, 10);
    GLdouble matrix[16] = {};
    glGetDoublev(GL_PROJECTION_MATRIX, matrix);
    EXPECT_NEAR(matrix[5], 1.7320508, 1e-6);
    EXPECT_NEAR(matrix[0], 1.7320508 / 2, 1e-6);
    GLUquadric* const quadric = gluNewQuadric();
    glLoadIdentity();
    gluSphere(quadric, 0.5, 16, 16);
    gluDeleteQuadric(quadric);
    EXPECT_EQ(surface.pixel(16, 16), (Rgba{255, 255, 255, 255}));
}

TEST(GlSurface, KeepsItsStateWhenItsSizeChanges) {
    GlSurface surface(16, 16);
    glLineWidth(3);
    surface.resize(64, 50);
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 3);
    EXPECT_EQ(surface.width(), 64);
    glColor3f(1, 0, 0);
    glRectf(-1, -1, 1, 1);
    EXPECT_EQ(surface.pixel(63, 49), (Rgba{255, 0, 0, 255}));
}

TEST(GlSurface, GivesBackTheContextThatWasCurrent) {
    const GlSurface outer(16, 16);
    glLineWidth(7);
    {
        const GlSurface inner(8, 8);
        GLfloat width = 0;
        glGetFloatv(GL_LINE_WIDTH, &width);
        EXPECT_EQ(width, 1);
    }
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 7);
}

TEST(GlSurface, ClearsOverAllMasksAndLeavesThem) {
    GlSurface surface(16, 16);
    glColorMask(GL_TRUE, GL_FALSE, GL_FALSE, GL_FALSE);
    glClearColor(0.5F, 0, 0, 0);
    surface.clear({10, 20, 30, 255});
    EXPECT_EQ(surface.pixel(5, 5), (Rgba{10, 20, 30, 255}));
    GLboolean mask[4] = {};
    GLfloat colour[4] = {};
    glGetBooleanv(GL_COLOR_WRITEMASK, mask);
    glGetFloatv(GL_COLOR_CLEAR_VALUE, colour);
    EXPECT_EQ(mask[1], GL_FALSE);
    EXPECT_EQ(colour[0], 0.5F);
}

TEST(GlSurface, LeavesNoMarkInATrace) {
    const CallTrace trace;
    {
        GlSurface surface(16, 16);
        surface.clear({1, 2, 3, 4});
        surface.resize(20, 20);
        surface.pixel(0, 0);
        surface.depth(0, 0);
    }
    EXPECT_TRUE(callsMatch(trace.calls("gl", "wgl", "GetDC", "ReleaseDC"), {}));
}

}  // namespace
}  // namespace qel::test
