#include "DisplayFixtureWindows.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

class ScreenDisplayPictures : public DisplayTest {
  protected:
    static float depthAt(int x, int y) {
        GLfloat depth = 0;
        glReadPixels(x, y, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
        return depth;
    }

    /// A square that fills the view, in pixel coordinates.
    void fill(float r, float g, float b) {
        display->setOrtho2D();
        glColor3f(r, g, b);
        glRecti(0, 0, kWidth, kHeight);
    }
};

TEST_F(ScreenDisplayPictures, ClearsToBlackAtFirst) {
    fill(1, 1, 1);
    display->beginFrame(0);
    EXPECT_EQ(Picture::ofFrame().countOf({0, 0, 0, 255}), static_cast<std::size_t>(kWidth * kHeight));
    EXPECT_EQ(depthAt(5, 5), 1.0F);
}

TEST_F(ScreenDisplayPictures, ClearsToTheBackColour) {
    display->setBackColor({1.0F, 0.4F, 0.2F});
    display->beginFrame(0);
    EXPECT_EQ(Picture::ofFrame().countOf({255, 102, 51, 255}, 1), static_cast<std::size_t>(kWidth * kHeight));
}

TEST_F(ScreenDisplayPictures, ClearsTheDepthOfTheFrameBefore) {
    display->beginFrame(0);
    fill(1, 0, 0);
    ASSERT_LT(depthAt(5, 5), 1.0F);
    display->beginFrame(0);
    EXPECT_EQ(depthAt(5, 5), 1.0F);
}

TEST_F(ScreenDisplayPictures, KeepsTheFrameInModesThatDoNotClear) {
    display->beginFrame(0);
    fill(0, 1, 0);
    display->beginDraw();
    const CallTrace trace;
    display->beginFrame(1);
    EXPECT_EQ(trace.count("glClear"), 0U);
    EXPECT_LT(depthAt(5, 5), 1.0F) << "the depth of the frame before";
}

TEST_F(ScreenDisplayPictures, ShowsAFrameWhenItIsEnded) {
    window.show();
    display->beginFrame(0);
    display->beginDraw();
    fill(0, 0, 1);
    display->updateView();
    EXPECT_EQ(display->endFrame(), 0);
    POINT middle{kWidth / 2, kHeight / 2};
    ClientToScreen(hwndOf(window), &middle);
    HDC const screen = GetDC(nullptr);
    EXPECT_EQ(GetPixel(screen, middle.x, middle.y), RGB(0, 0, 255));
    ReleaseDC(nullptr, screen);
}

TEST_F(ScreenDisplayPictures, MarksAnEndedFrameWithARedCrossAtTheModelsPointTen) {
    display->beginFrame(0);
    display->beginDraw();
    display->updateView();
    CallTrace trace;
    trace.answer("SwapBuffers", 1);
    display->endFrame();
    const Picture frame = Picture::ofFrame();
    // At 27 degrees from 100 units, 120 pixels show 2 x 100 x tan 13.5 = 48.0 units: 2.5 pixels a unit. The
    // cross stands at 10 units, 25 pixels from the middle, with arms of 5 pixels.
    const auto cross = frame.boundsOf({255, 0, 0, 255}, 10);
    ASSERT_TRUE(cross.has_value());
    EXPECT_NEAR(cross->x + cross->width / 2.0, kWidth / 2.0 + 25.0, 2.0);
    EXPECT_NEAR(cross->y + cross->height / 2.0, kHeight / 2.0 + 25.0, 2.0);
    EXPECT_NEAR(cross->width, 10.0, 3.0);
    EXPECT_NEAR(cross->height, 10.0, 3.0);
    EXPECT_EQ(frame.countOf({255, 0, 0, 255}, 10), frame.countOtherThan({0, 0, 0, 255}, 10));
}

}  // namespace
}  // namespace qel::test
