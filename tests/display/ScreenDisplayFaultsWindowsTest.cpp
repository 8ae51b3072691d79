#include <optional>

#include "DisplayFixtureWindows.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

struct DisplayFault {
    const char* function;
    /// Whether the window gets a context all the same.
    bool hasContext;
};

/// Every operation of a frame, as a host calls them without looking at results.
void useFrame(const HeldDisplay& display, const TestWindow& window) {
    EXPECT_EQ(display->setViewSize(window.width(), window.height()), 1);
    EXPECT_EQ(display->beginFrame(0), 0);
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->updateView(), 0);
    EXPECT_EQ(display->setOrtho2D(), 0);
    glColor3f(1, 1, 1);
    glRasterPos2i(10, 20);
    EXPECT_EQ(display->printText("text"), 0);
    EXPECT_EQ(display->endDraw(), 0);
}

std::size_t textPixels(const HeldDisplay& display, const TestWindow& window) {
    useFrame(display, window);
    return Picture::ofFrame().countOtherThan(kBlack);
}

class ScreenDisplayFaults : public ::testing::TestWithParam<DisplayFault> {
  protected:
    const TestWindow window{100, 50};
};

TEST_P(ScreenDisplayFaults, OfAnAttachDrawNothingAndALaterAttachWorks) {
    std::optional<Census> before;
    for (int round = 0; round < 2; ++round) {
        HeldDisplay display;
        {
            CallTrace trace;
            trace.answer(GetParam().function, 0);
            EXPECT_EQ(display->attachWindow(number32(window.hwnd()), false), 0);
            EXPECT_EQ(display->getWindow(), number32(window.hwnd()));
        }
        EXPECT_EQ(currentContext() != nullptr, GetParam().hasContext);
        useFrame(display, window);
        display->finishFrame();
        display->restoreCache();
        EXPECT_EQ(display->endFrame(), 0);

        display->attachWindow(number32(window.hwnd()), false);
        EXPECT_GT(textPixels(display, window), 10U);
        display.release();
        if (round == 0) {
            before = Census::now();
        }
    }
    EXPECT_EQ(Census::now(), *before);
}

TEST_P(ScreenDisplayFaults, OfAnAttachLeaveNothingBehind) {
    const Census before = censusAfterFirstUse();
    {
        HeldDisplay display;
        CallTrace trace;
        trace.answer(GetParam().function, 0);
        display->attachWindow(number32(window.hwnd()), false);
        trace.passOn();
        display.release();
    }
    EXPECT_EQ(Census::now(), before);
}

TEST_P(ScreenDisplayFaults, OfAnAttachLeaveAnotherViewAlone) {
    const TestWindow otherWindow(100, 50);
    HeldDisplay other;
    other.attach(otherWindow);
    const std::size_t before = textPixels(other, otherWindow);
    HGLRC const context = currentContext();
    GLuint const free = glGenLists(1);
    glDeleteLists(free, 1);
    HeldDisplay display;
    {
        CallTrace trace;
        trace.answer(GetParam().function, 0, 1);
        display->attachWindow(number32(window.hwnd()), false);
        if (!GetParam().hasContext) {
            EXPECT_EQ(currentContext(), context);
            EXPECT_EQ(trace.count("glGenLists"), 0U);
        }
    }
    useFrame(display, window);

    other->makeCurrent();
    EXPECT_EQ(currentContext(), context);
    EXPECT_FALSE(glIsList(free)) << "a font in a context of another view";
    display.release();

    EXPECT_EQ(textPixels(other, otherWindow), before);
}

TEST_P(ScreenDisplayFaults, OfASecondAttachLeaveADisplayThatCanBeReleased) {
    const Census before = censusAfterFirstUse();
    {
        HeldDisplay display;
        display.attach(window);
        CallTrace trace;
        trace.answer(GetParam().function, 0);
        EXPECT_EQ(display->attachWindow(number32(window.hwnd()), false), 0);
        trace.passOn();
        useFrame(display, window);
        display.release();
    }
    EXPECT_EQ(Census::now(), before);
}

