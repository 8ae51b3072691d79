#include <cmath>

#include "DisplayFixtureWindows.h"

namespace qel::test {
namespace {

constexpr GLbitfield kColorAndDepth = GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT;

/// The red cross near the model's origin, within the guards of its style.
Calls markerDrawn() {
    return {
        call("glGetFloatv", GL_CURRENT_COLOR, out),
        call("glColor3f", 1, 0, 0),
        call("glGetFloatv", GL_LINE_WIDTH, out),
        call("glLineWidth", 2),
        call("glIsEnabled", GL_LIGHTING),
        call("glDisable", GL_LIGHTING),
        call("glIsEnabled", GL_DEPTH_TEST),
        call("glDisable", GL_DEPTH_TEST),
        call("glBegin", GL_LINES),
        call("glVertex3d", 8, 10, 0),
        call("glVertex3d", 12, 10, 0),
        call("glVertex3d", 10, 8, 0),
        call("glVertex3d", 10, 12, 0),
        call("glVertex3d", 10, 10, -2),
        call("glVertex3d", 10, 10, 2),
        call("glEnd"),
        call("glEnable", GL_DEPTH_TEST),
        call("glDisable", GL_LIGHTING),
        call("glLineWidth", 1),
        call("glColor4f", 1, 1, 1, 1),
    };
}

class ScreenDisplayFrame : public DisplayTest {
  protected:
    Calls backBufferSelected() const { return {call("glDrawBuffer", GL_BACK), call("glGetError")}; }

