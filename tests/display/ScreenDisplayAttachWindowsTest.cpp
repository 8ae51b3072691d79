#include "CQelTrackBall.h"
#include "DisplayFixtureWindows.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

PIXELFORMATDESCRIPTOR windowFormat(DWORD flags) {
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = 40;
    wanted.nVersion = 1;
    wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | flags;
    wanted.iPixelType = PFD_TYPE_RGBA;
    wanted.cColorBits = 16;
    wanted.cDepthBits = 16;
    return wanted;
}

/// From the window's device context to the font.
Calls contextMade(const TestWindow& window, HGLRC context, DWORD flags = PFD_DOUBLEBUFFER) {
    HDC const dc = dcOf(window);
    Calls all{call("GetDC", hwndOf(window)), call("ChoosePixelFormat", dc, windowFormat(flags)),
              call("SetPixelFormat", dc, any, windowFormat(flags)), call("wglCreateContext", dc),
              call("wglMakeCurrent", dc, context)};
    append(all, initialState());
    append(all, initialTests());
    append(all, fontBuilt(widened(window.dc())));
    return all;
}

/// What `attachDC` sets in the host's context.
Calls hostContextPrepared(const GlSurface& surface) {
    Calls all = initialState();
    append(all, {call("glDrawBuffer", GL_BACK), call("glEnable", GL_LIGHTING), call("glDepthFunc", GL_LEQUAL),
                 call("glBlendFunc", GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), call("glEnable", GL_BLEND)});
    append(all, fontBuilt(widened(surface.dc())));
    return all;
}

std::int32_t attachTo(const HeldDisplay& display, const GlSurface& surface) {
    return display->attachDC(number32(surface.dc()), number32(surface.rc()));
}

std::string callToUse(const GlSurface& surface) {
    return call("wglMakeCurrent", widened(surface.dc()), reinterpret_cast<HGLRC>(surface.rc()));
}

CQelTrackBall& controllerOf(const HeldDisplay& display) {
    return static_cast<CQelTrackBall&>(*display->getTrackBall());
}

TEST(ScreenDisplayAttach, ToAWindowMakesAContextAndBuildsTheFontStepByStep) {
    const TestWindow window(200, 100);
    const HeldDisplay display;
    const CallTrace trace;

    EXPECT_EQ(display->attachWindow(number32(window.hwnd()), false), 0);

    Calls expected{call("GetClientRect", hwndOf(window), out)};
    append(expected, contextMade(window, currentContext()));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_NE(currentContext(), nullptr);
    EXPECT_EQ(display->getWindow(), number32(window.hwnd()));
    EXPECT_EQ(display->getDC(), number32(window.dc()));
    EXPECT_FALSE(display->isStereo());
    EXPECT_EQ(controllerOf(display).getDisplay(), &*display);
}

TEST(ScreenDisplayAttach, ToAWindowWithStereoAsksForStereoAndNoDoubleBuffer) {
    const TestWindow window(200, 100);
    const HeldDisplay display;
    const CallTrace trace;

    EXPECT_EQ(display->attachWindow(number32(window.hwnd()), true), 0);

    Calls expected{call("GetClientRect", hwndOf(window), out)};
    append(expected, contextMade(window, currentContext(), PFD_STEREO));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_TRUE(display->isStereo());
}

