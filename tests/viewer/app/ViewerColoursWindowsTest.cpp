#include "OpenViewerWindows.h"
#include "viewer/BitmapReader.h"

/// Colours and sizes in the viewer's window, through its window procedure.

namespace {

using qel::test::OpenViewer;
using qel::test::Picture;
using qelview::Colouring;

class ViewerColours : public OpenViewer {};

TEST_F(ViewerColours, AreThoseOfTheElevationThenOneThenTheirOwnAgain) {
    play("size 640 480");
    const Picture own = picture();
    play("key E");
    EXPECT_EQ(stage().colouring(), Colouring::Height);
    EXPECT_EQ(stage().annotations().notice, "Coloured by elevation");
    const Picture byHeight = picture();
    EXPECT_GT(qel::test::compare(own, byHeight, 8).share, 0.2);
    play("key E");
    EXPECT_EQ(stage().colouring(), Colouring::Plain);
    EXPECT_GT(qel::test::compare(byHeight, picture(), 8).share, 0.2);
    play("key E");
    EXPECT_EQ(stage().colouring(), Colouring::Own);
    stage().annotations().notice.clear();
    EXPECT_EQ(qel::test::compare(own, picture()).pixels, 0U);
}

TEST_F(ViewerColours, ShowTheirLegendInCapturesToo) {
    const auto barIn = [](const Picture& shown) {
        return 16U * 22U - shown.countOf({27, 32, 40, 255}, 0, {18, 102, 16, 22});
    };
    // The model is small and far from the legend.
    play("key 1\nwheel -20 160 120");
    EXPECT_EQ(barIn(picture()), 0U);
    play("key E");
    EXPECT_EQ(barIn(picture()), 16U * 22U);
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "qelview-test-legend.bmp";
    ASSERT_TRUE(viewer->capture(file));
    const auto captured = qel::test::readBitmap(file);
    std::filesystem::remove(file);
    ASSERT_TRUE(captured.has_value());
    EXPECT_EQ(barIn(qel::test::pictureOf(*captured)), 16U * 22U);
}

TEST_F(ViewerColours, FollowTheAxisThatPointsUp) {
    play("key E");
    const Picture withZ = picture();
    play("key U");
    EXPECT_EQ(stage().colouring(), Colouring::Height);
    EXPECT_GT(qel::test::compare(withZ, picture(), 8).share, 0.1);
}

TEST_F(ViewerColours, NeedAMeshOrACloud) {
    qelview::Scene lines;
    lines.segments.push_back({{0, 0, 0}, {1, 1, 1}, {}});
    open(lines);
    play("key E");
    EXPECT_EQ(stage().annotations().notice, "There is no mesh or point cloud");
    EXPECT_EQ(stage().colouring(), Colouring::Own);
    play("key P");
    EXPECT_EQ(stage().annotations().notice, "There is no point cloud");
}

TEST_F(ViewerColours, HavePointsOfTheWantedSize) {
    play("key P");
    EXPECT_EQ(stage().annotations().notice, "Points of 3 pixels");
    play("key Shift+P\nkey Shift+P");
    EXPECT_EQ(stage().annotations().notice, "Points of 1 pixel");
}

}  // namespace
