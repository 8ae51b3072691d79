#include "CaptureFixture.h"
#include "kit/GlSurface.h"
#include "kit/PictureComparison.h"

namespace qel::test {
namespace {

using CapturePictures = Capture;

constexpr Rgba kYellow{255, 255, 0, 255};

/// Window and section may be drawn by different rasterisers, which differ in the last step of a channel.
constexpr int kStepsOfAChannel = 2;
constexpr double kLargestShare = 0.005;

TEST_F(CapturePictures, AreTheWindowsPictureWithItsText) {
    const Picture inWindow = windowFrame();
    ASSERT_GT(inWindow.countOf(kYellow, 60), 150U) << "text";
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    drawHostsScene();
    EXPECT_EQ(display->saveBitmap(), 0);
    const Picture inFile = pictureOf(file);
    EXPECT_LT(compare(inWindow, inFile, kStepsOfAChannel).share, kLargestShare);
    EXPECT_GT(inFile.countOf(kYellow, 60), 150U) << "text";
}

TEST_F(CapturePictures, HoldAWholeFrameThatTheHostBeginsAndEndsAsItDoesInItsWindow) {
    const Picture inWindow = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    windowFrame();
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_LT(compare(inWindow, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(CapturePictures, HoldWhatIsDrawnAfterMakeCurrentAlsoWhenAnotherContextWasCurrent) {
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

TEST_F(CapturePictures, AreTakenFromTheSectionAlsoWhenAnotherContextIsCurrentAtTheEnd) {
    const Picture inWindow = windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    drawHostsScene();
    const GlSurface ofSomebodyElse;
    display->saveBitmap();
    EXPECT_LT(compare(inWindow, pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(CapturePictures, LeaveTheWindowsPictureAloneAndTheNextFrameLandsInTheWindow) {
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

TEST_F(CapturePictures, OfACameraThatMovesDuringTheCaptureShowTheMovedModelInBoth) {
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    camera().setStandardView(2);
    camera().updateView();
    drawHostsScene();
    display->saveBitmap();
    EXPECT_LT(compare(windowFrame(), pictureOf(file), kStepsOfAChannel).share, kLargestShare);
}

TEST_F(CapturePictures, OfTheSameSceneInASecondCaptureAreTheSame) {
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
