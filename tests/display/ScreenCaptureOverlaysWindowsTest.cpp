#include <cmath>

#include "CaptureFixture.h"

namespace qel::test {
namespace {

struct CaptureCase {
    const char* name;
    std::uint32_t width, height;
    /// The part of the view that fills the bitmap, in pixels of the view.
    double left, bottom, right, top;
};

const CaptureCase kCaptures[] = {
    {"TheSameSize", 160, 120, 0, 0, 160, 120},   {"Half", 80, 60, 0, 0, 160, 120},
    {"Twice", 320, 240, 0, 0, 160, 120},         {"WideAndFlat", 400, 120, 0, 0, 160, 120},
    {"NarrowAndHigh", 120, 300, 0, 0, 160, 120}, {"TheUpperRightPart", 240, 180, 60, 45, 160, 120},
};

/// What the camera and the display draw by pixels stands in a capture of any size where it belongs.
class ScreenCaptureOverlays : public Capture, public ::testing::WithParamInterface<CaptureCase> {
  protected:
    /// The file of what `draw` draws into a capture.
    template <class Draw>
    Picture captured(Draw draw) {
        Enve2d extent(GetParam().left, GetParam().bottom, GetParam().right, GetParam().top);
        EXPECT_EQ(display->beginCapture(GetParam().width, GetParam().height, &extent, file.name()), 0);
        drawPlainly(draw);
        display->saveBitmap();
        const Picture picture = pictureOf(file);
        keep(picture);
        return picture;
    }

    /// A frame of the window, of what `draw` draws.
    template <class Draw>
    Picture inWindow(Draw draw) {
        display->beginFrame(0);
        camera().updateView();
        drawPlainly(draw);
        // The camera reads its matrices when it is asked for a point, and `draw` may have loaded others.
        camera().updateView();
        return Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
    }

    template <class Draw>
    static void drawPlainly(Draw draw) {
        glDisable(GL_LIGHTING);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_BLEND);
        glColor3f(1.0F, 1.0F, 1.0F);
        draw();
    }

    /// Where a pixel of the view lies in the bitmap.
    static XPnt2d inBitmap(double x, double y) {
        const CaptureCase& shown = GetParam();
        return {(x - shown.left) * shown.width / (shown.right - shown.left),
                (y - shown.bottom) * shown.height / (shown.top - shown.bottom)};
    }

    /// A model point that the view shows at a pixel, at the depth of the target.
    XPnt3d pointAt(double x, double y) {
        return camera().unProject(x, y, camera().projectPnt(camera().getTarget()).z);
    }

    /// How far right of its raster position, and above it, the first letter of "Ab" begins.
    PixelArea textBounds() {
        const auto bounds = inWindow([&] {
                                display->setOrtho2D();
                                glRasterPos2f(20.5F, 30.5F);
                                display->printText("Ab");
                            }).boundsOf(kWhite);
        EXPECT_TRUE(bounds.has_value());
        const PixelArea found = bounds.value_or(PixelArea{});
        return {found.x - 20, found.y - 30, found.width, found.height};
    }

    static bool isLit(const Picture& picture, const XPnt2d& at, int reach = 1) {
        for (int x = static_cast<int>(at.x) - reach; x <= static_cast<int>(at.x) + reach; ++x) {
            for (int y = static_cast<int>(at.y) - reach; y <= static_cast<int>(at.y) + reach; ++y) {
                if (x >= 0 && y >= 0 && x < picture.width() && y < picture.height() &&
                    picture.at(x, y) != kBlack) {
                    return true;
                }
            }
        }
        return false;
    }

