#include <gtest/gtest.h>

#include <cmath>

#include "ExtremeNumbers.h"
#include "EyeOracle.h"
#include "QelGl.h"
#include "WatchedCamera.h"
#include "host/RecordingDisplay.h"
#include "kit/GlSurface.h"

namespace qel::test {

namespace {

/// A camera 100 units in front of a model of 40 units, in a view of 400 x 300 pixels.
class TrackBallDrag : public ::testing::Test {
  protected:
    TrackBallDrag() {
        begin(*camera);
        camera->events.clear();
    }

    static void begin(CQelTrackBall& which) {
        which.onResize(400, 300);
        which.setExtent({-20.0, 20.0, -20.0, 20.0, -20.0, 20.0}, false);
        which.setCamera({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0});
        which.updateSphereRadius();
        // Nothing drawn: the depth is that of the extent.
        which.refreshDepth();
    }

    /// What the camera was asked for from the last look on.
    std::vector<std::string> events() { return std::exchange(camera->events, {}); }

    GlSurface surface{400, 300};
    ref_ptr<WatchedCamera> camera{new WatchedCamera};
};

TEST_F(TrackBallDrag, APressStartsItAndMovesNothing) {
    const Placement before(*camera);
    for (const std::int32_t button : {1, 2, 3, 7, -4}) {
        EXPECT_EQ(camera->onButtonDown(button, 30, 40), 1);
        EXPECT_EQ(camera->getDragButton(), button);
        EXPECT_EQ(camera->onButtonUp(), 1);
        EXPECT_EQ(camera->getDragButton(), DragNone);
    }
    EXPECT_EQ(Placement(*camera), before);
}

TEST_F(TrackBallDrag, APressOfNoButtonEndsIt) {
    camera->onButtonDown(DragPan, 10, 10);
    EXPECT_EQ(camera->onButtonDown(DragNone, 20, 20), 1);
    EXPECT_EQ(camera->getDragButton(), DragNone);
    const Placement before(*camera);
    EXPECT_EQ(camera->onMouseMove(200, 200), 1);
    EXPECT_EQ(Placement(*camera), before);
}

TEST_F(TrackBallDrag, AMoveWithoutOneIsIgnored) {
    const Placement before(*camera);
    camera->onButtonUp();
    events();
    EXPECT_EQ(camera->onMouseMove(200, 200), 1);
    EXPECT_EQ(camera->onMouseMove(0.5, 77.25), 1);
    EXPECT_EQ(Placement(*camera), before);
    EXPECT_TRUE(events().empty());
}

TEST_F(TrackBallDrag, TheCameraStaysWhereTheDragLeftIt) {
    camera->onButtonDown(DragRotate, 100, 100);
    camera->onMouseMove(160, 120);
    const Placement moved(*camera);
    camera->onButtonUp();
    EXPECT_EQ(Placement(*camera), moved);
}

TEST_F(TrackBallDrag, AnUnknownButtonOnlyFollowsTheMouse) {
    const Placement before(*camera);
    camera->onButtonDown(7, 100, 100);
    EXPECT_EQ(camera->onMouseMove(160, 120), 1);
    EXPECT_EQ(Placement(*camera), before);
    EXPECT_TRUE(events().empty());
}

TEST_F(TrackBallDrag, WholePixelsAreTheSameInBothForms) {
    for (const std::int32_t button : {DragPan, DragRotate, DragZoom}) {
        const ref_ptr<CQelTrackBall> whole(new CQelTrackBall);
        begin(*whole);
        whole->onButtonDown(button, 130, 90);
        whole->onMouseMove(171, 140);
        const ref_ptr<CQelTrackBall> parts(new CQelTrackBall);
        begin(*parts);
        const Placement before(*parts);
        parts->onButtonDown(button, 130.0, 90.0);
        parts->onMouseMove(171.0, 140.0);
        EXPECT_EQ(Placement(*whole), Placement(*parts)) << button;
        EXPECT_NE(Placement(*parts), before) << button;
    }
}

TEST_F(TrackBallDrag, PositionsThatAreNoNumbersAreRefused) {
    const Placement before(*camera);
    for (const double wrong : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(camera->onButtonDown(DragRotate, wrong, 0.0), 1);
        EXPECT_EQ(camera->onButtonDown(DragRotate, 0.0, wrong), 1);
        EXPECT_EQ(camera->getDragButton(), DragNone);
    }
    for (const std::int32_t button : {DragPan, DragRotate, DragZoom}) {
        camera->onButtonDown(button, 100, 100);
        for (const double wrong : {kNaN, kInfinity, -kInfinity}) {
            EXPECT_EQ(camera->onMouseMove(wrong, 100.0), 1);
            EXPECT_EQ(camera->onMouseMove(100.0, wrong), 1);
        }
        EXPECT_EQ(Placement(*camera), before) << button;
        // The place of the mouse is still the press.
        camera->onMouseMove(100.0, 100.0);
        EXPECT_TRUE(isNear(camera->getEye(), before.eye, 1e-12)) << button;
        camera->onButtonUp();
    }
}

TEST_F(TrackBallDrag, PanningMovesTheSceneWithTheMouse) {
    const double unitsPerPixel = EyeOracle(*camera).unitsPerPixel(-100.0);
    camera->onButtonDown(DragPan, 100, 100);
    events();
    camera->onMouseMove(130, 90);
    // OpenGL's matrices are of single precision.
    EXPECT_TRUE(isNear(camera->getEye(), {-30.0 * unitsPerPixel, 10.0 * unitsPerPixel, 100.0}, 1e-4));
    EXPECT_TRUE(isNear(camera->getTarget(), {-30.0 * unitsPerPixel, 10.0 * unitsPerPixel, 0.0}, 1e-4));
    EXPECT_TRUE(same(camera->getUp(), {0.0, 1.0, 0.0}));
    const XPnt3d eye = camera->getEye();
    EXPECT_EQ(events(), (std::vector<std::string>{WatchedCamera::text("moveBy", -eye.x, -eye.y, 0),
                                                  "updateView", "updateSphereRadius"}));
}

TEST_F(TrackBallDrag, PanningCountsInSinglePrecision) {
    camera->onButtonDown(DragPan, 0, 0);
    camera->onMouseMove(7, -13);
    const XPnt3d first = camera->getEye();
    EXPECT_EQ(first.x, static_cast<double>(static_cast<float>(first.x)));
    EXPECT_EQ(first.y, static_cast<double>(static_cast<float>(first.y)));
    // Units of a pixel are a float too: the same factor makes both.
    const float unitsPerPixel = static_cast<float>(-first.x) / 7.0F;
    EXPECT_NEAR(static_cast<float>(first.y), 13.0F * unitsPerPixel, 2e-7F * 13.0F * unitsPerPixel);
}

TEST_F(TrackBallDrag, PanningDropsPartsOfAPixelButFollowsTheMouse) {
    const Placement before(*camera);
    camera->onButtonDown(DragPan, 100.0, 100.0);
    camera->onMouseMove(100.6, 99.4);
    EXPECT_EQ(Placement(*camera), before);
    // From 100.6 on, again less than a pixel; from the press it would be more than one.
    camera->onMouseMove(101.2, 98.8);
    EXPECT_EQ(Placement(*camera), before);
    camera->onMouseMove(102.3, 98.8);
    EXPECT_NEAR(camera->getEye().x, -EyeOracle(*camera).unitsPerPixel(-100.0), 1e-5);
    EXPECT_EQ(camera->getEye().y, 0.0);
}

TEST_F(TrackBallDrag, PanningDoesNotDependOnTheLengthOfUp) {
    camera->setCamera({0.0, 0.0, 100.0}, {}, {0.0, 8.0, 0.0});
    const double unitsPerPixel = EyeOracle(*camera).unitsPerPixel(-100.0);
    camera->onButtonDown(DragPan, 100, 100);
    camera->onMouseMove(110, 120);
    EXPECT_TRUE(isNear(camera->getEye(), {-10.0 * unitsPerPixel, -20.0 * unitsPerPixel, 100.0}, 1e-4));
    EXPECT_TRUE(same(camera->getUp(), {0.0, 8.0, 0.0}));
}

TEST_F(TrackBallDrag, PanningGoesAlongTheStoredUpEvenWhereThatIsSlanted) {
    camera->setCamera({0.0, 0.0, 100.0}, {}, {0.0, 0.6, 0.8});
    const double unitsPerPixel = EyeOracle(*camera).unitsPerPixel(-100.0);
    camera->onButtonDown(DragPan, 100, 100);
    camera->onMouseMove(100, 110);
    EXPECT_TRUE(isNear(camera->getEye(), {0.0, -6.0 * unitsPerPixel, 100.0 - 8.0 * unitsPerPixel}, 1e-4));
}

TEST_F(TrackBallDrag, PanningInAnOrthographicViewCountsItsBox) {
    camera->setOrtho();
    camera->refreshDepth();
    const double unitsPerPixel = 2.0 / camera->getProjectionMatrix()[0] / 400.0;
    camera->onButtonDown(DragPan, 100, 100);
    camera->onMouseMove(150, 100);
    EXPECT_NEAR(camera->getEye().x, -50.0 * unitsPerPixel, 1e-5);
}

TEST_F(TrackBallDrag, RotatingShowsTheViewAfterEachMove) {
    camera->onButtonDown(DragRotate, 150, 150);
    events();
    camera->onMouseMove(160, 150);
    camera->onMouseMove(170, 150);
    EXPECT_EQ(events(), (std::vector<std::string>{"updateView", "updateView"}));
}

TEST_F(TrackBallDrag, ZoomingAimsAtThePressAndCountsTheWayUp) {
    camera->onButtonDown(DragZoom, 120.9, 77.9);
    events();
    camera->onMouseMove(300.0, 157.9);
    EXPECT_EQ(events()[0], WatchedCamera::text("zoomAt", 0.1F, 120, 77));
    // From the last position, however far the mouse has gone since the press.
    camera->onMouseMove(10.0, 117.9);
    EXPECT_EQ(events()[0], WatchedCamera::text("zoomAt", -0.05F, 120, 77));
    camera->onMouseMove(-50.0, 118.4);
    EXPECT_EQ(events()[0], WatchedCamera::text("zoomAt", static_cast<float>(0.5 / 800.0), 120, 77));
}

TEST_F(TrackBallDrag, ZoomingTakesTheWayInSinglePrecision) {
    camera->onButtonDown(DragZoom, 120.0, 0.1);
    events();
    camera->onMouseMove(120.0, 40.4);
    const float way = static_cast<float>(40.4 - 0.1);
    EXPECT_EQ(events()[0],
              WatchedCamera::text("zoomAt", static_cast<float>(static_cast<double>(way) / 800.0), 120, 0));
}

TEST_F(TrackBallDrag, ZoomingTakesTheWholePixelsOfThePressTowardsZero) {
    camera->onButtonDown(DragZoom, -3.9, -0.9);
    events();
    camera->onMouseMove(0.0, 7.1);
    EXPECT_EQ(events()[0], WatchedCamera::text("zoomAt", 0.01F, -3, 0));
}

/// The display of one of two windows.
class DisplayOfASurface : public RecordingDisplay {
  public:
    std::int32_t makeCurrent() override {
        surface.makeCurrent();
        return 0;
    }