INSTANTIATE_TEST_SUITE_P(
    In, ScreenDisplayFaults,
    ::testing::Values(DisplayFault{"GetDC", false}, DisplayFault{"ChoosePixelFormat", false},
                      DisplayFault{"SetPixelFormat", false}, DisplayFault{"wglCreateContext", false},
                      DisplayFault{"wglMakeCurrent", false}, DisplayFault{"glGenLists", true},
                      DisplayFault{"CreateFontW", true}, DisplayFault{"wglUseFontBitmapsW", true}),
    [](const auto& tested) { return std::string(tested.param.function); });

TEST(ScreenDisplayFaultsOnce, OfListsKeepsTheListsOfTheHost) {
    const TestWindow window;
    const HeldDisplay display;
    CallTrace trace;
    trace.answer("glGenLists", 0);

    display.attach(window);
    display->printText("text");

    EXPECT_EQ(trace.count("wglUseFontBitmapsW"), 0U);
    EXPECT_EQ(trace.count("CreateFontW"), 0U);
    EXPECT_EQ(trace.count("glCallLists"), 0U);
}

TEST(ScreenDisplayFaultsOnce, OfTheFontLeavesTheTextInvisible) {
    for (const char* const function : {"CreateFontW", "SelectObject", "wglUseFontBitmapsW"}) {
        SCOPED_TRACE(function);
        const TestWindow window(100, 50);
        const HeldDisplay display;
        {
            CallTrace trace;
            trace.answer(function, 0);
            display.attach(window);
        }
        EXPECT_EQ(textPixels(display, window), 0U);
    }
}

TEST(ScreenDisplayFaultsOnce, OfAWindowThatIsGoneDrawsNothing) {
    std::int32_t gone = 0;
    {
        const TestWindow window;
        gone = number32(window.hwnd());
    }
    HeldDisplay display;
    EXPECT_EQ(display->attachWindow(gone, false), 0);
    EXPECT_EQ(currentContext(), nullptr);
    const TestWindow window;
    useFrame(display, window);
    display.release();
    EXPECT_EQ(currentContext(), nullptr);
}

TEST(ScreenDisplayFaultsOnce, OfALentContextLeavesAnotherViewAloneAndALaterAttachPreparesIt) {
    const GlSurface lent;
    const TestWindow window;
    const HeldDisplay other;
    other.attach(window);
    const HGLRC context = currentContext();
    const StateSnapshot before = StateSnapshot::take();
    const HeldDisplay display;
    {
        CallTrace trace;
        trace.answer("wglMakeCurrent", 0);
        EXPECT_EQ(display->attachDC(number32(lent.dc()), number32(lent.rc())), 0);
        EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
        EXPECT_EQ(trace.count("CreateFontW"), 0U);
    }
    EXPECT_EQ(currentContext(), context);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));

    EXPECT_EQ(display->attachDC(number32(lent.dc()), number32(lent.rc())), 0);
    EXPECT_EQ(currentContext(), reinterpret_cast<HGLRC>(lent.rc()));
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
    glDisable(GL_LIGHTING);
    EXPECT_GT(textPixels(display, window), 10U);
}

TEST(ScreenDisplayFaultsOnce, OfTheFontInAHostsContextLeavesItsTextInvisible) {
    const TestWindow window;
    HeldDisplay host;
    host.attach(window);
    const HGLRC context = currentContext();
    const HeldDisplay display;
    {
        CallTrace trace;
        trace.answer("wglUseFontBitmapsW", 0);
        EXPECT_EQ(display->attachDC(host->getDC(), handleNumber(context)), 0);
    }
    glDisable(GL_LIGHTING);
    EXPECT_EQ(textPixels(display, window), 0U);
}

}  // namespace
}  // namespace qel::test
