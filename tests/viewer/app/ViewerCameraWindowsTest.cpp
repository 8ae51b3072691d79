#include <algorithm>
#include <fstream>

#include "OpenViewerWindows.h"
#include "viewer/ViewerData.h"

/// The camera of the viewer's window by keys, the way back, and what a window takes over from the one before.

namespace {

using qel::test::OpenViewer;
using qel::test::TemporaryFile;

class ViewerCamera : public OpenViewer {
  protected:
    /// Where a point on the model's front is seen.
    qel::XPnt3d seen() { return camera().projectPnt(front); }
    void rest() { send(WM_TIMER, qelview::ViewerWindow::kRestTimer, 0); }

    qel::XPnt3d front;
};

TEST_F(ViewerCamera, PansAndTurnsTheSceneInTheDirectionOfTheArrow) {
    struct Arrow {
        const char* key;
        double right;
        double up;
    };
    for (const Arrow& arrow : {Arrow{"Left", -1, 0}, {"Right", 1, 0}, {"Up", 0, 1}, {"Down", 0, -1}}) {
        for (const char* const modifier : {"", "Shift+"}) {
            play("key 6");
            front = stage().pointAt({170, 90});
            const qel::XPnt3d before = seen();
            const double distance = qel::dist(camera().getEye(), camera().getTarget());
            play(std::string("key ") + modifier + arrow.key);
            const qel::XPnt3d step = seen() - before;
            EXPECT_GT(step.x * arrow.right + step.y * arrow.up, 1.0) << modifier << arrow.key;
            EXPECT_NEAR(qel::dist(camera().getEye(), camera().getTarget()), distance, 1e-4 * distance);
        }
    }
}

TEST_F(ViewerCamera, ZoomsWithPlusAndMinusAndFitsWithHome) {
    const qel::XPnt3d eye = camera().getEye();
    play("key +");
    const double nearer = camera().getEye().norm();
    EXPECT_LT(nearer, eye.norm());
    play("key -\nkey -");
    EXPECT_GT(camera().getEye().norm(), eye.norm());
    play("key Home");
    EXPECT_LT(qel::dist(camera().getEye(), eye), 1e-6 * eye.norm());
}

TEST_F(ViewerCamera, GoesBackThroughTheCamerasThatWereLeft) {
    const std::string first = cameraNow();
    play("key 0");
    const std::string second = cameraNow();
    play("down left 160 120\nmove 200 100\nup left 200 100");
    const std::string third = cameraNow();
    play("wheel 1 160 120\nwheel 1 160 120\nwheel 1 160 120");
    rest();
    play("key Backspace");
    EXPECT_EQ(cameraNow(), third) << "a turn of the wheel is one movement";
    play("key Backspace");
    EXPECT_EQ(cameraNow(), second);
    play("key Backspace");
    EXPECT_EQ(cameraNow(), first);
    play("key Backspace");
    EXPECT_EQ(cameraNow(), first);
    EXPECT_EQ(stage().annotations().notice, "There is no earlier camera");
}

TEST_F(ViewerCamera, GoesBackToTheProjectionToo) {
    play("key 3\nkey O");
    const qel::test::Picture orthographic = picture();
    play("key O\nkey Backspace");
    EXPECT_TRUE(camera().isOrtho());
    EXPECT_LT(qel::test::compare(picture(), orthographic, 8).share, 0.01);
    play("key Backspace");
    EXPECT_FALSE(camera().isOrtho());
}

TEST_F(ViewerCamera, FollowsTheReportsOfAMultiAxisController) {
    const std::string first = cameraNow();
    // Pushed to the right by half, then twisted.
    viewer->followReports({{1, 175, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 94, 1}, 7});
    const std::string moved = cameraNow();
    EXPECT_NE(moved, first);
    play("key Backspace");
    EXPECT_EQ(cameraNow(), first);
    // The same as a recording of these steps.
    viewer->replay({{6, 0, 0, 0, 0, 0}, {0, 0, 0, -12, 0, 0}});
    while (viewer->isReplaying()) {
        send(WM_TIMER, qelview::ViewerWindow::kReplayTimer, 0);
    }
    EXPECT_EQ(cameraNow(), moved);
}

TEST_F(ViewerCamera, IgnoresReportsDuringADragAndThoseThatAreNone) {
    const std::string before = cameraNow();
    viewer->followReports({});
    viewer->followReports({{9, 9, 9, 9, 9, 9, 9}, 7});
    EXPECT_EQ(cameraNow(), before);
    play("down left 160 120");
    viewer->followReports({{1, 175, 0, 0, 0, 0, 0}, 7});
    EXPECT_EQ(cameraNow(), before);
    // A message without a device's input.
    send(WM_INPUT, 0, 0);
    EXPECT_EQ(cameraNow(), before);
}

TEST_F(ViewerCamera, StaysWhenFilesAreLoadedAgain) {
    play("key F5");
    EXPECT_EQ(stage().annotations().notice, "No file is open");
    const TemporaryFile file("again.obj", "v 100 0 0\nv 101 0 0\nv 101 1 0\nv 100 1 0\nf 1 2 3 4\n");
    play("drop " + file.path().string() + "\nkey 0\nwheel 2 100 100\nkey E");
    const qel::XPnt3d corner(0.5, -0.5, 0.0);
    const qel::XPnt3d before = camera().projectPnt(corner);
    // Twice as wide: the middle of the scene is elsewhere now.
    std::ofstream(file.path()) << "v 100 0 0\nv 102 0 0\nv 102 1 0\nv 100 1 0\nf 1 2 3 4\n";
    play("key F5");
    EXPECT_EQ(stage().annotations().notice, "Loaded again");
    EXPECT_EQ(stage().textOf({0, 0, 0}), "x 101.0000  y 0.5000  z 0.0000");
    // The point at (101, 0, 0) of the file.
    EXPECT_NEAR(camera().projectPnt({0, -0.5, 0}).x, before.x, 0.01);
    EXPECT_NEAR(camera().projectPnt({0, -0.5, 0}).y, before.y, 0.01);
    EXPECT_EQ(stage().colouring(), qelview::Colouring::Height);
    std::ofstream(file.path()) << "f 1 2 3\n";
    const qel::test::Picture kept = picture();
    play("key F5");
    stage().annotations().notice = "Loaded again";
    EXPECT_EQ(picture(), kept) << "a bad file leaves the scene";
}

TEST_F(ViewerCamera, OfTheNextWindowHasSizeAndProjectionOfTheLast) {
    qelview::Environment around = qelview::Environment::scripted();
    around.storeKey = L"Software\\QelDisplay64t\\qelview-camera";
    RegDeleteKeyW(HKEY_CURRENT_USER, around.storeKey);
    open(sampleScene(), around);
    EXPECT_EQ(picture().width(), kWidth);
    play("key O\nsize 400 300");
    viewer.reset();
    ASSERT_TRUE(qelview::readWindowLook(around.storeKey).has_value());
    open(sampleScene(), around);
    EXPECT_TRUE(camera().isOrtho());
    EXPECT_EQ(picture().width(), 400);
    EXPECT_EQ(picture().height(), 300);
    viewer.reset();
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, around.storeKey), ERROR_SUCCESS);
}

