#include <filesystem>
#include <string>
#include <utility>

#include "OpenViewerWindows.h"
#include "viewer/BitmapReader.h"
#include "viewer/ViewerData.h"

/// Four views in the viewer's window, through its window procedure.

namespace {

using qel::test::OpenViewer;
using qel::test::Picture;

class ViewerQuartet : public OpenViewer {
  protected:
    static constexpr int kGap = 4;
    static constexpr int kColumns = 314;
    static constexpr int kRows = 234;

    void SetUp() override {
        OpenViewer::SetUp();
        play("size 640 480");
    }
    /// The view of a quarter of the picture, from the upper left, row by row.
    static Picture quarter(const Picture& whole, int number, int times = 1) {
        const int columns = kColumns * times;
        const int rows = kRows * times;
        const int gap = kGap * times;
        Picture part(columns, rows);
        const int left = gap + number % 2 * (columns + gap);
        const int bottom = gap + (1 - number / 2) * (rows + gap);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                part.set(x, y, whole.at(left + x, bottom + y));
            }
        }
        return part;
    }
    static double difference(const Picture& before, const Picture& after, int number) {
        return qel::test::compare(quarter(before, number), quarter(after, number), 8).share;
    }
    static constexpr const char* kClickIntoTheFirst = "\ndown left 150 110\nup left 150 110";
};

TEST_F(ViewerQuartet, ShowsTheSceneFromAboveInFrontFromTheRightAndIsometrically) {
    play("key Q");
    const Picture whole = picture();
    ASSERT_EQ(whole.width(), 640);
    ASSERT_EQ(whole.height(), 480);
    play("key Q\nsize 314 234\nkey O");
    int number = 0;
    for (const char* const key : {"key 0", "key 3", "key 4", "key O\nkey 6"}) {
        // The first view has the heading of all.
        stage().annotations().hasHeading = number == 0;
        play(key);
        EXPECT_LT(qel::test::compare(quarter(whole, number), picture(), 8).share, 0.01) << key;
        ++number;
    }
}

TEST_F(ViewerQuartet, LeavesTheOneViewAsItWas) {
    play("key 5\nwheel 2 200 200\nmove 300 200");
    const std::string before = cameraNow();
    const Picture one = picture();
    play("key Q\nwheel 3 100 100\nkey 1\nkey F");
    EXPECT_NE(cameraNow(), before);
    for (const char* const close : {"move 300 200\nkey Q", "key Q\nkey Esc"}) {
        play(close);
        EXPECT_FALSE(viewer->hasEnded());
        EXPECT_EQ(cameraNow(), before);
        EXPECT_EQ(qel::test::compare(picture(), one).pixels, 0U) << close;
    }
}

TEST_F(ViewerQuartet, TurnsOnlyTheViewUnderTheMouse) {
    play("key Q\nmove 400 150");
    const Picture before = picture();
    // From the second view into the fourth, which is not turned.
    play("down left 450 100\nmove 480 130\nmove 450 400\nup left 450 400\nmove 400 150");
    const Picture after = picture();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(difference(before, after, i) > 0.02, i == 1) << i;
    }
    play("key 3");
    EXPECT_LT(difference(before, picture(), 1), 0.01) << "keys go to the same view";
    play("key Right\nkey Backspace");
    EXPECT_LT(difference(before, picture(), 1), 0.01) << "and so does the way back";
}

TEST_F(ViewerQuartet, ZoomsAtThePlaceUnderTheMouseOfEachView) {
    play("key Q");
    for (const auto& [x, top] :
         {std::pair(160, 120), std::pair(480, 120), std::pair(160, 360), std::pair(480, 360)}) {
        const auto at = [column = x](int row) { return std::to_string(column) + " " + std::to_string(row); };
        // From the middle of the view down to the scene.
        int y = top;
        do {
            play("move " + at(++y));
        } while (y < top + 60 && !stage().pointAt(*stage().annotations().mouse).isValid());
        const qelview::PixelPlace place = *stage().annotations().mouse;
        const qel::XPnt3d point = stage().pointAt(place);
        ASSERT_TRUE(point.isValid()) << at(y);
        play("wheel 3 " + at(y));
        const qel::XPnt3d shown = camera().project(point.x, point.y, point.z);
        EXPECT_EQ(place.x, x < 320 ? x - kGap : x - 2 * kGap - kColumns);
        EXPECT_EQ(place.y, top > 240 ? 479 - y - kGap : 479 - y - 2 * kGap - kRows);
        // Orthographic views zoom by the mean depth of the scene.
        EXPECT_NEAR(shown.x, place.x + 0.5, 4.0) << at(y);
        EXPECT_NEAR(shown.y, place.y + 0.5, 4.0) << at(y);
    }
}