    /// Keeps the picture for somebody who wants to look, where QEL_PICTURES_OUT names a folder.
    static void keep(const Picture& picture) {
        if (const char* const folder = std::getenv("QEL_PICTURES_OUT")) {
            const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
            std::string name = std::string(test->name()) + ".png";
            std::replace(name.begin(), name.end(), '/', '-');
            picture.save(std::filesystem::path(folder) / name);
        }
    }
};

TEST_P(ScreenCaptureOverlays, LabelsBeginAtTheProjectedPixelOfTheirPoint) {
    const PixelArea text = textBounds();
    const XPnt3d point = pointAt(100.4, 72.4);
    XPnt3d pixel;
    const Picture picture = captured([&] {
        pixel = camera().projectPnt(point);
        EXPECT_EQ(camera().drawLabel(point.x, point.y, point.z, 0.0, 0.0, "Ab"), 0);
    });
    const XPnt2d expected = inBitmap(100.4, 72.4);
    EXPECT_NEAR(pixel.x, expected.x, 0.05);
    EXPECT_NEAR(pixel.y, expected.y, 0.05);
    const PixelArea written{static_cast<int>(pixel.x) + text.x, static_cast<int>(pixel.y) + text.y,
                            text.width, text.height};
    EXPECT_EQ(picture.boundsOf(kWhite), written);
}

TEST_P(ScreenCaptureOverlays, TheTripodStandsInTheUpperRightCorner) {
    camera().setOverlayOption(false);
    const Picture picture = captured([&] { camera().drawAxes(); });
    const XPnt2d anchor = inBitmap(kWidth - 40.0, kHeight - 40.0);
    EXPECT_TRUE(isLit(picture, anchor));
    const auto lit = picture.boundsOtherThan(kBlack);
    ASSERT_TRUE(lit.has_value());
    // The axes reach a few pixels of the view from there, and their letters as many of the bitmap.
    const XPnt2d origin = inBitmap(0.0, 0.0);
    const XPnt2d unit{inBitmap(1.0, 0.0).x - origin.x, inBitmap(0.0, 1.0).y - origin.y};
    EXPECT_GT(lit->x, anchor.x - 12.0 * unit.x - 6.0);
    EXPECT_GT(lit->y, anchor.y - 12.0 * unit.y - 6.0);
}

TEST_P(ScreenCaptureOverlays, TheFrameStandsAtItsPoint) {
    const XPnt3d point = pointAt(100.5, 72.5);
    const Picture picture = captured([&] {
        camera().drawFrame(point.x, point.y, point.z, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 60.0F, false);
    });
    EXPECT_TRUE(isLit(picture, inBitmap(100.5, 72.5)));
}

TEST_P(ScreenCaptureOverlays, TheRingsStandAroundTheRotationCentre) {
    // Half its diagonal is the radius.
    camera().setExtent({-4.0, 4.0, -4.0, 4.0, -4.0, 4.0}, false);
    camera().updateView();
    const XPnt3d center = pointAt(110.0, 80.0);
    camera().setRotationCenter(center.x, center.y, center.z);
    const auto drawRings = [&] {
        camera().onButtonDown(DragRotate, 100, 80);
        camera().onMouseMove(100, 80);
        camera().drawTrackBall();
        camera().onButtonUp();
    };
    const Picture inTheWindow = inWindow(drawRings);
    const auto ring = inTheWindow.boundsOf(kWhite);
    ASSERT_TRUE(ring.has_value());
    const Picture picture = captured(drawRings);
    // A pixel of the view is up to three of the bitmap.
    const int reach = 4;
    EXPECT_TRUE(isLit(picture, inBitmap(ring->x, 80.0), reach));
    EXPECT_TRUE(isLit(picture, inBitmap(ring->x + ring->width, 80.0), reach));
    EXPECT_TRUE(isLit(picture, inBitmap(110.0, ring->y), reach));
    EXPECT_TRUE(isLit(picture, inBitmap(110.0, ring->y + ring->height), reach));
}

TEST_P(ScreenCaptureOverlays, PixelCoordinatesAreThoseOfTheView) {
    const Picture picture = captured([&] {
        display->setOrtho2D();
        glRectd(80.0, 60.0, 120.0, 90.0);
    });
    const XPnt2d low = inBitmap(80.0, 60.0);
    const XPnt2d high = inBitmap(120.0, 90.0);
    const PixelArea expected{static_cast<int>(std::lround(low.x)), static_cast<int>(std::lround(low.y)),
                             static_cast<int>(std::lround(high.x - low.x)),
                             static_cast<int>(std::lround(high.y - low.y))};
    EXPECT_EQ(picture.boundsOf(kWhite), expected);
}

TEST_P(ScreenCaptureOverlays, TextsBeginAtTheirRasterPosition) {
    const PixelArea text = textBounds();
    const Picture picture = captured([&] {
        display->setOrtho2D();
        glRasterPos2f(90.4F, 70.4F);
        display->printText("Ab");
    });
    const XPnt2d at = inBitmap(90.4, 70.4);
    EXPECT_EQ(picture.boundsOf(kWhite),
              (PixelArea{static_cast<int>(at.x) + text.x, static_cast<int>(at.y) + text.y, text.width,
                         text.height}));
}

TEST_P(ScreenCaptureOverlays, PicksFindWhatTheBitmapShows) {
    const XPnt3d point = pointAt(150.0, 110.0);
    XPnt3d picked;
    XPnt3d next;
    captured([&] {
        glEnable(GL_DEPTH_TEST);
        const XPnt3d pixel = camera().projectPnt(point);
        glPointSize(5.0F);
        glBegin(GL_POINTS);
        glVertex3d(point.x, point.y, point.z);
        glEnd();
        picked = camera().getModelPntAt(pixel.x, pixel.y);
        EXPECT_FALSE(camera().getModelPntAt(pixel.x - 7.0, pixel.y).isValid());
        next = camera().pickModelPnt(pixel.x - 7.0, pixel.y);
        const XPnt3d sameDepth = camera().unProject(pixel.x - 7.0, pixel.y, camera().projectPnt(picked).z);
        EXPECT_NEAR(dist(next, sameDepth), 0.0, 0.05);
        EXPECT_TRUE(camera().isPntInView(point.x, point.y, point.z));
    });
    ASSERT_TRUE(picked.isValid());
    EXPECT_NEAR(dist(picked, point), 0.0, 0.05);
}

INSTANTIATE_TEST_SUITE_P(, ScreenCaptureOverlays, ::testing::ValuesIn(kCaptures),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace qel::test
