#include "DisplayFixtureWindows.h"

namespace qel::test {
namespace {

/// The state calls that a display hands out, on the display's context.
class CQelGLTest : public DisplayTest {
  protected:
    IQelGL& gl() { return *display->getGL(); }
};

TEST_F(CQelGLTest, PassesEachCallOnAndAnswersZero) {
    std::int32_t integers[4] = {1, 0, 0, 0};
    std::uint8_t bytes[4] = {};
    double doubles[16] = {};
    float floats[4] = {0.25F, 0.5F, 0.75F, 1.0F};
    const CallTrace trace;

    EXPECT_EQ(gl().enable(GL_FOG), 0);
    EXPECT_EQ(gl().disable(GL_FOG), 0);
    EXPECT_FALSE(gl().isEnabled(GL_FOG));
    EXPECT_EQ(gl().cullFace(GL_FRONT), 0);
    EXPECT_EQ(gl().lightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1), 0);
    EXPECT_EQ(gl().lightModelf(GL_LIGHT_MODEL_LOCAL_VIEWER, 1.0F), 0);
    EXPECT_EQ(gl().lightModeliv(GL_LIGHT_MODEL_TWO_SIDE, integers), 0);
    EXPECT_EQ(gl().lightModelfv(GL_LIGHT_MODEL_AMBIENT, floats), 0);
    EXPECT_EQ(gl().getIntegerv(GL_VIEWPORT, integers), 0);
    EXPECT_EQ(gl().getBooleanv(GL_COLOR_WRITEMASK, bytes), 0);
    EXPECT_EQ(gl().getDoublev(GL_MODELVIEW_MATRIX, doubles), 0);
    EXPECT_EQ(gl().getFloatv(GL_CURRENT_COLOR, floats), 0);

    EXPECT_TRUE(callsMatch(
        trace.calls(),
        {call("glEnable", GL_FOG), call("glDisable", GL_FOG), call("glIsEnabled", GL_FOG),
         call("glCullFace", GL_FRONT), call("glLightModeli", GL_LIGHT_MODEL_TWO_SIDE, 1),
         call("glLightModelf", GL_LIGHT_MODEL_LOCAL_VIEWER, 1),
         call("glLightModeliv", GL_LIGHT_MODEL_TWO_SIDE, Verbatim{"[1]"}),
         call("glLightModelfv", GL_LIGHT_MODEL_AMBIENT, values({0.25F, 0.5F, 0.75F, 1})),
         call("glGetIntegerv", GL_VIEWPORT, out), call("glGetBooleanv", GL_COLOR_WRITEMASK, out),
         call("glGetDoublev", GL_MODELVIEW_MATRIX, out), call("glGetFloatv", GL_CURRENT_COLOR, out)}));
}

TEST_F(CQelGLTest, AnswersWhatOpenGlHolds) {
    gl().enable(GL_FOG);
    EXPECT_TRUE(gl().isEnabled(GL_FOG));
    EXPECT_TRUE(glIsEnabled(GL_FOG));
    gl().disable(GL_FOG);
    EXPECT_FALSE(gl().isEnabled(GL_FOG));

    std::int32_t viewport[4] = {};
    gl().getIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], kWidth);
    EXPECT_EQ(viewport[3], kHeight);

    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
    std::uint8_t mask[4] = {7, 7, 7, 7};
    gl().getBooleanv(GL_COLOR_WRITEMASK, mask);
    const std::uint8_t expected[4] = {1, 0, 1, 0};
    EXPECT_EQ(::testing::PrintToString(mask), ::testing::PrintToString(expected));

    glColor4f(0.25F, 0.5F, 0.75F, 0.125F);
    float color[4] = {};
    gl().getFloatv(GL_CURRENT_COLOR, color);
    EXPECT_EQ(color[1], 0.5F);
    double wide[4] = {};
    gl().getDoublev(GL_CURRENT_COLOR, wide);
    EXPECT_EQ(wide[2], 0.75);

    gl().cullFace(GL_FRONT_AND_BACK);
    gl().lightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
    std::int32_t value = 0;
    gl().getIntegerv(GL_CULL_FACE_MODE, &value);
    EXPECT_EQ(value, GL_FRONT_AND_BACK);
    gl().getIntegerv(GL_LIGHT_MODEL_TWO_SIDE, &value);
    EXPECT_EQ(value, 1);
}

TEST_F(CQelGLTest, RefusesNullArraysWithoutACall) {
    const CallTrace trace;
    EXPECT_EQ(gl().getIntegerv(GL_VIEWPORT, nullptr), 0);
    EXPECT_EQ(gl().getBooleanv(GL_COLOR_WRITEMASK, nullptr), 0);
    EXPECT_EQ(gl().getDoublev(GL_MODELVIEW_MATRIX, nullptr), 0);
    EXPECT_EQ(gl().getFloatv(GL_CURRENT_COLOR, nullptr), 0);
    EXPECT_EQ(gl().lightModeliv(GL_LIGHT_MODEL_TWO_SIDE, nullptr), 0);
    EXPECT_EQ(gl().lightModelfv(GL_LIGHT_MODEL_AMBIENT, nullptr), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST_F(CQelGLTest, ActsOnWhateverContextIsCurrent) {
    const TestWindow other;
    HeldDisplay second;
    second.attach(other);
    gl().enable(GL_FOG);
    EXPECT_TRUE(glIsEnabled(GL_FOG));
    display->makeCurrent();
    EXPECT_FALSE(glIsEnabled(GL_FOG));
}

TEST_F(CQelGLTest, IsTheSameObjectAtEachCallAndTakesNoReference) {
    IQelGL* const handedOut = display->getGL();
    EXPECT_EQ(display->getGL(), handedOut);
    EXPECT_EQ(handedOut->referenceCount(), 1);
}

TEST_F(CQelGLTest, OutlivesTheDisplayWithAHostThatHoldsIt) {
    const ref_ptr<IQelGL> held(display->getGL());
    display.release();
    EXPECT_EQ(held->referenceCount(), 1);
    EXPECT_EQ(held->enable(GL_FOG), 0);
}

}  // namespace
}  // namespace qel::test
