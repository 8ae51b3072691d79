#include "OpenViewerWindows.h"

/// Measuring in the viewer's window, through its window procedure.

namespace {

using qel::test::OpenViewer;
using qelview::PixelPlace;

class ViewerMeasure : public OpenViewer {
  protected:
    static constexpr PixelPlace kOnNothing{20, 60};

    /// Three points at the corners of a triangle with legs of 20 and 10, far from the origin of their file.
    void SetUp() override {
        qelview::Scene scene;
        qelview::PointCloud cloud;
        cloud.positions = {{600000, 4000000, 10}, {600020, 4000000, 10}, {600000, 4000010, 10}};
        scene.clouds.push_back(cloud);
        scene.moveToOrigin();
        open(scene);
        play("key 0");
    }
    void click(const PixelPlace& place) { play("down left " + mouse(place) + "\nup left " + mouse(place)); }
    void clickPoint(double x, double y) {
        const qel::XPnt3d place = camera().project(x, y, 0);
        click({static_cast<int>(place.x), static_cast<int>(place.y)});
    }
    void clickAll() {
        clickPoint(-10, -5);
        clickPoint(10, -5);
        clickPoint(-10, 5);
    }
    /// What the clipboard holds; empty for no text.
    std::string clipboard() {
        if (OpenClipboard(viewer->handle()) == FALSE) {
            return "";
        }
        HANDLE const memory = GetClipboardData(CF_UNICODETEXT);
        std::string text;
        if (memory != nullptr) {
            text = qelview::toUtf8(static_cast<const wchar_t*>(GlobalLock(memory)));
            GlobalUnlock(memory);
        }
        CloseClipboard();
        return text;
    }
};

TEST_F(ViewerMeasure, KeepsTheMarksOfClicksAndShowsWhatTheyMeasure) {
    play("key M");
    EXPECT_TRUE(stage().annotations().isMeasuring);
    clickPoint(-10, -5);
    const std::size_t one = signals();
    clickPoint(10, -5);
    const std::size_t two = signals();
    EXPECT_GT(two, one + 300U) << "a line and six more lines of text";
    clickPoint(-10, 5);
    EXPECT_GT(signals(), two + 200U);
    ASSERT_EQ(stage().annotations().marks.size(), 3U);
    EXPECT_EQ(stage().annotations().marks[2].label, "3");
    // A click beside everything loses nothing.
    click(kOnNothing);
    EXPECT_EQ(stage().annotations().marks.size(), 3U);
    EXPECT_EQ(stage().annotations().notice, "There is no point");
}

TEST_F(ViewerMeasure, EndsWithItsKeyAndWithEscape) {
    for (const char* const end : {"key M", "key Esc"}) {
        play("key M");
        clickAll();
        play(end);
        EXPECT_FALSE(stage().annotations().isMeasuring);
        EXPECT_TRUE(stage().annotations().marks.empty());
        EXPECT_EQ(signals(), 0U);
        EXPECT_FALSE(viewer->hasEnded());
    }
    // A click marks only its own point again.
    clickAll();
    EXPECT_EQ(stage().annotations().marks.size(), 1U);
}

TEST_F(ViewerMeasure, CopiesTheCoordinatesOfTheFilesAndTheMeasurements) {
    play("key Ctrl+C");
    EXPECT_EQ(stage().annotations().notice, "Click a point first, or several with M");
    play("key M");
    clickAll();
    play("key Ctrl+C");
    EXPECT_EQ(stage().annotations().notice, "Points copied");
    EXPECT_EQ(
        clipboard(),
        "point\tx\ty\tz\tdx\tdy\tdz\tdistance\thorizontal\tslope (deg)\tpath\r\n"
        "1\t600000\t4000000\t10\r\n"
        "2\t600020\t4000000\t10\t20\t0\t0\t20\t20\t0\t20\r\n"
        "3\t600000\t4000010\t10\t-20\t10\t0\t22.3606797749979\t22.3606797749979\t0\t42.3606797749979\r\n"
        "area\t100\r\narea from above\t100\r\n");
}

TEST_F(ViewerMeasure, TellsWhenAnotherProgramHoldsTheClipboard) {
    clickPoint(10, -5);
    const qelview::OwnedWindow other = qelview::createHiddenWindow({16, 16});
    ASSERT_NE(OpenClipboard(other.get()), FALSE);
    play("key Ctrl+C");
    CloseClipboard();
    EXPECT_EQ(stage().annotations().notice, "The clipboard is in use by another program; try again");
}

}  // namespace
