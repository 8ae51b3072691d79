#include "CaptureFixture.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

using ScreenCapturePictures = Capture;

constexpr Rgba kYellow{255, 255, 0, 255};

/// Window and section may be drawn by different rasterisers, which differ in the last step of a channel.
constexpr int kStepsOfAChannel = 2;
constexpr double kLargestShare = 0.005;

TEST_F(ScreenCapturePictures, AreTheWindowsPictureWithItsText) {
    const Picture inWindow = windowFrame();
    ASSERT_GT(inWindow.countOf(kYellow, 60), 150U) << "text";
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    drawHostsScene();
    EXPECT_EQ(display->saveBitmap(), 0);
    const Picture inFile = pictureOf(file);
    EXPECT_LT(compare(inWindow, inFile, kStepsOfAChannel).share, kLargestShare);
    EXPECT_GT(inFile.countOf(kYellow, 60), 150U) << "text";
}

TEST_F(ScreenCapturePictures, HoldAWholeFrameThatTheHostBeginsAndEndsAsItDoesInItsWindow) {
    const Picture inWindow = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    windowFrame();
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_LT(compare(inWindow, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

/// A way to end a frame, as a host's draw function has it for its window.
struct FrameEnd {
    const char* name;
    std::int32_t (*end)(IQelDisplay& display);
    std::int32_t result;
    bool drawsOverlays;
};

class ScreenCapturePicturesAtFrameEnds : public Capture, public ::testing::WithParamInterface<FrameEnd> {
  protected:
    void drawHostsFrame(bool withTripod) {
        display->beginFrame(0);
        display->beginDraw();
        camera().updateView();
        drawHostsScene();
        if (withTripod) {
            camera().drawAxes();
        }
    }

    /// The copy of the last frame, brought back.
    Frame frameOfTheCopy() {
        display->makeCurrent();
        glClearColor(0, 1, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        display->restoreCache();
        Frame frame = Frame::ofBackBuffer(kWidth, kHeight);
        display->endDraw();
        camera().updateView();
        return frame;
    }
};

TEST_P(ScreenCapturePicturesAtFrameEnds, LeaveTheWindowAndItsCopyAloneAndPutOverlaysOnlyIntoTheFile) {
    drawHostsFrame(false);
    display->endDraw();
    display->finishFrame();
    drawHostsFrame(GetParam().drawsOverlays);
    display->endDraw();
    const Picture expected = Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
    const Frame before = frameOfTheCopy();

    ASSERT_EQ(begin(kWidth, kHeight), 0);
    const CallTrace trace;
    drawHostsFrame(false);
    EXPECT_EQ(GetParam().end(*display), GetParam().result);
    display->saveBitmap();

    EXPECT_EQ(trace.count("SwapBuffers"), 0U);
    EXPECT_EQ(trace.count("glReadPixels"), 0U);
    EXPECT_LT(compare(expected, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
    EXPECT_EQ(frameOfTheCopy().color, before.color);
}

INSTANTIATE_TEST_SUITE_P(After, ScreenCapturePicturesAtFrameEnds,
                         ::testing::Values(FrameEnd{"FinishFrame",
                                                    [](IQelDisplay& d) {
                                                        d.endDraw();
                                                        return d.finishFrame();
                                                    },
                                                    0, true},
                                           FrameEnd{"EndFrame", [](IQelDisplay& d) { return d.endFrame(); },
                                                    0, false},
                                           FrameEnd{"Present",
                                                    [](IQelDisplay& d) {
                                                        d.endDraw();
                                                        return d.present();
                                                    },
                                                    0, false},
                                           FrameEnd{"PresentView",
                                                    [](IQelDisplay& d) {
                                                        d.endDraw();
                                                        return d.presentView();
                                                    },
                                                    0, false},
                                           FrameEnd{"SwapBuffers",
                                                    [](IQelDisplay& d) {
                                                        d.endDraw();
                                                        return d.swapBuffers();
                                                    },
                                                    0, false},
                                           FrameEnd{"TheBeginOfTheNext",
                                                    [](IQelDisplay& d) {
                                                        d.endDraw();
                                                        return d.beginFrame(1);
                                                    },
                                                    0, false}),
                         [](const auto& tested) { return std::string(tested.param.name); });

/// The projection waits for the depth of the window's frame, not of the bitmap's.
TEST_F(ScreenCapturePictures, LeaveASwitchToOrthographicToTheWindowsFrame) {
    windowFrame();
    display->finishFrame();
    camera().setOrtho();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    windowFrame();
    EXPECT_EQ(display->finishFrame(), 0);
    display->saveBitmap();
    windowFrame();
    EXPECT_EQ(display->finishFrame(), 1);
}

TEST_F(ScreenCapturePictures, HoldWhatIsDrawnAfterMakeCurrentAlsoWhenAnotherContextWasCurrent) {
    const Picture inWindow = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    const HGLRC ofCapture = currentContext();
    const GlSurface ofSomebodyElse;
    ASSERT_NE(currentContext(), ofCapture);
    display->makeCurrent();
    EXPECT_EQ(currentContext(), ofCapture);
    drawHostsScene();
    display->saveBitmap();
    EXPECT_EQ(currentContext(), context);
    EXPECT_LT(compare(inWindow, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(ScreenCapturePictures, AreTakenFromTheSectionAlsoWhenAnotherContextIsCurrentAtTheEnd) {
    const Picture inWindow = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    drawHostsScene();
    const GlSurface ofSomebodyElse;
    display->saveBitmap();
    EXPECT_LT(compare(inWindow, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(ScreenCapturePictures, LeaveTheWindowsPictureAloneAndTheNextFrameLandsInTheWindow) {
    const Picture before = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_EQ(pictureOf(file).countOf({255, 0, 0, 255}), std::size_t{kWidth * kHeight});
    EXPECT_TRUE(Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK) == before);

    display->setBackColor({0, 0, 1});
    EXPECT_TRUE(compare(before, windowFrame()).pixels > 1000U);
    display->setBackColor({0, 0, 0});
    EXPECT_TRUE(windowFrame() == before);
}

TEST_F(ScreenCapturePictures, OfACameraThatMovesDuringTheCaptureShowTheMovedModelInBoth) {
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    camera().setStandardView(ViewBack);
    camera().updateView();
    drawHostsScene();
    display->saveBitmap();
    EXPECT_LT(compare(windowFrame(), pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(ScreenCapturePictures, OfTheSameSceneInASecondCaptureAreTheSame) {
    std::vector<std::uint8_t> first;
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(begin(kWidth, kHeight), 0);
        drawHostsScene();
        display->saveBitmap();
        if (round == 0) {
            first = file.bytes();
        }
        EXPECT_TRUE(file.bytes() == first) << round;
    }
}

}  // namespace
}  // namespace qel::test
