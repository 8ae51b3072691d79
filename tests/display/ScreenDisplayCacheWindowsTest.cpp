#include "CacheFixture.h"
#include "kit/GuardedHeap.h"
#include "kit/StateSnapshot.h"

namespace qel::test {

namespace {

using ScreenDisplayCache = Cache;

TEST_F(ScreenDisplayCache, KeepsTheFrameDrawsTheOverlaysSwapsAndRefreshesTheDepth) {
    drawFrame();
    display->setShowOverlay1(false);
    display->setShowOverlay2(false);
    const CallTrace trace;
    EXPECT_EQ(display->finishFrame(), 0);
    Calls expected{makesCurrent(), call("glReadBuffer", GL_BACK)};
    append(expected, frameRead(kWidth, kHeight));
    append(expected, {call("glDisable", GL_TEXTURE_2D), swaps()});
    append(expected, depthRefreshed(kWidth, kHeight));
    // The scene was drawn without texturing.
    append(expected, {call("glDisable", GL_TEXTURE_2D)});
    EXPECT_TRUE(
        callsMatch(withoutQuestions(trace.calls("gl", "wgl", "SwapBuffers")), withoutQuestions(expected)));
}

TEST_F(ScreenDisplayCache, DrawsTheOverlaysAfterTheReadingAndBeforeTheSwap) {
    drawFrame();
    camera().onButtonDown(DragRotate, 60, 60);
    camera().onMouseMove(80, 70);
    struct Case {
        bool rings;
        bool tripod;
    };
    for (const Case& shown : {Case{true, true}, Case{true, false}, Case{false, true}, Case{false, false}}) {
        display->setShowOverlay1(shown.rings);
        display->setShowOverlay2(shown.tripod);
        const CallTrace trace;
        display->finishFrame();
        const Calls all = trace.calls("glReadPixels", "glBegin", "glTranslated", "SwapBuffers");
        Calls expected{call("glReadPixels", anyArguments), call("glReadPixels", anyArguments)};
        if (shown.rings) {
            append(expected, Calls(3, call("glBegin", GL_LINES)));
        }
        if (shown.tripod) {
            append(expected, {call("glTranslated", anyArguments), call("glBegin", GL_LINES),
                              call("glBegin", GL_LINES)});
        }
        append(expected, {swaps(), call("glReadPixels", anyArguments)});
        EXPECT_TRUE(callsMatch(all, expected)) << shown.rings << shown.tripod;
    }
}

TEST_F(ScreenDisplayCache, TellsWhetherASwitchToOrthographicWasPending) {
    drawFrame();
    EXPECT_EQ(display->finishFrame(), 0);
    camera().setOrtho();
    drawFrame();
    EXPECT_EQ(display->finishFrame(), 1);
    EXPECT_EQ(display->finishFrame(), 0);
}

TEST_F(ScreenDisplayCache, IsDrawnInPixelCoordinatesAndOpensABracket) {
    drawFrame();
    display->finishFrame();
    const CallTrace trace;
    EXPECT_EQ(display->restoreCache(), 1);
    Calls expected = pixelCoordinates();
    append(expected, frameRestored(kWidth, kHeight));
    EXPECT_TRUE(callsMatch(withoutQuestions(trace.calls()), expected));
    EXPECT_EQ(display->endDraw(), 0);
}

TEST_F(ScreenDisplayCache, InsideABracketOnlySetsThePixelCoordinatesAndOpensAnother) {
    drawFrame();
    display->finishFrame();
    display->beginDraw();
    const CallTrace trace;
    EXPECT_EQ(display->restoreCache(), 1);
    EXPECT_TRUE(callsMatch(trace.calls(), pixelCoordinates()));
    EXPECT_EQ(display->endDraw(), 1);
    EXPECT_EQ(display->endDraw(), 0);
}

TEST_F(ScreenDisplayCache, IsEmptyBeforeAFrameWasFinished) {
    const CallTrace trace;
    EXPECT_EQ(display->restoreCache(), 1);
    Calls expected = pixelCoordinates();
    append(expected, frameRestored(0, 0));
    EXPECT_TRUE(callsMatch(withoutQuestions(trace.calls()), expected));
    EXPECT_EQ(pointers(trace, "glDrawPixels"), (std::vector<std::string>{"null", "null"}));
    EXPECT_EQ(display->endDraw(), 0);
}

TEST_F(ScreenDisplayCache, LeavesTheStateOfOpenGLButThePixelCoordinates) {
    drawFrame();
    display->finishFrame();
    for (const bool depthTest : {true, false}) {
        (depthTest ? glEnable : glDisable)(GL_DEPTH_TEST);
        glClearColor(0.1F, 0.2F, 0.3F, 0.4F);
        glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_TRUE);
        glDepthFunc(GL_GREATER);
        glDepthMask(GL_FALSE);
        camera().updateView();
        const StateSnapshot before = StateSnapshot::take();
        display->restoreCache();
        EXPECT_TRUE(changesOnly(before, StateSnapshot::take(),
                                {"GL_PROJECTION_MATRIX", "GL_MODELVIEW_MATRIX", "GL_CURRENT_RASTER_*"}));
        display->endDraw();
    }
}

TEST_F(ScreenDisplayCache, GrowsWithTheViewAndIsReusedByASmallerOne) {
    const std::size_t damagedBefore = GuardedHeap::damagedBlocks();
    GuardedHeap heap;
    struct Step {
        int width;
        int height;
        bool allocates;
    };
    std::vector<std::string> last(2);
    for (const Step& step :
         {Step{160, 120, true}, Step{160, 120, false}, Step{100, 80, false}, Step{80, 100, false},
          Step{200, 150, true}, Step{150, 200, false}, Step{300, 10, false}, Step{300, 300, true}}) {
        SCOPED_TRACE(std::to_string(step.width) + " x " + std::to_string(step.height));
        resize(step.width, step.height);
        const CallTrace trace;
        display->finishFrame();
        display->restoreCache();
        display->endDraw();
        // Depth, then colour.
        const std::vector<std::string> arrays = pointers(trace, "glDrawPixels");
        ASSERT_EQ(arrays.size(), 2U);
        EXPECT_EQ(arrays[0] != last[0], step.allocates);
        EXPECT_EQ(arrays[1] != last[1], step.allocates);
        last = arrays;
        EXPECT_TRUE(
            callsMatch({trace.callsOf("glReadPixels")[1]},
                       {call("glReadPixels", 0, 0, step.width, step.height, GL_RGBA, GL_FLOAT, any)}));
        const void* const color = reinterpret_cast<const void*>(std::stoull(arrays[1], nullptr, 16));
        const void* const depth = reinterpret_cast<const void*>(std::stoull(arrays[0], nullptr, 16));
        const std::size_t pixels = static_cast<std::size_t>(step.width * step.height);
        if (step.allocates) {
            EXPECT_EQ(GuardedHeap::sizeOf(color), pixels * 4 * sizeof(float));
            EXPECT_EQ(GuardedHeap::sizeOf(depth), pixels * sizeof(float));
        } else {
            EXPECT_GE(GuardedHeap::sizeOf(color), pixels * 4 * sizeof(float));
            EXPECT_GE(GuardedHeap::sizeOf(depth), pixels * sizeof(float));
        }
    }
    EXPECT_EQ(GuardedHeap::damagedBlocks(), damagedBefore);
}

TEST_F(ScreenDisplayCache, FollowsAViewWithoutAnySize) {
    drawFrame();
    display->finishFrame();
    display->setViewSize(0, 0);
    const CallTrace trace;
    display->finishFrame();
    EXPECT_TRUE(callsMatch({trace.callsOf("glReadPixels")[1]},
                           {call("glReadPixels", 0, 0, 0, 0, GL_RGBA, GL_FLOAT, any)}));
    display->restoreCache();
    EXPECT_EQ(trace.count("glDrawPixels"), 2U);
    display->endDraw();
}

TEST_F(ScreenDisplayCache, NumbersOfCachesAreNotOffered) {
    EXPECT_EQ(display->getActiveCache(), 0);
    EXPECT_EQ(display->setActiveCache(3), 0);
    EXPECT_EQ(display->getCacheDC(1), 0);
    EXPECT_EQ(display->UpdateWindow(), 0);
}

}  // namespace

}  // namespace qel::test
