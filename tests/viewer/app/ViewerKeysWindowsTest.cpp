#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>

#include "OpenViewerWindows.h"
#include "kit/CallTrace.h"
#include "kit/Picture.h"
#include "viewer/BitmapReader.h"

/// The keys of the viewer's window, through its window procedure.

namespace {

using qel::test::kSignalColour;
using qel::test::OpenViewer;
using qel::test::Picture;

class ViewerKeys : public OpenViewer {
  protected:
    qel::XPnt3d direction() {
        qel::XPnt3d towardsEye = camera().getEye() - camera().getTarget();
        towardsEye.normalize();
        return towardsEye;
    }
    /// Pixels of a rectangle's colour in the upper half, where no notice stands.
    static std::size_t rectangleIn(const Picture& picture) {
        return picture.countOf(kSignalColour, 2, {0, kHeight / 2, kWidth, kHeight / 2});
    }
};

TEST_F(ViewerKeys, LooksFromTheSideOfEachDigit) {
    const double diagonal = 1.0 / std::sqrt(3.0);
    const std::array<qel::XPnt3d, 8> sides{{{0, 0, 1},
                                            {0, 0, -1},
                                            {0, 1, 0},
                                            {0, -1, 0},
                                            {1, 0, 0},
                                            {-1, 0, 0},
                                            {diagonal, diagonal, diagonal},
                                            {-diagonal, -diagonal, -diagonal}}};
    for (std::size_t view = 0; view < sides.size(); ++view) {
        play("key " + std::to_string(view));
        EXPECT_LT(qel::dist(direction(), sides.at(view)), 1e-9) << view;
    }
}

TEST_F(ViewerKeys, FitsTheModelAgain) {
    const qel::XPnt3d eye = camera().getEye();
    play("wheel 4 100 100\nkey F");
    EXPECT_LT(qel::dist(camera().getEye(), eye), 1e-6 * eye.norm());
}

TEST_F(ViewerKeys, FitsTheModelAboveTheStrip) {
    constexpr double kStrip = 40.0;
    for (const char* const projection : {"", "key O\n"}) {
        play(projection);
        for (int view = 0; view < 8; ++view) {
            play("key " + std::to_string(view) + "\nkey F");
            double lowest = kHeight;
            for (const qel::XPnt3d& point : sampleScene().outline()) {
                lowest = std::min(lowest, camera().project(point.x, point.y, point.z).y);
            }
            EXPECT_GT(lowest, kStrip - 0.5) << projection << view;
        }
    }
}

TEST_F(ViewerKeys, SwitchesTheProjectionAndTheLongAxes) {
    play("key O");
    EXPECT_TRUE(camera().isOrtho());
    play("key O");
    EXPECT_FALSE(camera().isOrtho());
    const Picture without = picture();
    play("key A");
    EXPECT_TRUE(camera().getOverlayOption());
    EXPECT_GT(qel::test::compare(without, picture(), 2).pixels, 50U);
    play("key A");
    EXPECT_EQ(qel::test::compare(without, picture()).pixels, 0U);
}

TEST_F(ViewerKeys, SaysInTheViewThatThereIsNoStereo) {
    const std::string before = cameraNow();
    play("key S");
    if (stage().isStereo()) {
        GTEST_SKIP() << "this driver has stereo views";
    }
    EXPECT_EQ(cameraNow(), before);
    EXPECT_EQ(stage().annotations().notice, "Stereo is not supported");
    EXPECT_GT(signals(), 100U);
    // The window still draws.
    play("key 0");
    EXPECT_EQ(signals(), 0U);
}

TEST_F(ViewerKeys, ShowsTheHelpInTheViewUntilItIsEnded) {
    const Picture without = picture();
    play("key H");
    const qel::test::PictureDifference shown = qel::test::compare(without, picture(), 2);
    EXPECT_GT(shown.share, 0.2);
    play("key Esc");
    EXPECT_FALSE(viewer->hasEnded());
    EXPECT_EQ(qel::test::compare(without, picture()).pixels, 0U);
    play("key H\nkey H");
    EXPECT_EQ(qel::test::compare(without, picture()).pixels, 0U);
}

TEST_F(ViewerKeys, EndsOneThingAfterTheOtherWithEscape) {
    play("key Z\nkey H\ndown left 100 100\nmove 150 150\nkey Esc");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(stage().annotations().panel, qelview::Panel::Help);
    play("key Esc");
    EXPECT_EQ(stage().annotations().panel, qelview::Panel::None);
    EXPECT_FALSE(viewer->hasEnded());
    // Still choosing a rectangle: a drag does not rotate.
    const std::string before = cameraNow();
    play("down left 100 100\nmove 101 140\nup left 101 140");
    EXPECT_EQ(cameraNow(), before);
    play("key Esc\ndown left 100 100\nmove 150 140\nup left 150 140");
    EXPECT_NE(cameraNow(), before);
    EXPECT_FALSE(viewer->hasEnded());
    play("key Esc");
    EXPECT_TRUE(viewer->hasEnded());
}

class ViewerKeysZoomRectangle : public ViewerKeys, public testing::WithParamInterface<bool> {
  protected:
    void SetUp() override {
        ViewerKeys::SetUp();
        if (GetParam()) {
            play("key O");
        }
    }
};

TEST_P(ViewerKeysZoomRectangle, FillsTheViewWithWhatItShowed) {
    // From the upper left to the lower right, a quarter of the view wide.
    const qel::XPnt3d middle = stage().pointAt({170, 90});
    const qel::XPnt3d beside = stage().pointAt({180, 90});
    ASSERT_TRUE(middle.isValid() && beside.isValid());
    const double before = camera().projectPnt(beside).x - camera().projectPnt(middle).x;
    const qel::XPnt3d towards = direction();
    play("key Z\ndown left 130 119\nmove 210 179\nup left 210 179");
    EXPECT_LT(qel::dist(direction(), towards), 1e-6);
    EXPECT_NEAR(camera().projectPnt(middle).x, 160.0, 2.0);
    EXPECT_NEAR(camera().projectPnt(middle).y, 120.0, 2.0);
    const double after = camera().projectPnt(beside).x - camera().projectPnt(middle).x;
    EXPECT_NEAR(after / before, 4.0, 0.4);
    // Once only: the next drag rotates.
    play("down left 130 119\nmove 150 150");
    EXPECT_EQ(camera().getDragButton(), qel::DragRotate);
}

INSTANTIATE_TEST_SUITE_P(Projections, ViewerKeysZoomRectangle, testing::Bool(), [](const auto& each) {
    return std::string(each.param ? "Orthographic" : "Perspective");
});

TEST_F(ViewerKeys, DrawsTheRectangleOverTheLastFrameAndNothingOfItStays) {
    const Picture before = picture();
    ASSERT_EQ(rectangleIn(before), 0U);
    play("key Z\ndown left 60 30\nmove 200 110");
    const Picture during = picture();
    // Half of each edge is drawn, dashed; the lower one at row 240 - 1 - 110.
    EXPECT_NEAR(static_cast<double>(during.countOf(kSignalColour, 2, {60, 209, 141, 1})), 71.0, 8.0);
    EXPECT_NEAR(static_cast<double>(during.countOf(kSignalColour, 2, {60, 129, 1, 81})), 41.0, 8.0);
    play("move 100 60");
    EXPECT_NEAR(static_cast<double>(rectangleIn(picture())), 71.0, 12.0);
    play("key Esc\nkey Esc");
    EXPECT_EQ(qel::test::compare(before, picture()).pixels, 0U);
}

TEST_F(ViewerKeys, TakesATinyRectangleForASlipOfTheHand) {
    const std::string before = cameraNow();
    play("key Z\ndown left 100 100\nmove 130 103\nup left 130 103");
    EXPECT_EQ(cameraNow(), before);
    play("down left 100 100\nmove 160 160");
    EXPECT_EQ(camera().getDragButton(), qel::DragNone);
}

class ViewerKeysCaptures : public ViewerKeys {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        before = std::filesystem::current_path();
        std::filesystem::current_path(folder);
        ViewerKeys::SetUp();
    }
    void TearDown() override {
        std::filesystem::current_path(before);
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / "qelview-test-keys";
    std::filesystem::path before;
};

TEST_F(ViewerKeysCaptures, GetANameOfTheirOwn) {
    play("key C\nkey 0\nkey C");
    EXPECT_EQ(stage().annotations().notice, "Captured qelview-002.bmp");
    const auto first = qel::test::readBitmap("qelview-001.bmp");
    const auto second = qel::test::readBitmap("qelview-002.bmp");
    ASSERT_TRUE(first.has_value() && second.has_value());
    EXPECT_EQ(first->width, kWidth);
    EXPECT_EQ(first->height, kHeight);
    EXPECT_NE(first->rgb, second->rgb);
}

TEST_F(ViewerKeysCaptures, ShowTheMarkButNeitherHelpNorNoticeNorStrip) {
    play("capture plain.bmp\nkey H\nmove 170 150\ncapture helped.bmp");
    const auto plain = qel::test::readBitmap("plain.bmp");
    const auto helped = qel::test::readBitmap("helped.bmp");
    ASSERT_TRUE(plain.has_value() && helped.has_value());
    EXPECT_EQ(plain->rgb, helped->rgb);
    play("key H\ndown left 170 149\nup left 170 149\ncapture marked.bmp");
    const auto marked = qel::test::readBitmap("marked.bmp");
    ASSERT_TRUE(marked.has_value());
    EXPECT_GT(qel::test::pictureOf(*marked).countOf(kSignalColour, 2), 60U);
}

TEST_F(ViewerKeysCaptures, KeepEveryColumn) {
    play("size 323 200\ncapture odd.bmp");
    const auto odd = qel::test::readBitmap("odd.bmp");
    ASSERT_TRUE(odd.has_value());
    EXPECT_EQ(odd->width, 323);
    EXPECT_EQ(odd->height, 200);
}

TEST_F(ViewerKeysCaptures, AreReportedWhenTheyCannotBeWritten) {
    const qel::test::Picture drawnBefore = picture();
    EXPECT_FALSE(viewer->capture("absent/a.bmp"));
    EXPECT_EQ(stage().annotations().notice,
              "The capture a.bmp cannot be written; choose another folder or name");
    // The view draws on as before.
    stage().annotations().notice.clear();
    EXPECT_TRUE(picture() == drawnBefore);
    play("key C");
    EXPECT_TRUE(std::filesystem::exists("qelview-001.bmp"));
}

TEST_F(ViewerKeysCaptures, DoNotTakeWhatStandsUnderTheirNameForThePicture) {
    ASSERT_TRUE(viewer->capture("locked.bmp"));
    HANDLE const locked = CreateFileW(L"locked.bmp", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(viewer->capture("locked.bmp"));
    CloseHandle(locked);
    EXPECT_TRUE(qel::test::readBitmap("locked.bmp").has_value());
    std::filesystem::create_directory("folder.bmp");
    EXPECT_FALSE(viewer->capture("folder.bmp"));
    EXPECT_TRUE(std::filesystem::is_directory("folder.bmp"));
    EXPECT_EQ(stage().annotations().notice,
              "The capture folder.bmp cannot be written; choose another folder or name");
}

TEST_F(ViewerKeysCaptures, AreReportedAsIncompleteOnAFullDisk) {
    // A device of Linux that takes nothing stands in for a full disk. Wine does not tell that it exists, but
    // tells of files beside it.
    if (!std::filesystem::exists("Z:\\proc\\self\\status")) {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    EXPECT_FALSE(viewer->capture("Z:\\dev\\full"));
    EXPECT_EQ(stage().annotations().notice,
              "The capture full is not complete; make room on the disk and capture again");
    // The next one finds room.
    EXPECT_TRUE(viewer->capture("full.bmp"));
    EXPECT_EQ(stage().annotations().notice, "Captured full.bmp");
    EXPECT_TRUE(qel::test::readBitmap("full.bmp").has_value());
}

TEST_F(ViewerKeys, FollowsTheSizeOfTheWindow) {
    play("size 200 150");
    EXPECT_EQ(picture().width(), 200);
    EXPECT_EQ(picture().height(), 150);
    // Depth of the new size is there for picking at once.
    EXPECT_TRUE(stage().pointAt({106, 60}).isValid());
}

TEST_F(ViewerKeys, TurnsTheSceneSoThatYPointsUpInTheSameView) {
    play("key 0");
    const Picture before = picture();
    play("key U");
    EXPECT_EQ(stage().up(), qelview::UpAxis::Y);
    // From above is along Y now; the front, towards +Z, is at the lower edge.
    EXPECT_LT(qel::dist(direction(), {0, 1, 0}), 1e-9);
    qel::XPnt3d up = camera().getUp();
    up.normalize();
    EXPECT_LT(qel::dist(up, {0, 0, -1}), 1e-9);
    EXPECT_GT(qel::test::compare(before, picture(), 2).pixels, 1000U);
    play("key 3");
    EXPECT_LT(qel::dist(direction(), {0, 0, 1}), 1e-9);
    play("key U\nkey 0");
    EXPECT_EQ(qel::test::compare(before, picture()).pixels, 0U);
}

TEST_F(ViewerKeys, DoesNotTurnASceneWhoseFileSaysWhatPointsUp) {
    qelview::Scene scene = qelview::makeSampleScene();
    scene.up = qelview::UpAxis::Y;
    scene.isUpKnown = true;
    open(scene);
    const std::string before = cameraNow();
    play("key U");
    EXPECT_EQ(cameraNow(), before);
    EXPECT_EQ(stage().annotations().notice, "The file defines that Y points up");
}

TEST_F(ViewerKeys, ListsTheWarningsOfTheFilesUntilTheListIsEnded) {
    play("key W");
    EXPECT_EQ(stage().annotations().notice, "No warnings");
    EXPECT_EQ(stage().annotations().panel, qelview::Panel::None);
    qelview::Scene scene = qelview::makeSampleScene();
    scene.warnings = {"a.obj: line 3: odd", "a.obj: line 4: strange"};
    open(scene);
    const Picture without = picture();
    play("key W");
    EXPECT_EQ(stage().annotations().panel, qelview::Panel::Warnings);
    EXPECT_GT(qel::test::compare(without, picture(), 2).share, 0.05);
    play("key H");
    EXPECT_EQ(stage().annotations().panel, qelview::Panel::Help);
    play("key W\nkey Esc");
    EXPECT_EQ(qel::test::compare(without, picture()).pixels, 0U);
    EXPECT_FALSE(viewer->hasEnded());
}

}  // namespace
