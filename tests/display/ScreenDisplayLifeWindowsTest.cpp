#include "CQelTrackBall.h"
#include "DisplayFixtureWindows.h"
#include "kit/GlSurface.h"
#include "kit/LongRun.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

constexpr GLuint kListBase = 7000;

/// Both holders make what is left of them current, and that is nothing.
Calls holdersGone() {
    return {call("wglMakeCurrent", nullptr, nullptr), call("wglMakeCurrent", nullptr, nullptr)};
}

Calls currentAsked() {
    return {call("wglGetCurrentContext"), call("wglGetCurrentDC")};
}

void attachWithKnownLists(const HeldDisplay& display, const TestWindow& window) {
    CallTrace trace;
    trace.answer("glGenLists", kListBase);
    display.attach(window);
}

TEST(ScreenDisplayLife, EndsWithItsListsItsControllerAndItsContext) {
    const Census before = censusAfterFirstUse();
    {
        const TestWindow window;
        HeldDisplay display;
        attachWithKnownLists(display, window);
        HGLRC const context = currentContext();
        const CallTrace trace;

        display.release();

        Calls expected = currentAsked();
        append(expected,
               {call("wglMakeCurrent", widened(window.dc()), context),
                call("glDeleteLists", kListBase, kFontLists), call("wglMakeCurrent", dcOf(window), nullptr),
                call("wglDeleteContext", context), call("ReleaseDC", hwndOf(window), dcOf(window))});
        append(expected, holdersGone());
        EXPECT_TRUE(callsMatch(trace.calls(), expected));
        EXPECT_EQ(currentContext(), nullptr);
    }
    EXPECT_EQ(Census::now(), before);
}

TEST(ScreenDisplayLife, ThatWasNeverAttachedEndsWithoutACallToOpenGl) {
    HeldDisplay display;
    const GlSurface surface;
    HGLRC const context = currentContext();
    const CallTrace trace;

    display.release();

    Calls expected = currentAsked();
    append(expected, holdersGone());
    append(expected, {call("wglMakeCurrent", reinterpret_cast<HDC>(surface.dc()), context)});
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_EQ(currentContext(), context);
}

TEST(ScreenDisplayLife, LastsUntilTheLastReferenceIsGivenBack) {
    const TestWindow window;
    HeldDisplay display;
    display.attach(window);
    ref_ptr<IQelDisplay> kept(&*display);
    const CallTrace trace;

    display.release();
    EXPECT_TRUE(callsMatch(trace.calls(), {}));

    kept.reset();
    EXPECT_EQ(trace.count("wglDeleteContext"), 1U);
}

/// Whatever a controller can draw, and a sweep of its camera.
void useAll(CQelTrackBall& controller) {
    controller.onButtonDown(DragRotate, 10, 10);
    controller.onMouseMove(20, 30);
    controller.drawTrackBall();
    controller.drawAxes();
    controller.drawFrame(0, 0, 0, {1, 0, 0}, {0, 1, 0}, 10.0F, true);
    controller.drawLabel(0, 0, 0, 1, 1, "%d", 7);
    controller.onButtonUp();
    controller.setStandardView(ViewFront);
    controller.setOverlayOption(true);
    controller.drawAxes();
}

TEST(ScreenDisplayLife, LeavesAHeldControllerWithoutADisplayThatDrawsNothing) {
    const TestWindow window(64, 64);
    HeldDisplay display;
    display.attach(window);
    const ref_ptr<CQelTrackBall> controller(&static_cast<CQelTrackBall&>(*display->getTrackBall()));
    ASSERT_EQ(controller->getDisplay(), &*display);

    display.release();

    EXPECT_EQ(controller->getDisplay(), nullptr);
    EXPECT_EQ(controller->referenceCount(), 1);
    const GlSurface ofSomebodyElse(64, 64);
    const Picture before = Picture::ofFrame();
    const CallTrace trace;
    useAll(*controller);
    EXPECT_TRUE(callsMatch(trace.calls(), trace.calls("glGet", "gluProject", "gluUnProject")));
    EXPECT_TRUE(Picture::ofFrame() == before);
}

/// Two views with a picture each; the second one's context is current.
class ScreenDisplayLifeOfTwo : public ::testing::Test {
  protected:
    ScreenDisplayLifeOfTwo() {
        first.attach(firstWindow);
        second.attach(secondWindow);
        secondContext = currentContext();
        picture = drawn();
    }