TEST(ScreenDisplayAttach, ToAWindowLeavesLightingOffAndTheErrorFlagClear) {
    const TestWindow window;
    const HeldDisplay display;
    display->attachWindow(number32(window.hwnd()), false);

    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(ScreenDisplayAttach, ToAWindowAgainReplacesTheContextAndLeavesNoListsToDelete) {
    const TestWindow window(200, 100);
    HeldDisplay display;
    display.attach(window);
    HGLRC const first = currentContext();
    const CallTrace trace;

    display->attachWindow(number32(window.hwnd()), false);

    Calls expected{call("GetClientRect", hwndOf(window), out), call("wglMakeCurrent", dcOf(window), nullptr),
                   call("wglDeleteContext", first), call("ReleaseDC", hwndOf(window), dcOf(window))};
    append(expected, contextMade(window, currentContext()));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST(ScreenDisplayAttach, ToAnotherWindowDrawsThereAndGivesTheFirstOneBack) {
    const TestWindow first(200, 100);
    const TestWindow second(80, 60);
    HeldDisplay display;
    display.attach(first);
    const CallTrace trace;

    display.attach(second);

    EXPECT_TRUE(callsContain(trace.calls(),
                             {call("ReleaseDC", hwndOf(first), dcOf(first)), call("GetDC", hwndOf(second))}));
    EXPECT_EQ(display->getWindow(), number32(second.hwnd()));
    EXPECT_EQ(display->getDC(), number32(second.dc()));
    EXPECT_EQ(display->getTrackBall()->getWidth(), 80.0F);
}

TEST(ScreenDisplayAttach, ToNoWindowChangesNothing) {
    const TestWindow window;
    HeldDisplay display;
    display.attach(window);
    const CallTrace trace;

    EXPECT_EQ(display->attachWindow(0, true), 0);

    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->getWindow(), number32(window.hwnd()));
    EXPECT_FALSE(display->isStereo());
}

TEST(ScreenDisplayAttach, ToAHostsContextSetsItsStateAndBuildsTheFontInIt) {
    const GlSurface surface;
    const HeldDisplay display;
    const CallTrace trace;

    EXPECT_EQ(attachTo(display, surface), 0);

    Calls expected{callToUse(surface)};
    append(expected, hostContextPrepared(surface));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_EQ(display->getDC(), number32(surface.dc()));
    EXPECT_EQ(display->getWindow(), 0);
    EXPECT_EQ(controllerOf(display).getDisplay(), &*display);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(ScreenDisplayAttach, ToASecondHostsContextOnlyRebindsTheHandlesAndTheController) {
    const GlSurface first;
    const GlSurface second;
    const HeldDisplay display;
    attachTo(display, first);
    controllerOf(display).setDisplay(nullptr);
    const CallTrace trace;

    EXPECT_EQ(attachTo(display, second), 0);

    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->getDC(), number32(second.dc()));
    EXPECT_EQ(controllerOf(display).getDisplay(), &*display);
    display->makeCurrent();
    EXPECT_TRUE(callsMatch(trace.calls(), {callToUse(second)}));
}

TEST(ScreenDisplayAttach, ToAHostsContextEndsStereo) {
    const TestWindow window;
    const GlSurface surface;
    const HeldDisplay display;
    display->attachWindow(number32(window.hwnd()), true);

    attachTo(display, surface);

    EXPECT_FALSE(display->isStereo());
}

TEST(ScreenDisplayAttach, ToAHostsContextAfterAWindowPreparesTheHostsContext) {
    const TestWindow window;
    const GlSurface surface;
    const HeldDisplay display;
    display->attachWindow(number32(window.hwnd()), false);
    const CallTrace trace;

    attachTo(display, surface);

    Calls expected{callToUse(surface)};
    append(expected, hostContextPrepared(surface));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST(ScreenDisplayAttach, ToHandlesThatAreNoneChangesNothing) {
    const GlSurface surface;
    const HeldDisplay display;
    attachTo(display, surface);
    const CallTrace trace;

    EXPECT_EQ(display->attachDC(0, number32(surface.rc())), 0);
    EXPECT_EQ(display->attachDC(number32(surface.dc()), 0), 0);

    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->getDC(), number32(surface.dc()));
}

TEST(ScreenDisplayAttach, WidensHandlesWithTheirSign) {
    const HeldDisplay display;
    CallTrace trace;
    trace.answer("wglMakeCurrent", 0);

    EXPECT_EQ(display->attachDC(INT32_MIN, -2), 0);

    EXPECT_EQ(trace.callsOf("wglMakeCurrent").front(),
              call("wglMakeCurrent", Verbatim{"0xffffffff80000000"}, Verbatim{"0xfffffffffffffffe"}));
    EXPECT_EQ(display->getDC(), INT32_MIN);
}

TEST(ScreenDisplayAttachAndSize, ReachesTheControllerAndItsViewport) {
    const TestWindow window(300, 200);
    HeldDisplay display;
    display.attach(window);
    struct {
        std::int32_t (IQelDisplay::*set)(std::int32_t, std::int32_t);
        std::int32_t width;
        std::int32_t height;
    } const cases[] = {{&IQelDisplay::setViewSize, 250, 150}, {&IQelDisplay::onSize, 120, 90}};
    for (const auto& tested : cases) {
        const CallTrace trace;

        EXPECT_EQ(((*display).*tested.set)(tested.width, tested.height), 1);

        EXPECT_TRUE(
            callsContain(trace.calls(), {call("wglMakeCurrent", widened(window.dc()), currentContext()),
                                         call("glViewport", 0, 0, tested.width, tested.height)}));
        EXPECT_EQ(display->getTrackBall()->getWidth(), static_cast<float>(tested.width));
        EXPECT_EQ(display->getTrackBall()->getHeight(), static_cast<float>(tested.height));
        GLint viewport[4] = {};
        const CallTrace::Pause unrecorded;
        glGetIntegerv(GL_VIEWPORT, viewport);
        EXPECT_EQ(viewport[2], tested.width);
        EXPECT_EQ(viewport[3], tested.height);
    }
}

TEST(ScreenDisplayAttachAndSize, IsTheSizeOfTheCopyThatAFinishedFrameLeaves) {
    const TestWindow window(64, 48);
    HeldDisplay display;
    display.attach(window);
    display->beginFrame(0);
    const CallTrace trace;

    display->finishFrame();

    EXPECT_TRUE(callsContain(trace.calls(), {call("glReadPixels", 0, 0, 64, 48, GL_RGBA, GL_FLOAT, any)}));
}

TEST(ScreenDisplayAttachAndSize, BelowZeroChangesNothing) {
    const TestWindow window(64, 48);
    HeldDisplay display;
    display.attach(window);
    const CallTrace trace;

    EXPECT_EQ(display->setViewSize(-1, 10), 1);
    EXPECT_EQ(display->setViewSize(10, INT32_MIN), 1);

    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->getTrackBall()->getWidth(), 64.0F);
}

}  // namespace
}  // namespace qel::test