    GlSurface surface{400, 300};
};

TEST_F(TrackBallDrag, BeginsInItsOwnViewWhileAnotherOneIsCurrent) {
    const ref_ptr<DisplayOfASurface> display(new DisplayOfASurface);
    camera->setDisplay(display.get());
    begin(*camera);
    camera->getModelviewMatrix();
    surface.makeCurrent();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotated(50.0, 1.0, 0.2, 0.3);
    camera->onButtonDown(DragRotate, 200.0, 150.0);
    camera->onMouseMove(250.0, 150.0);
    // A turn about the vertical axis keeps the height of the eye.
    EXPECT_NEAR(camera->getEye().y, 0.0, 1e-4);
    EXPECT_LT(camera->getEye().x, -10.0);
    camera->setDisplay(nullptr);
}

struct HardView {
    const char* name;
    XPnt3d eye;
    XPnt3d target;
    XPnt3d up;
    XPnt3d center;
};

/// No direction to look in, no up, a centre beside the eye or beyond all measure: the camera stays a camera.
TEST_F(TrackBallDrag, AnUpVectorTooLongToTurnIsKept) {
    begin(*camera);
    camera->setCamera({0.0, 0.0, 100.0}, {}, {1.7e308, 1.7e308, 0.0});
    // Pixel coordinates of the host's make a matrix that can be inverted again.
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    camera->onButtonDown(DragRotate, 120.0, 50.0);
    camera->onMouseMove(100.0, 80.0);
    EXPECT_TRUE(isFinitePlacement(Placement(*camera))) << Placement(*camera);
}

TEST_F(TrackBallDrag, NoLegalCallMakesTheCameraNotANumber) {
    const HardView views[] = {
        {"eye on target", {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, {0.0, 1.0, 0.0}, {}},
        {"up along the line of sight", {0.0, 0.0, 100.0}, {}, {0.0, 0.0, 1.0}, {}},
        {"no up", {0.0, 0.0, 100.0}, {}, {}, {}},
        {"centre on the eye", {0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}, {0.0, 0.0, 100.0}},
        {"centre beside the eye", {0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}, {5.0, 5.0, 100.0}},
        {"centre behind the eye", {0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}, {5.0, 5.0, 300.0}},
        {"centre far out", {0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}, {1e300, -1e300, 1e300}},
        {"centre at the end of numbers", {0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0}, {1e308, 1e308, 1e308}},
        {"far away", {1e12, 1e12, 1e12}, {1e12, 1e12, 0.0}, {0.0, 1.0, 0.0}, {1e12, 1e12, 0.0}},
        {"beyond single precision", {1e200, 0.0, 0.0}, {}, {0.0, 1.0, 0.0}, {}},
        {"tiny", {0.0, 0.0, 1e-200}, {}, {0.0, 1e-200, 0.0}, {}},
    };
    const double positions[] = {0.0, 200.0, -1e9, 2147483647.0, 1e19, -1e160, 1e308};
    for (const HardView& view : views) {
        for (const bool ortho : {false, true}) {
            for (const std::int32_t button : {DragPan, DragRotate, DragZoom}) {
                SCOPED_TRACE(std::string(view.name) + (ortho ? ", ortho, " : ", perspective, ") +
                             std::to_string(button));
                begin(*camera);
                ortho ? camera->setOrtho() : camera->setPerspective();
                camera->setCamera(view.eye, view.target, view.up);
                camera->setRotationCenter(view.center.x, view.center.y, view.center.z);
                for (const double from : positions) {
                    for (const double to : positions) {
                        camera->onButtonDown(button, from, to);
                        camera->onMouseMove(to, from);
                        ASSERT_TRUE(isFinitePlacement(Placement(*camera)))
                            << Placement(*camera) << from << ' ' << to;
                    }
                }
                // The next valid camera is as good as ever.
                camera->onButtonUp();
                camera->setPerspective();
                camera->setRotationCenter(0.0, 0.0, 0.0);
                begin(*camera);
                camera->onButtonDown(DragPan, 100, 100);
                camera->onMouseMove(130, 90);
                EXPECT_NEAR(camera->getEye().x,
                            -30.0 * 2.0 * 100.0 * std::tan(27.0 * std::numbers::pi / 360.0) / 300.0, 1e-3);
                camera->onButtonUp();
            }
        }
    }
}

}  // namespace

}  // namespace qel::test
