#include <cmath>

#include "OpenViewerWindows.h"

/// The mouse in the viewer's window, through its window procedure.

namespace {

using qel::test::OpenViewer;
using qelview::PixelPlace;

class ViewerMouse : public OpenViewer {
  protected:
    /// On the model in the view that the window begins with.
    static constexpr PixelPlace kOnModel{170, 90};
    /// In the empty corner at the lower left, above the strip.
    static constexpr PixelPlace kOnNothing{20, 60};

    double distance() { return qel::dist(camera().getEye(), camera().getTarget()); }
    /// How far the image of a point lies from a place, in pixels.
    double pixelsBetween(const qel::XPnt3d& point, const PixelPlace& place) {
        const qel::XPnt3d seen = camera().projectPnt(point);
        return std::hypot(seen.x - place.x - 0.5, seen.y - place.y - 0.5);
    }
};

TEST_F(ViewerMouse, RotatesAboutTheModelWithTheLeftButton) {
    const qel::XPnt3d eye = camera().getEye();
    const double before = distance();
    play("down left 160 120\nmove 200 100\nup left 200 100");
    EXPECT_GT(qel::dist(camera().getEye(), eye), 0.1 * before);
    EXPECT_NEAR(distance(), before, 1e-5 * before);
    EXPECT_EQ(camera().getDragButton(), qel::DragNone);
}

TEST_F(ViewerMouse, BringsTheViewBackWithTheHandThatRotates) {
    const qel::XPnt3d eye = camera().getEye();
    play("down left 160 120\nmove 220 90\nmove 160 120");
    EXPECT_LT(qel::dist(camera().getEye(), eye), 1e-4 * distance());
}

TEST_F(ViewerMouse, PansWithTheMiddleButtonAndWithShift) {
    const std::string before = cameraNow();
    const qel::XPnt3d direction = camera().getEye() - camera().getTarget();
    play("down middle 160 120\nmove 200 110\nup middle 200 110");
    const std::string panned = cameraNow();
    EXPECT_NE(panned, before);
    EXPECT_LT(qel::dist(camera().getEye() - camera().getTarget(), direction), 1e-9 * distance());
    play("key 6\ndown left 160 120 shift\nmove 200 110\nup left 200 110");
    EXPECT_EQ(cameraNow(), panned);
}

TEST_F(ViewerMouse, TakesTheGrabbedPointAlongWhenItPans) {
    const qel::XPnt3d middle = stage().pointAt(kOnModel);
    ASSERT_TRUE(middle.isValid());
    camera().setRotationCenter(middle.x, middle.y, middle.z);
    play("down middle " + mouse(kOnModel) + "\nmove " + mouse({kOnModel.x + 40, kOnModel.y - 20}));
    EXPECT_LT(pixelsBetween(middle, {kOnModel.x + 40, kOnModel.y - 20}), 1.0);
}

TEST_F(ViewerMouse, ZoomsWithTheRightButton) {
    const double before = camera().getEye().norm();
    play("down right 160 120\nmove 160 80\nup right 160 80");
    const double nearer = camera().getEye().norm();
    EXPECT_LT(nearer, before);
    play("down right 160 120\nmove 160 200\nup right 160 200");
    EXPECT_GT(camera().getEye().norm(), nearer);
}

TEST_F(ViewerMouse, KeepsThePointUnderTheCursorWhenTheWheelZooms) {
    for (const int notches : {3, -5, 1}) {
        const qel::XPnt3d point = stage().pointAt(kOnModel);
        ASSERT_TRUE(point.isValid());
        const double before = qel::dist(camera().getEye(), point);
        play("wheel " + std::to_string(notches) + " " + mouse(kOnModel));
        EXPECT_LT(pixelsBetween(point, kOnModel), 1.0) << notches;
        EXPECT_EQ(qel::dist(camera().getEye(), point) < before, notches > 0) << notches;
    }
}

TEST_F(ViewerMouse, LeavesTheSameShareOfTheWayWithEachNotchOfTheWheel) {
    const qel::XPnt3d eye = camera().getEye();
    const auto wayOf = [&](int notches) {
        play("key 6\nwheel " + std::to_string(notches) + " 160 120");
        return qel::dist(camera().getEye(), eye);
    };
    const double one = wayOf(1);
    EXPECT_NEAR(wayOf(2) / one, 1.9, 1e-5);
    EXPECT_NEAR(wayOf(10) / one, (1.0 - std::pow(0.9, 10)) / 0.1, 1e-5);
    EXPECT_NEAR(wayOf(-2) / one, (1.0 / 0.81 - 1.0) / 0.1, 1e-5);
}

TEST_F(ViewerMouse, RotatesAboutThePointOfADoubleClick) {
    const qel::XPnt3d point = stage().pointAt(kOnModel);
    ASSERT_TRUE(point.isValid());
    const std::string before = cameraNow();
    play("double " + mouse(kOnModel));
    EXPECT_EQ(cameraNow(), before);
    play("down left 160 120\nmove 190 140\nmove 210 100");
    EXPECT_NE(cameraNow(), before);
    EXPECT_LT(pixelsBetween(point, kOnModel), 1.5);
}

TEST_F(ViewerMouse, EndsADragWhenTheMouseIsTakenAway) {
    play("down left 160 120\nmove 200 100");
    const std::string before = cameraNow();
    EXPECT_EQ(camera().getDragButton(), qel::DragRotate);
    send(WM_CAPTURECHANGED, 0, 0);
    EXPECT_EQ(camera().getDragButton(), qel::DragNone);
    play("move 260 60\nup left 260 60");
    EXPECT_EQ(cameraNow(), before);
}

TEST_F(ViewerMouse, HoldsTheMouseDuringADragAlone) {
    play("down left 160 120");
    EXPECT_EQ(GetCapture(), viewer->handle());
    play("up left 160 120");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ViewerMouse, KeepsToTheFirstButton) {
    play("down left 160 120\nmove 200 100\ndown right 200 100\nup right 200 100");
    EXPECT_EQ(camera().getDragButton(), qel::DragRotate);
    play("up left 200 100");
    EXPECT_EQ(camera().getDragButton(), qel::DragNone);
}

TEST_F(ViewerMouse, LetsNothingElseMoveTheCameraDuringADrag) {
    play("down left 160 120\nmove 200 100");
    const std::string before = cameraNow();
    play("wheel 3 160 120\nkey 0\nkey F\nkey O");
    EXPECT_EQ(cameraNow(), before);
    play("up left 200 100\nkey O");
    EXPECT_TRUE(camera().isOrtho());
}

TEST_F(ViewerMouse, ShowsRingsWhileItRotatesAndOnlyThen) {
    const std::size_t before = picture().countOf(qel::test::kWhite);
    play("down left 160 120\nmove 200 100");
    EXPECT_GT(picture().countOf(qel::test::kWhite), before + 100);
    play("up left 200 100\nkey 6");
    EXPECT_EQ(picture().countOf(qel::test::kWhite), before);
}

TEST_F(ViewerMouse, MarksThePointOfAClickWithItsCoordinates) {
    const std::string before = cameraNow();
    const qel::XPnt3d point = stage().pointAt(kOnModel);
    EXPECT_EQ(signals(), 0U);
    play("down left " + mouse(kOnModel) + "\nmove " + mouse({kOnModel.x + 2, kOnModel.y - 2}) + "\nup left " +
         mouse({kOnModel.x + 2, kOnModel.y - 2}));
    EXPECT_EQ(cameraNow(), before);
    ASSERT_EQ(stage().annotations().marks.size(), 1U);
    const auto* const mark = &stage().annotations().marks.front();
    EXPECT_EQ(qel::dist(mark->at, point), 0.0);
    EXPECT_EQ(mark->label, stage().textOf(point));
    // The cross stands at the click, its text to the right of it.
    const qel::test::Picture marked = picture();
    EXPECT_GT(marked.countOf(qel::test::kSignalColour, 2, {kOnModel.x - 8, kOnModel.y - 8, 17, 17}), 15U);
    EXPECT_GT(marked.countOf(qel::test::kSignalColour, 2, {kOnModel.x + 10, kOnModel.y, 100, 24}), 60U);
}

TEST_F(ViewerMouse, RemovesTheMarkWithAClickOnNothing) {
    play("down left " + mouse(kOnModel) + "\nup left " + mouse(kOnModel));
    ASSERT_GT(signals(), 0U);
    play("down left " + mouse(kOnNothing) + "\nup left " + mouse(kOnNothing));
    EXPECT_TRUE(stage().annotations().marks.empty());
    EXPECT_EQ(signals(), 0U);
}

TEST_F(ViewerMouse, TellsThePointUnderTheMouseInTheStrip) {
    static constexpr qel::test::PixelArea kStrip{0, 0, kWidth, 39};
    const auto inked = [this] {
        const qel::test::Picture now = picture();
        return now.countOf({158, 173, 194, 255}, 3, kStrip);
    };
    play("move " + mouse(kOnNothing));
    const std::size_t withoutPoint = inked();
    EXPECT_GT(withoutPoint, 0U);
    play("move " + mouse(kOnModel));
    EXPECT_GT(inked(), withoutPoint + 50);
    send(WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(inked(), withoutPoint);
}

TEST_F(ViewerMouse, ShowsTheLastFrameAgainAsItWas) {
    play("down left " + mouse(kOnModel) + "\nup left " + mouse(kOnModel));
    const qel::test::Picture whole = picture();
    EXPECT_EQ(qel::test::pictureOf(stage().overlayPicture(std::nullopt)), whole);
}

TEST_F(ViewerMouse, MarksThePointsOfACloudThemselves) {
    qelview::Scene scene;
    qelview::PointCloud cloud;
    cloud.positions = {{-10, 0, 0}, {10, 0, 0}, {0, 5, 1}};
    scene.clouds.push_back(cloud);
    open(scene);
    play("key 0");
    const qel::XPnt3d place = camera().project(0, 5, 1);
    const PixelPlace pixel{static_cast<int>(place.x) + 1, static_cast<int>(place.y) - 1};
    play("down left " + mouse(pixel) + "\nup left " + mouse(pixel));
    ASSERT_EQ(stage().annotations().marks.size(), 1U);
    EXPECT_EQ(qel::dist(stage().annotations().marks.front().at, {0, 5, 1}), 0.0);
    EXPECT_FALSE(stage().pointAt({pixel.x + 10, pixel.y}).isValid());
}

TEST_F(ViewerMouse, CountsCoordinatesFromTheOriginOfTheFiles) {
    qelview::Scene remote;
    remote.points.push_back({{500000, 4000000, 100}});
    remote.points.push_back({{500100, 4000000, 100}});
    remote.moveToOrigin();
    open(remote);
    EXPECT_EQ(stage().textOf({50, 0, 0}), "x 500100.00  y 4000000.00  z 100.00");
}

}  // namespace
