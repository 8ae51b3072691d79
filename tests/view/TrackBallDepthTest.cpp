#include <gtest/gtest.h>

#include <cstddef>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "host/ViewSubject.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

constexpr int kWidth = 50;
constexpr int kHeight = 20;

class TrackBallDepth : public ::testing::Test {
  protected:
    TrackBallDepth() {
        view->setNearPlane(1.0);
        view->setFarPlane(100.0);
        view->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false);
        view->setNearPlane(1.0);
        view->setFarPlane(100.0);
        view->onResize(kWidth, kHeight);
        lookFrom(10.0);
    }
    ~TrackBallDepth() override { expectNoGlErrorButTheMissingBackBuffer(); }

    void lookFrom(double height) {
        view->setCamera({0.0, 0.0, height}, {0.0, 0.0, height - 1.0}, {0.0, 1.0, 0.0});
    }

    /// The mean of every tenth pixel, row by row from the lower left, without the background.
    double meanOfEveryTenth() const {
        double sum = 0.0;
        int count = 0;
        for (int index = 0; index < kWidth * kHeight; index += 10) {
            const float depth = surface.depth(index % kWidth, index / kWidth);
            if (depth < 1.0F) {
                sum += static_cast<double>(depth);
                ++count;
            }
        }
        return sum / count;
    }

    double refreshed() {
        view->refreshDepth();
        return view->getMeanDepth();
    }

    GlSurface surface{kWidth, kHeight};
    ref_ptr<CQelTrackBall> view = newTrackBall();
};

TEST_F(TrackBallDepth, IsTheDepthOfAnEvenScene) {
    for (const double depth : {0.001, 0.25, 0.5, 0.75, 0.999}) {
        drawAtDepth(0, 0, kWidth, kHeight, depth);
        EXPECT_EQ(refreshed(), static_cast<double>(surface.depth(0, 0)));
        EXPECT_NEAR(refreshed(), depth, 1e-6);
    }
}

TEST_F(TrackBallDepth, IsTheMeanOfEveryTenthPixelThatIsDrawn) {
    drawAtDepth(0, 0, 25, 13, 0.2);
    drawAtDepth(30, 3, 47, kHeight, 0.6);
    drawAtDepth(40, 0, kWidth, 2, 0.9);
    EXPECT_EQ(refreshed(), meanOfEveryTenth());
}

TEST_F(TrackBallDepth, SeesTheColumnsOfEveryTenthPixelAlone) {
    // Rows are a multiple of ten long, so the same columns are looked at in each.
    for (int column = 1; column < kWidth; column += 10) {
        drawAtDepth(column, 0, column + 9, kHeight, 0.1);
    }
    EXPECT_EQ(refreshed(), GlView::current().project({}).z);
    drawAtDepth(10, 7, 11, 8, 0.3);
    EXPECT_EQ(refreshed(), static_cast<double>(surface.depth(10, 7)));
}

TEST_F(TrackBallDepth, OfAnEmptySceneIsWhereTheModelLies) {
    for (const double height : {3.0, 10.0, 60.0}) {
        lookFrom(height);
        EXPECT_EQ(refreshed(), GlView::current().project({}).z);
    }
    view->setExtent({4.0, 6.0, 2.0, 4.0, -9.0, -7.0}, false);
    EXPECT_EQ(refreshed(), GlView::current().project({5.0, 3.0, -8.0}).z);
}

TEST_F(TrackBallDepth, BeforeAnyFrameIsWhereTheModelLies) {
    const auto fresh = newTrackBall();
    fresh->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false);
    EXPECT_EQ(fresh->getMeanDepth(), GlView::current().project({}).z);
}

TEST_F(TrackBallDepth, StaysOffBothEndsOfTheDepthRange) {
    drawAtDepth(0, 0, kWidth, kHeight, 0.0);
    EXPECT_EQ(refreshed(), 0.00001);
    drawAtDepth(0, 0, kWidth, kHeight, 0.000005);
    EXPECT_EQ(refreshed(), 0.00001);
    drawAtDepth(0, 0, kWidth, kHeight, 0.999995);
    ASSERT_LT(surface.depth(0, 0), 1.0F);
    EXPECT_EQ(refreshed(), 0.99999);
}

TEST_F(TrackBallDepth, OfAModelOutsideTheDepthRangeStaysOffItsEnds) {
    lookFrom(150.0);
    ASSERT_GT(GlView::current().project({}).z, 1.0);
    EXPECT_EQ(refreshed(), 0.99999);
    lookFrom(0.5);
    ASSERT_LT(GlView::current().project({}).z, 0.0);
    EXPECT_EQ(refreshed(), 0.00001);
}

TEST_F(TrackBallDepth, IsKeptInSinglePrecisionUntilTheNextFrame) {
    drawAtDepth(0, 0, 25, kHeight, 0.2);
    drawAtDepth(30, 0, kWidth, kHeight, 0.7);
    const double first = refreshed();
    const double kept = static_cast<double>(static_cast<float>(first));
    ASSERT_NE(first, kept);
    EXPECT_EQ(view->getMeanDepth(), kept);
    surface.clear();
    lookFrom(60.0);
    EXPECT_EQ(view->getMeanDepth(), kept);
    EXPECT_NE(refreshed(), kept);
}

TEST_F(TrackBallDepth, FollowsTheSizeOfTheView) {
    const int sizes[][2] = {{70, 30}, {70, 20}, {20, 10}, {30, 15}, {200, 100}, {10, 200}, {kWidth, kHeight}};
    for (const auto& size : sizes) {
        surface.resize(size[0], size[1]);
        view->onResize(static_cast<std::uint32_t>(size[0]), static_cast<std::uint32_t>(size[1]));
        drawAtDepth(0, 0, size[0], size[1], 0.25);
        EXPECT_EQ(refreshed(), static_cast<double>(surface.depth(0, 0)));
    }
}

TEST_F(TrackBallDepth, TakesWhatLiesOutsideTheWindowForBackground) {
    drawAtDepth(0, 0, kWidth, kHeight, 0.5);
    view->onResize(4 * kWidth, 5 * kHeight);
    EXPECT_EQ(refreshed(), static_cast<double>(surface.depth(0, 0)));
}

TEST_F(TrackBallDepth, IsReadTheSameWhateverTheHostsPixelStore) {
    drawAtDepth(0, 0, 25, kHeight, 0.2);
    drawAtDepth(30, 0, kWidth, kHeight, 0.7);
    const double expected = meanOfEveryTenth();
    glPixelStorei(GL_PACK_ROW_LENGTH, 3 * kWidth);
    glPixelStorei(GL_PACK_SKIP_ROWS, 100);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 50);
    glPixelStorei(GL_PACK_ALIGNMENT, 8);
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_TRUE);
    glReadBuffer(GL_BACK);
    expectNoGlErrorButTheMissingBackBuffer();
    const StateSnapshot before = StateSnapshot::take();
    const double actual = refreshed();
    expectNoGlErrorButTheMissingBackBuffer();
    EXPECT_EQ(actual, expected);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
}

TEST_F(TrackBallDepth, OfAViewWithoutASizeReadsNothing) {
    const auto fresh = newTrackBall();
    const CallTrace trace;
    EXPECT_EQ(fresh->refreshDepth(), 0);
    EXPECT_TRUE(callsMatch(trace.callsOf("glReadPixels"),
                           {call("glReadPixels", 0, 0, 0, 0, GL_DEPTH_COMPONENT, GL_FLOAT, any)}));
    EXPECT_GT(fresh->getMeanDepth(), 0.0);
}

}  // namespace
}  // namespace qel::test
