#include <gtest/gtest.h>

#include "CacheFixture.h"

namespace qel::test {
namespace {

/// Picks that a host makes between two frames, with the mouse, when the buffers have been exchanged.
class PickingBetweenFrames : public Cache {
  protected:
    /// A whole frame as a host draws it.
    void showFrame() {
        display->beginFrame(0);
        display->beginDraw();
        camera().updateView();
        drawScene();
        display->endDraw();
        display->finishFrame();
        // The overlays of the end of the frame end with the camera loaded again.
        camera().updateView();
    }

    /// Where the scene's wall stands at a place in the plane of x and y: it leans away to the right.
    static double wallAt(double x) { return 20.0 - (x + 15.0) / 25.0 * 50.0; }

    void expectTheWallUnderEachPixel() {
        for (const double share : {0.35, 0.45, 0.55}) {
            const double x = share * window.width();
            // Beside the long axis through the middle.
            const double y = 0.4 * window.height();
            const XPnt3d picked = camera().getModelPntAt(x, y);
            ASSERT_TRUE(picked.isValid()) << share;
            // Window coordinates count from a pixel's corner, depth is taken in its middle.
            EXPECT_NEAR(picked.z, wallAt(picked.x), 1.5) << share;
            const XPnt3d image = camera().projectPnt(picked);
            EXPECT_NEAR(image.x, x, 1e-2) << share;
            EXPECT_NEAR(image.y, y, 1e-2) << share;
            EXPECT_TRUE(dist(camera().pickModelPnt(x, y), picked) == 0.0);
        }
    }
};

TEST_F(PickingBetweenFrames, FindsTheSceneAfterTheFrameWasShown) {
    for (int frame = 0; frame < 3; ++frame) {
        showFrame();
        expectTheWallUnderEachPixel();
    }
    EXPECT_FALSE(camera().getModelPntAt(1.0, 1.0).isValid()) << "background";
}

TEST_F(PickingBetweenFrames, FindsTheSceneAfterTheWindowWasResized) {
    showFrame();
    for (const auto& [width, height] : {std::pair{150, 90}, {320, 200}, {201, 301}}) {
        resize(width, height);
        // A driver may give the window new buffers with the first exchange after a resize, with anything in
        // them: what was drawn before it can be picked from the second frame on.
        showFrame();
        showFrame();
        expectTheWallUnderEachPixel();
    }
}

// Reading comes after the exchange, as the end of a frame is defined. A driver may leave anything in the back
// buffer then; here it is empty.
TEST_F(PickingBetweenFrames, TakesTheMiddleOfTheModelWhereADriverLeavesNothingInTheBackBuffer) {
    showFrame();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    EXPECT_EQ(camera().refreshDepth(), 0);
    const double x = 0.5 * window.width();
    const double y = 0.5 * window.height();
    EXPECT_FALSE(camera().getModelPntAt(x, y).isValid());
    const XPnt3d picked = camera().pickModelPnt(x, y);
    const XPnt3d middle = camera().projectPnt(camera().getExtent().MidPoint());
    EXPECT_NEAR(camera().projectPnt(picked).z, middle.z, 1e-5);
    // The next frame that is read before the exchange is seen again.
    drawFrame();
    EXPECT_TRUE(camera().getModelPntAt(x, y).isValid());
}

}  // namespace
}  // namespace qel::test