    static Calls rigOfTheFirstCamera() {
        return lightsSet(values({0, 0, 100, 0}), values({0, 0, -100000, 0}));
    }
};

TEST_F(ScreenDisplayFrame, BegunInModeZeroClearsAndSetsUpTheLights) {
    display->setBackColor({0.25F, 0.5F, 0.75F});
    const CallTrace trace;

    EXPECT_EQ(display->beginFrame(0), 0);

    Calls expected{makesCurrent(), call("glDrawBuffer", GL_BACK), call("glClearColor", 0.25F, 0.5F, 0.75F, 1),
                   call("glClear", kColorAndDepth)};
    append(expected, rigOfTheFirstCamera());
    append(expected, {call("glGetIntegerv", GL_LIGHT0, out)});
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST_F(ScreenDisplayFrame, BegunInAnyOtherModeSwapsInsteadOfClearingAndStillSetsUpTheLights) {
    for (const std::int32_t mode : {1, 2, -1}) {
        const CallTrace trace;

        EXPECT_EQ(display->beginFrame(mode), 0);

        Calls expected{makesCurrent(), swaps()};
        append(expected, rigOfTheFirstCamera());
        append(expected, {call("glGetIntegerv", GL_LIGHT0, out)});
        EXPECT_TRUE(callsMatch(trace.calls(), expected)) << "mode " << mode;
    }
}

TEST_F(ScreenDisplayFrame, LeavesAnErrorFlagThatTheBracketClears) {
    display->beginFrame(0);
    display->beginDraw();
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ScreenDisplayFrame, SelectsTheBackBufferForTheOutermostBracketOnly) {
    const CallTrace trace;
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->endDraw(), 1);
    EXPECT_EQ(display->endDraw(), 0);

    Calls expected{makesCurrent()};
    append(expected, backBufferSelected());
    append(expected, {makesCurrent()});
    append(expected, backBufferSelected());
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST_F(ScreenDisplayFrame, CountsBracketsThatWereNeverOpened) {
    const CallTrace trace;
    EXPECT_EQ(display->endDraw(), -1);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_TRUE(callsMatch(trace.calls(), {makesCurrent()}));
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->endDraw(), 0);
}

TEST_F(ScreenDisplayFrame, EndedWithTwoBracketsOpenOnlyDecrements) {
    display->beginDraw();
    display->beginDraw();
    const CallTrace trace;

    EXPECT_EQ(display->endFrame(), 1);

    EXPECT_TRUE(callsMatch(trace.calls(), cameraLoaded()));
}

TEST_F(ScreenDisplayFrame, EndedWithTheLastBracketDrawsTheMarkerSwapsAndLoadsTheCamera) {
    display->beginDraw();
    const CallTrace trace;

    EXPECT_EQ(display->endFrame(), 0);

    Calls expected = backBufferSelected();
    append(expected, markerDrawn());
    append(expected, {swaps()});
    append(expected, cameraLoaded());
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST_F(ScreenDisplayFrame, EndedWithoutABracketNeitherDrawsNorSwaps) {
    const CallTrace trace;

    EXPECT_EQ(display->endFrame(), -1);

    EXPECT_TRUE(callsMatch(trace.calls(), cameraLoaded()));
}

TEST_F(ScreenDisplayFrame, GivesThePublicSymbolBackAfterTheMarker) {
    const ref_ptr<IQelSymbol> shared = getPubSymbol();
    const std::int32_t before = shared->referenceCount();
    display->beginDraw();
    display->endFrame();
    EXPECT_EQ(shared->referenceCount(), before);
}

TEST_F(ScreenDisplayFrame, TakesAnotherContextBackBeforeItDraws) {
    const TestWindow other;
    HeldDisplay second;
    second.attach(other);
    ASSERT_NE(currentContext(), context);
    display->beginDraw();
    EXPECT_EQ(currentContext(), context);
    display->endDraw();
    second->makeCurrent();
    display->beginFrame(0);
    EXPECT_EQ(currentContext(), context);
}

TEST_F(ScreenDisplayFrame, SwapsByThreeNames) {
    const CallTrace trace;
    EXPECT_EQ(display->swapBuffers(), 0);
    EXPECT_EQ(display->present(), 0);
    EXPECT_EQ(display->presentView(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {swaps(), swaps(), swaps()}));
}

TEST_F(ScreenDisplayFrame, LoadsTheCameraOfTheController) {
    const CallTrace trace;
    EXPECT_EQ(display->updateView(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), cameraLoaded()));
}

TEST_F(ScreenDisplayFrame, SwitchesToPixelCoordinates) {
    const CallTrace trace;
    EXPECT_EQ(display->setOrtho2D(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), pixelCoordinates()));
}

TEST_F(ScreenDisplayFrame, DrawsInPixelCoordinatesFromTheLowerLeftCorner) {
    display->setOrtho2D();
    GLdouble modelView[16] = {};
    GLdouble projection[16] = {};
    GLint viewport[4] = {};
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
    GLdouble x = 0;
    GLdouble y = 0;
    GLdouble z = 0;
    gluProject(40.0, 30.0, 0.0, modelView, projection, viewport, &x, &y, &z);
    // The matrices are single precision in most drivers: a hundredth of a pixel is far above their rounding.
    EXPECT_NEAR(x, 40.0, 0.01);
    EXPECT_NEAR(y, 30.0, 0.01);
}

TEST_F(ScreenDisplayFrame, DoesNotSelectEyesWithoutStereo) {
    const CallTrace trace;
    EXPECT_EQ(display->selectStereoBuffer(true), 0);
    EXPECT_EQ(display->selectStereoBuffer(false), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

/// The eye of a pair: turned about the up vector by the angle whose tangent is separation / distance.
std::string cameraOfTheRightEye(double separation) {
    const double angle = std::atan(separation / 100.0);
    // The axis of a rotation is given in single precision, the angle is not.
    constexpr double kRounding = 1e-4;
    return call("gluLookAt", about(100.0 * std::sin(angle), kRounding), about(0, kRounding),
                about(100.0 * std::cos(angle), kRounding), 0, 0, 0, 0, 1, 0);
}

TEST_F(ScreenDisplayFrame, SelectsTheEyesOfAStereoPair) {
    const TestWindow wide(100, 100);
    HeldDisplay stereo;
    stereo.attach(wide, true);
    for (const float separation : {3.0F, 8.5F}) {
        const CallTrace trace;
        if (separation != 3.0F) {
            EXPECT_EQ(stereo->setStereoSeparation(separation), 0);
        }
        EXPECT_EQ(stereo->selectStereoBuffer(true), 0);
        EXPECT_TRUE(callsMatch(trace.calls(), {call("glDrawBuffer", GL_BACK_LEFT)}));
        EXPECT_EQ(stereo->selectStereoBuffer(false), 0);
        EXPECT_TRUE(callsMatch(trace.calls(),
                               {call("glDrawBuffer", GL_BACK_LEFT), call("glDrawBuffer", GL_BACK_RIGHT),
                                call("glMatrixMode", GL_MODELVIEW), call("glLoadIdentity"),
                                cameraOfTheRightEye(static_cast<double>(separation))}));
    }
}

TEST_F(ScreenDisplayFrame, LoadsTheMonoCameraWhenAStereoFrameIsFinished) {
    const TestWindow other(100, 100);
    for (const bool isStereo : {false, true}) {
        HeldDisplay finished;
        finished.attach(other, isStereo);
        const CallTrace trace;
        finished->finishFrame();
        Calls after = trace.calls("SwapBuffers", "gluLookAt");
        after.erase(after.begin(), after.end() - (isStereo ? 2 : 1));
        EXPECT_TRUE(callsMatch(after, isStereo ? Calls{call("SwapBuffers", widened(other.dc())),
                                                       call("gluLookAt", 0, 0, 100, 0, 0, 0, 0, 1, 0)}
                                               : Calls{call("SwapBuffers", widened(other.dc()))}));
    }
}

}  // namespace
}  // namespace qel::test