class ViewerCameraScale : public ViewerCamera, public testing::WithParamInterface<unsigned> {};

TEST_P(ViewerCameraScale, IsThatOfTheScreen) {
    qelview::Environment around = qelview::Environment::scripted();
    const unsigned dotsPerInch = GetParam();
    around.dotsPerInch = [dotsPerInch](HWND) { return dotsPerInch; };
    const qel::test::Picture usual = picture();
    open(sampleScene(), around);
    const qel::test::Picture large = picture();
    const double scale = dotsPerInch / 96.0;
    EXPECT_EQ(large.width(), kWidth * scale);
    EXPECT_EQ(large.height(), kHeight * scale);
    // The strip, and the letters on it.
    const auto stripOf = [](const qel::test::Picture& shown) {
        int rows = 0;
        while (shown.at(shown.width() - 2, rows) != qel::test::Rgba{27, 32, 40, 255}) {
            ++rows;
        }
        return rows;
    };
    EXPECT_NEAR(stripOf(large), stripOf(usual) * scale, 2.0);
    // The end of the text on the strip: hinting makes large letters bolder, not wider.
    const auto endOfText = [](const qel::test::Picture& shown, int height) {
        int end = 0;
        for (int y = 4; y < height - 4; ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                end = shown.at(x, y)[0] > 90 ? std::max(end, x) : end;
            }
        }
        return end;
    };
    const double endOfUsual = endOfText(usual, stripOf(usual));
    EXPECT_GT(endOfUsual, 100.0);
    EXPECT_NEAR(endOfText(large, stripOf(large)), endOfUsual * scale, 0.12 * endOfUsual * scale);
}
INSTANTIATE_TEST_SUITE_P(Screens, ViewerCameraScale, testing::Values(144U, 192U));

}  // namespace
