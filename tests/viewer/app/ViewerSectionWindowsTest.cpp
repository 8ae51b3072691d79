#include <cmath>
#include <filesystem>
#include <string>

#include "OpenViewerWindows.h"

/// The plane that cuts the scene, through the window procedure of the viewer's window.

namespace {

using qel::test::OpenViewer;
using qel::test::Picture;
using qelview::SectionAxis;

class ViewerSection : public OpenViewer {
  protected:
    /// A cube of 2 around (100, 0, 0), a label on its right side and a cloud of a point on each side.
    void SetUp() override {
        qelview::Scene scene;
        qelview::TriangleMesh cube;
        cube.color = {0.0F, 0.6F, 0.0F};
        for (int corner = 0; corner < 8; ++corner) {
            cube.positions.emplace_back(99 + 2 * (corner & 1), -1 + (corner & 2), -1 + (corner & 4) / 2);
        }
        cube.indices = {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                        2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5};
        scene.meshes.push_back(cube);
        qelview::PointCloud cloud;
        cloud.positions = {{99.5, 0.5, 1.5}, {100.5, 0.5, 1.5}};
        cloud.size = 4.0F;
        cloud.color = {1.0F, 0.0F, 1.0F};
        scene.clouds.push_back(cloud);
        scene.moveToOrigin();
        open(scene);
        play("key 0");
    }
    bool isShownAt(double x, double y, double z) {
        const qel::XPnt3d place = camera().project(x, y, z);
        return stage().pointAt({static_cast<int>(place.x), static_cast<int>(place.y)}).isValid();
    }
    static std::size_t outlineIn(const Picture& shown) { return shown.countOf({255, 115, 64, 255}, 3); }
};

TEST_F(ViewerSection, HidesOneSideOfTheSceneAndTurnsRound) {
    EXPECT_TRUE(isShownAt(-0.5, -0.5, 0.75) && isShownAt(0.5, -0.5, 0.75));
    play("key X");
    EXPECT_EQ(stage().section(), SectionAxis::X);
    EXPECT_EQ(stage().annotations().notice,
              "Section x = 100.0000; PageUp and PageDown move it, I turns it round");
    EXPECT_TRUE(isShownAt(-0.5, -0.5, 0.75));
    EXPECT_FALSE(isShownAt(0.5, -0.5, 0.75));
    play("key I");
    EXPECT_FALSE(isShownAt(-0.5, -0.5, 0.75));
    EXPECT_TRUE(isShownAt(0.5, -0.5, 0.75));
    EXPECT_EQ(stage().annotations().notice,
              "Section x = 100.0000; PageUp and PageDown move it, I turns it round");
    for (const SectionAxis axis : {SectionAxis::Y, SectionAxis::Z, SectionAxis::View, SectionAxis::None}) {
        play("key X");
        EXPECT_EQ(stage().section(), axis);
    }
    EXPECT_TRUE(isShownAt(-0.5, -0.5, 0.75) && isShownAt(0.5, -0.5, 0.75));
}

TEST_F(ViewerSection, FindsNoPointOfACloudThatItHides) {
    play("key X");
    const auto pointNear = [this](double x) {
        const qel::XPnt3d place = camera().project(x, 0.5, 0.75 + 0.5);
        return stage().pointAt({static_cast<int>(place.x), static_cast<int>(place.y)});
    };
    EXPECT_NEAR(pointNear(-0.5).x, -0.5, 0.2);
    EXPECT_FALSE(pointNear(0.5).isValid());
}

TEST_F(ViewerSection, MovesWithKeysAndWithTheWheelAndControl) {
    play("key X\nkey PageUp");
    EXPECT_EQ(stage().annotations().notice.substr(0, 20), "Section x = 100.0400");
    play("key PageDown\nkey PageDown");
    EXPECT_EQ(stage().annotations().notice.substr(0, 19), "Section x = 99.9600");
    const std::string before = cameraNow();
    send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 3 * WHEEL_DELTA), 0);
    EXPECT_EQ(stage().annotations().notice.substr(0, 20), "Section x = 100.0200");
    EXPECT_EQ(cameraNow(), before);
    // It stops at the end of the scene.
    send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(200 * WHEEL_DELTA)), 0);
    EXPECT_EQ(stage().annotations().notice.substr(0, 20), "Section x = 101.0000");
    send(WM_PAINT, 0, 0);
    EXPECT_TRUE(isShownAt(0.5, -0.5, 0.75));
    play("key X\nkey X\nkey X\nkey X\nkey PageUp");
    EXPECT_EQ(stage().annotations().notice, "There is no section; X makes one");
}

TEST_F(ViewerSection, FollowsADragWithControlAlongItsNormal) {
    // The cube has 2 units; the plane begins in its middle.
    for (const char* const view : {"key 0", "key 3", "key O", "key 6"}) {
        play(std::string(view) + "\nkey X");
        const qel::XPnt3d from = camera().project(0.0, 0.0, 0.0);
        const qel::XPnt3d to = camera().project(0.3, 0.0, 0.0);
        const std::string before = cameraNow();
        const qelview::PixelPlace press{static_cast<int>(from.x), static_cast<int>(from.y)};
        const qelview::PixelPlace end{press.x + static_cast<int>(std::lround(to.x - from.x)),
                                      press.y + static_cast<int>(std::lround(to.y - from.y))};
        play("down left " + mouse(press) + " ctrl\nmove " + mouse(end) + "\nup left " + mouse(end) + " ctrl");
        EXPECT_EQ(cameraNow(), before) << view;
        EXPECT_NEAR(std::stod(stage().sectionText().substr(4)), 100.3, 0.03) << view;
        EXPECT_EQ(stage().annotations().notice.substr(0, 11), "Section x =") << view;
        play("key X\nkey X\nkey X\nkey X");
    }
}

TEST_F(ViewerSection, FollowsADragUpAndDownWhereItsNormalPointsAtTheViewer) {
    play("key X\nkey X\nkey X");
    ASSERT_EQ(stage().section(), SectionAxis::Z);
    play("down left 100 120 ctrl\nmove 180 120\nup left 180 120 ctrl");
    EXPECT_EQ(stage().sectionText(), "z = 0.2500") << "across";
    play("down left 100 120 ctrl\nmove 100 60\nup left 100 60 ctrl");
    // A quarter of the view is a quarter of the scene.
    EXPECT_EQ(stage().sectionText(), "z = -0.3750");
    // Without a section the same drag rotates.
    play("key X\nkey X");
    ASSERT_EQ(stage().section(), SectionAxis::None);
    const std::string before = cameraNow();
    play("down left 100 120 ctrl\nmove 180 120\nup left 180 120 ctrl");
    EXPECT_NE(cameraNow(), before);
}

TEST_F(ViewerSection, DrawsTheOutlineOfTheCutInCapturesToo) {
    play("key 4");
    EXPECT_EQ(outlineIn(picture()), 0U);
    play("key X");
    const std::size_t shown = outlineIn(picture());
    EXPECT_GT(shown, 200U) << "a square";
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "qelview-test-section.png";
    ASSERT_TRUE(viewer->capture(file));
    const Picture captured = Picture::load(file);
    std::filesystem::remove(file);
    // The strip hides none of it there.
    EXPECT_GE(outlineIn(captured), shown);
    // Of another scene nothing is cut.
    EXPECT_EQ(stage().section(), SectionAxis::X);
    stage().setScene(qelview::makeSampleScene());
    EXPECT_EQ(stage().section(), SectionAxis::None);
}

}  // namespace
