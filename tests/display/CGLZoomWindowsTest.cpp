#include <gtest/gtest.h>

#include <random>

#include "CGL.h"
#include "DisplayFixtureWindows.h"

namespace qel::test {
namespace {

/// The zoom is shared by all contexts of the program, so each case begins by resetting it.
class CGLZoom : public ::testing::Test {
  protected:
    CGLZoom() {
        holder.createForWindow(320, 200, false, hwndOf(window), false);
        step(kReset);
        step(kReset);
    }

    ~CGLZoom() override { holder.destroyContext(); }

    /// The field of view that a step loads, or -1.
    int step(std::int32_t code) {
        const CallTrace trace;
        holder.perspectiveZoom(code);
        calls = trace.calls();
        const Calls loaded = trace.callsOf("gluPerspective");
        for (int degrees = 0; loaded.size() == 1 && degrees <= 90; ++degrees) {
            if (loaded[0] == call("gluPerspective", degrees, 1.6, 1, 100000)) {
                return degrees;
            }
        }
        return -1;
    }

    static constexpr std::int32_t kReset = 0;
    static constexpr std::int32_t kZoomIn = 1;
    Calls calls;
    TestWindow window{320, 200};
    CGL holder;
};

TEST_F(CGLZoom, LoadsViewportAndPerspectiveAndLeavesTheModelViewAtTheIdentity) {
    EXPECT_EQ(step(kZoomIn), 58);
    EXPECT_TRUE(callsMatch(calls, {call("glViewport", 0, 0, 320, 200), call("glMatrixMode", GL_PROJECTION),
                                   call("glLoadIdentity"), call("gluPerspective", 58, 1.6, 1, 100000),
                                   call("glMatrixMode", GL_MODELVIEW), call("glLoadIdentity")}));
}

TEST_F(CGLZoom, StepsFromSixtyDownToEighteenAndStopsThere) {
    for (int expected = 58; expected >= 18; expected -= 2) {
        EXPECT_EQ(step(kZoomIn), expected);
    }
    EXPECT_EQ(step(kZoomIn), 18);
    EXPECT_EQ(step(kZoomIn), 18);
}

TEST_F(CGLZoom, ResetsANarrowViewOnlyTheSecondTime) {
    constexpr int kMoreThanEnough = 30;
    for (int i = 0; i < kMoreThanEnough; ++i) {
        step(kZoomIn);
    }
    EXPECT_EQ(step(kReset), 18);
    EXPECT_EQ(step(kReset), 60);
    EXPECT_EQ(step(kZoomIn), 58);
}

TEST_F(CGLZoom, ResetsAWideViewAtOnce) {
    step(kZoomIn);
    step(kZoomIn);
    EXPECT_EQ(step(kReset), 60);
}

TEST_F(CGLZoom, KeepsTheFieldOfViewForAnyOtherStep) {
    step(kZoomIn);
    for (const std::int32_t other : {2, -1, 1000, INT32_MIN}) {
        EXPECT_EQ(step(other), 58) << other;
    }
}

TEST_F(CGLZoom, NeverLeavesTheRangeFromTwoToSixty) {
    std::mt19937 numbers(7);
    std::uniform_int_distribution<std::int32_t> codes(-1, 2);
    for (int i = 0; i < 300; ++i) {
        const int field = step(codes(numbers));
        EXPECT_GE(field, 2);
        EXPECT_LE(field, 60);
    }
}

}  // namespace
}  // namespace qel::test
