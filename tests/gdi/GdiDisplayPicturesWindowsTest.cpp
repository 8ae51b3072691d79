#include "GdiFixtureWindows.h"

namespace qel::test {
namespace {

using GdiDisplayPictures = GdiPictureTest;

constexpr Rgba kGrey{150, 150, 150, 255};

/// Row counted from the upper edge.
Rgba pixelAt(const Picture& picture, int x, int row) {
    return picture.at(x, picture.height() - 1 - row);
}

TEST_F(GdiDisplayPictures, OfARectangleHaveAnOutlineAndAHatchThatLeavesTheGroundVisible) {
    display->beginDraw();
    display->drawRect({20, 10, 180, 90}, false);
    display->endDraw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(pixelAt(picture, 20, 50), kBlue);
    EXPECT_EQ(pixelAt(picture, 180, 50), kBlue);
    EXPECT_EQ(pixelAt(picture, 100, 89), kBlue);
    EXPECT_EQ(pixelAt(picture, 100, 9), kBlue);
    EXPECT_EQ(picture.countOf(kBlue), 2U * 160 + 2 * 80);
    // Two diagonals in each square of eight pixels, which cross.
    const auto inside = static_cast<double>(picture.countOf(kGrey));
    EXPECT_NEAR(inside / (159.0 * 79.0), 14.0 / 64.0, 0.04);
    EXPECT_EQ(picture.countOf(kWhite) + picture.countOf(kGrey) + picture.countOf(kBlue), 200U * 100);
    EXPECT_EQ(picture.boundsOtherThan(kWhite), (PixelArea{20, 10, 161, 81}));
}

TEST_F(GdiDisplayPictures, OfAnOutlineAreEmptyInside) {
    display->beginDraw();
    display->drawRect({20, 10, 180, 90}, true);
    display->endDraw();
    EXPECT_EQ(canvas.picture().countOtherThan(kWhite), 2U * 160 + 2 * 80);
}

TEST_F(GdiDisplayPictures, OfAnInvertedRectangleAreTheSameAsOfTheRectangle) {
    display->beginDraw();
    display->drawRect({20, 10, 180, 90}, false);
    const Picture upright = canvas.picture();
    PatBlt(canvas.handle(), 0, 0, kWidth, kHeight, WHITENESS);
    display->drawRect({180, 90, 20, 10}, true);
    EXPECT_EQ(canvas.picture().countOf(kBlue), upright.countOf(kBlue));
    EXPECT_EQ(canvas.picture().boundsOtherThan(kWhite), upright.boundsOtherThan(kWhite));
    display->endDraw();
}

TEST_F(GdiDisplayPictures, OfASegmentReachFromPixelToPixelWithoutTheLast) {
    display->beginDraw();
    display->drawLineSeg({{10, 50, 0}, {190, 50, 0}});
    display->endDraw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(picture.countOf(kBlue), 180U);
    EXPECT_EQ(pixelAt(picture, 10, 49), kBlue);
    EXPECT_EQ(pixelAt(picture, 189, 49), kBlue);
    EXPECT_EQ(pixelAt(picture, 190, 49), kWhite);
}

TEST_F(GdiDisplayPictures, OfWhatLiesOutsideTheWindowAreEmpty) {
    display->beginDraw();
    for (const double wild : {300.0, -300.0, 1e6, -1e6, 3e9, -3e9, 1e300, -1e300}) {
        display->drawRect({wild, wild, wild + 10, wild + 10}, false);
        display->drawLineSeg({{wild, wild, 0}, {wild + 50, wild, 0}});
    }
    display->endDraw();
    EXPECT_EQ(canvas.picture().countOtherThan(kWhite), 0U);
}

TEST_F(GdiDisplayPictures, OfWhatCrossesTheWindowAreCutAtItsEdge) {
    display->beginDraw();
    display->drawLineSeg({{-20000, 50, 0}, {20000, 50, 0}});
    display->drawRect({-5000, -5000, 100, 5000}, true);
    display->endDraw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(picture.countOf(kBlue), 200U + 100 - 1);
    EXPECT_EQ(pixelAt(picture, 0, 49), kBlue);
    EXPECT_EQ(pixelAt(picture, 199, 49), kBlue);
    EXPECT_EQ(pixelAt(picture, 100, 0), kBlue);
}

TEST_F(GdiDisplayPictures, OfWidePensAreAsWideAsAsked) {
    for (const std::int32_t width : {1, 2, 5, 20}) {
        PatBlt(canvas.handle(), 0, 0, kWidth, kHeight, WHITENESS);
        display->setPenWidth(width);
        display->drawLineSeg({{-100, 50, 0}, {300, 50, 0}});
        display->endDraw();
        EXPECT_EQ(canvas.picture().countOf(kBlue), static_cast<std::size_t>(kWidth * width)) << width;
    }
}

TEST_F(GdiDisplayPictures, OfAHugePenCoverTheWindowAndOfAWildOneHarmNothing) {
    display->setPenWidth(10000);
    display->drawLineSeg({{10, 50, 0}, {190, 50, 0}});
    EXPECT_EQ(canvas.picture().countOf(kBlue), std::size_t{kWidth * kHeight});
    PatBlt(canvas.handle(), 0, 0, kWidth, kHeight, WHITENESS);
    for (const std::int32_t width : {INT32_MAX, INT32_MIN, -1, 0}) {
        EXPECT_EQ(display->setPenWidth(width), 0);
        EXPECT_EQ(display->getPenWidth(), width);
        display->drawRect({10, 10, 190, 90}, false);
    }
    display->endDraw();
    PatBlt(canvas.handle(), 0, 0, kWidth, kHeight, WHITENESS);
    display->setPenWidth(1);
    display->drawLineSeg({{10, 50, 0}, {190, 50, 0}});
    display->endDraw();
    EXPECT_EQ(canvas.picture().countOf(kBlue), 180U);
}

TEST_F(GdiDisplayPictures, OfAToolChangedInTheMiddleShowBothColours) {
    display->beginDraw();
    display->drawLineSeg({{0, 80, 0}, {200, 80, 0}});
    display->setPenColor(RGB(255, 0, 0));
    display->drawLineSeg({{0, 60, 0}, {200, 60, 0}});
    display->setBrushColor(RGB(0, 255, 0));
    display->drawRect({50, 10, 150, 50}, false);
    display->endDraw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(picture.countOf(kBlue), 200U);
    EXPECT_EQ(picture.countOf({255, 0, 0, 255}), 200U + 2 * 100 + 2 * 40);
    EXPECT_GT(picture.countOf({0, 255, 0, 255}), 700U);
    EXPECT_EQ(picture.countOf(kGrey), 0U);
}

TEST_F(GdiDisplayPictures, OfDrawingOutsideABracketAreEmpty) {
    display->drawRect({20, 10, 180, 90}, false);
    display->drawLineSeg({{10, 50, 0}, {190, 50, 0}});
    EXPECT_EQ(canvas.picture().countOtherThan(kWhite), 0U);
}

TEST(GdiDisplayPicturesOfAWindow, ShowsWhatIsDrawn) {
    TestWindow window(200, 100);
    window.show();
    const HeldGdiDisplay display;
    display->attachWindow(number32(window.hwnd()));
    const HDC dc = dcOf(display);
    PatBlt(dc, 0, 0, 200, 100, WHITENESS);
    if (GetPixel(dc, 100, 50) == CLR_INVALID) {
        GTEST_SKIP() << "this screen does not show windows";
    }
    display->setViewExtent({0, 0, 200, 100});
    display->beginDraw();
    display->drawRect({20, 10, 180, 90}, false);
    display->endDraw();
    EXPECT_EQ(GetPixel(dc, 20, 50), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(dc, 100, 89), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(dc, 10, 50), RGB(255, 255, 255));
    int hatched = 0;
    for (int x = 21; x < 180; ++x) {
        hatched += GetPixel(dc, x, 50) == RGB(150, 150, 150) ? 1 : 0;
    }
    EXPECT_GT(hatched, 20);
    EXPECT_LT(hatched, 80);
}

}  // namespace
}  // namespace qel::test