TEST_F(ViewerQuartet, ShowsMarksCutsAndColoursInAllViewsAndKeepsThem) {
    play("key Q");
    const Picture before = picture();
    play(kClickIntoTheFirst);
    const Picture marked = picture();
    play("key X");
    const Picture cut = picture();
    play("key E");
    const Picture coloured = picture();
    for (int i = 0; i < 4; ++i) {
        const auto marks = [&](const Picture& shown) {
            return quarter(shown, i).countOf(qel::test::kSignalColour, 2);
        };
        EXPECT_GT(marks(marked), marks(before) + 20U) << i;
        EXPECT_GT(difference(marked, cut, i), 0.02) << i;
        EXPECT_GT(difference(cut, coloured, i), 0.02) << i;
    }
    play("key Q");
    EXPECT_EQ(stage().annotations().marks.size(), 1U);
    EXPECT_EQ(stage().section(), qelview::SectionAxis::X);
    EXPECT_EQ(stage().colouring(), qelview::Colouring::Height);
}

TEST_F(ViewerQuartet, FollowsTheSizeOfTheWindow) {
    play("key Q\nsize 500 400");
    EXPECT_EQ(picture().width(), 500);
    EXPECT_EQ(camera().getWidth(), 244.0F);
    EXPECT_EQ(camera().getHeight(), 194.0F);
    play("key Q");
    EXPECT_EQ(camera().getWidth(), 500.0F);
}

TEST_F(ViewerQuartet, IsCapturedAsAWhole) {
    play("key Q");
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::filesystem::path png = folder / "qelview-test-quartet.png";
    const std::filesystem::path bmp = folder / "qelview-test-quartet.bmp";
    for (const int times : {1, 2, 4}) {
        ASSERT_TRUE(viewer->capture(png));
        const Picture captured = Picture::load(png);
        EXPECT_EQ(captured.width(), 640 * times);
        EXPECT_EQ(captured.height(), 480 * times);
        for (int i = 0; i < 4; ++i) {
            const Picture part = quarter(captured, i, times);
            EXPECT_GT(part.countOtherThan(part.at(0, 0)), part.countOf(part.at(0, 0)) / 10) << i;
        }
        play("key R");
    }
    ASSERT_TRUE(viewer->capture(png));
    ASSERT_TRUE(viewer->capture(bmp));
    const auto bitmap = qel::test::readBitmap(bmp);
    ASSERT_TRUE(bitmap.has_value());
    EXPECT_EQ(qel::test::compare(Picture::load(png), qel::test::pictureOf(*bitmap)).pixels, 0U);
    std::filesystem::remove(png);
    std::filesystem::remove(bmp);
}

TEST_F(ViewerQuartet, TurnsAllViewsWithTheUpAxis) {
    play("key Q");
    const Picture before = picture();
    play("key U");
    const Picture turned = picture();
    play("key U");
    for (int i = 0; i < 4; ++i) {
        EXPECT_GT(difference(before, turned, i), 0.02) << i;
        EXPECT_LT(difference(before, picture(), i), 0.01) << i;
    }
}

TEST_F(ViewerQuartet, ShowsAnotherFileAndLoadsItAgainWithItsCameras) {
    const qel::test::TemporaryFile file("quartet.xyz", "0 0 0\n10 0 0\n0 10 0\n0 0 10\n");
    play("key Q\n" + std::string(kClickIntoTheFirst));
    const Picture before = picture();
    play("drop " + file.path().string());
    EXPECT_TRUE(stage().annotations().marks.empty());
    const Picture other = picture();
    for (int i = 0; i < 4; ++i) {
        EXPECT_GT(difference(before, other, i), 0.02) << i;
    }
    play("wheel 4 200 100\nmove 4 4");
    const Picture zoomed = picture();
    play("key F5\nkey H\nkey H");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(difference(zoomed, picture(), i), 0.0) << i;
    }
}

TEST_F(ViewerQuartet, FindsThePointsThatTheViewUnderTheMouseShows) {
    const qel::test::TemporaryFile file("corners.xyz", "0 0 0\n10 0 0\n0 10 0\n0 0 10\n");
    play("drop " + file.path().string() + "\nkey Q");
    // The last view is made to show only the highest of them. It is drawn after the first when both are.
    play("wheel 100 620 250\nmove 150 120\nkey E");
    const qel::XPnt3d shown = camera().project(5.0, -5.0, -5.0);
    const qel::XPnt3d found = stage().pointAt({static_cast<int>(shown.x), static_cast<int>(shown.y)});
    EXPECT_LT((found - qel::XPnt3d(5.0, -5.0, -5.0)).norm(), 1e-6)
        << found.x << ' ' << found.y << ' ' << found.z;
}

TEST_F(ViewerQuartet, EndsWithItsWindow) {
    play("key Q");
    viewer.reset();
}

}  // namespace