    /// The second view's frame: its back colour and a text.
    Picture drawn() {
        second->setBackColor({0, 0, 1});
        second->beginFrame(0);
        second->beginDraw();
        second->setOrtho2D();
        glColor3f(1, 1, 0);
        glRasterPos2i(10, 20);
        second->printText("second");
        second->endDraw();
        return Picture::ofFrame();
    }

    TestWindow firstWindow{100, 50};
    TestWindow secondWindow{100, 50};
    HeldDisplay first;
    HeldDisplay second;
    HGLRC secondContext = nullptr;
    Picture picture;
};

TEST_F(ScreenDisplayLifeOfTwo, LeaveEachOthersTextListsAndPictureWhenOneGoes) {
    ASSERT_GT(picture.countOf({255, 255, 0, 255}, 60), 10U);
    GLuint const ofTheHost = glGenLists(1);
    glNewList(ofTheHost, GL_COMPILE);
    glEndList();

    first.release();

    EXPECT_EQ(currentContext(), secondContext);
    EXPECT_TRUE(glIsList(ofTheHost));
    EXPECT_TRUE(Picture::ofFrame() == picture);
    EXPECT_TRUE(drawn() == picture);
}

TEST_F(ScreenDisplayLifeOfTwo, DeleteOnlyTheirOwnLists) {
    // In contexts that share nothing, fonts often begin at the same list.
    const CallTrace trace;
    first.release();
    const Calls calls = trace.calls("glDeleteLists", "wglMakeCurrent");
    ASSERT_GE(calls.size(), 2U);
    EXPECT_TRUE(callMatches(calls[0], call("wglMakeCurrent", widened(firstWindow.dc()), any)));
    EXPECT_TRUE(callMatches(calls[1], call("glDeleteLists", any, kFontLists)));
    EXPECT_EQ(trace.count("glDeleteLists"), 1U);
}

TEST_F(ScreenDisplayLifeOfTwo, MakeTheOtherOneCurrentAgainAlsoWhenTheCurrentOneGoes) {
    second.release();
    EXPECT_EQ(currentContext(), nullptr);
    first->beginDraw();
    EXPECT_NE(currentContext(), nullptr);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ScreenDisplayLifeOfTwo, LeaveTheContextOfAHostCurrent) {
    const GlSurface surface;
    HGLRC const context = currentContext();
    first.release();
    EXPECT_EQ(currentContext(), context);
    second.release();
    EXPECT_EQ(currentContext(), context);
}

class ScreenDisplayLifeOnAHostsContext : public ::testing::Test {
  protected:
    void attach(const HeldDisplay& attached) const {
        attached->attachDC(number32(surface.dc()), number32(surface.rc()));
        attached->setViewSize(surface.width(), surface.height());
    }

    GlSurface surface{128, 64};
    HeldDisplay display;
};

TEST_F(ScreenDisplayLifeOnAHostsContext, DeletesNeitherTheContextNorListsOfTheHost) {
    GLuint const ofTheHost = glGenLists(1);
    glNewList(ofTheHost, GL_COMPILE);
    glEndList();
    GLuint font = 0;
    {
        CallTrace trace;
        trace.answer("glGenLists", kListBase, 1);
        attach(display);
    }
    font = kListBase;
    ASSERT_TRUE(glIsList(font));
    const CallTrace trace;

    display.release();

    EXPECT_EQ(trace.count("wglDeleteContext"), 0U);
    EXPECT_EQ(trace.count("ReleaseDC"), 0U);
    EXPECT_TRUE(callsMatch(trace.callsOf("glDeleteLists"), {call("glDeleteLists", font, kFontLists)}));
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
    EXPECT_TRUE(glIsList(ofTheHost));
    EXPECT_FALSE(glIsList(font));
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ScreenDisplayLifeOnAHostsContext, ThatTwoShareStaysUsableForTheOtherOne) {
    HeldDisplay other;
    attach(display);
    attach(other);
    display.release();
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
    other->beginFrame(0);
    other->setOrtho2D();
    glColor3f(1, 1, 1);
    glDisable(GL_LIGHTING);
    glRasterPos2i(10, 20);
    other->printText("other");
    EXPECT_GT(Picture::ofFrame().countOtherThan({0, 0, 0, 255}), 10U);
}

TEST_F(ScreenDisplayLifeOnAHostsContext, AfterAWindowDeletesTheWindowsContextOnly) {
    const TestWindow window;
    display.attach(window);
    HGLRC const own = currentContext();
    attach(display);
    const CallTrace trace;
    display.release();
    EXPECT_TRUE(callsMatch(trace.callsOf("wglDeleteContext"), {call("wglDeleteContext", own)}));
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
}

TEST_F(ScreenDisplayLifeOnAHostsContext, ThatTheHostDeletedBeforeEndsWithoutHarm) {
    const TestWindow window;
    {
        const GlSurface passing;
        display->attachDC(number32(passing.dc()), number32(passing.rc()));
    }
    const CallTrace trace;
    display.release();
    EXPECT_EQ(trace.count("glDeleteLists"), 0U);
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
}

TEST(ScreenDisplayLife, EndsWithoutHarmAfterItsWindow) {
    const Census before = censusAfterFirstUse();
    {
        HeldDisplay display;
        {
            const TestWindow window;
            display.attach(window);
            display->beginFrame(0);
        }
        display->beginFrame(0);
        display->finishFrame();
        display.release();
    }
    const Census after = Census::now();
    EXPECT_EQ(after.gdiHandles, before.gdiHandles);
    EXPECT_EQ(after.userHandles, before.userHandles);
    EXPECT_EQ(after.glContexts, before.glContexts);
}

TEST(ScreenDisplayLife, EndsInTheMiddleOfACaptureAndLeavesTheHostsContextCurrent) {
    const Census before = censusAfterFirstUse();
    {
        const TestWindow window;
        const GlSurface surface;
        for (const bool captureIsCurrent : {true, false}) {
            HeldDisplay display;
            display.attach(window);
            Enve2d extent(0, 0, 256, 256);
            ASSERT_EQ(display->beginCapture(64, 64, &extent, QString("never written.bmp")), 0);
            if (!captureIsCurrent) {
                const_cast<GlSurface&>(surface).makeCurrent();
            }
            display.release();
            // The window's context, which was current before, goes with the display.
            EXPECT_EQ(currentContext(), captureIsCurrent ? nullptr : reinterpret_cast<HGLRC>(surface.rc()));
        }
    }
    EXPECT_EQ(Census::now(), before);
}

TEST_F(ScreenDisplayLifeOfTwo, EndInACaptureWithTheContextCurrentThatWasCurrentBefore) {
    Enve2d extent(0, 0, 100, 50);
    const TestWindow window(100, 50);
    // The second one replaces the first.
    for (const int captures : {1, 2}) {
        SCOPED_TRACE(captures);
        HeldDisplay passing;
        passing.attach(window);
        second->makeCurrent();
        for (int capture = 0; capture < captures; ++capture) {
            ASSERT_EQ(passing->beginCapture(16, 16, &extent, QString("unwritten.bmp")), 0);
        }
        ASSERT_NE(currentContext(), secondContext);
        passing.release();
        EXPECT_EQ(currentContext(), secondContext);
    }
    EXPECT_TRUE(drawn() == picture);
}

TEST_F(ScreenDisplayLifeOnAHostsContext, StaysCurrentAfterADisplayThatEndsInACapture) {
    attach(display);
    Enve2d extent(0, 0, 128, 64);
    ASSERT_EQ(display->beginCapture(16, 16, &extent, QString("never written.bmp")), 0);
    ASSERT_NE(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
    display.release();
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(surface.rc()));
}

TEST(ScreenDisplayLife, LeavesNothingBehindAfterManyDisplays) {
    const TestWindow window;
    const auto once = [&window](int round) {
        HeldDisplay display;
        display.attach(window);
        if (round % 10 == 0) {
            display.attach(window);
        }
        display->beginFrame(0);
        display->beginDraw();
        display->printText("%d", round);
        display->endFrame();
    };
    once(0);
    const Census before = censusAfterFirstUse();
    const int displays = shortOrLong(16, 200);
    for (int round = 0; round < displays; ++round) {
        once(round);
    }
    EXPECT_EQ(Census::now(), before);
}

}  // namespace
}  // namespace qel::test
