#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <utility>
#include <variant>

#include "MapRun.h"
#include "MapStyle.h"
#include "MapWindow.h"
#include "SampleMap.h"
#include "kit/CallTrace.h"
#include "kit/Picture.h"

/// The window of a map, driven by the messages that keys and the mouse send.

namespace {

using qelview::MapWindow;

class MapWindowTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(window.open({500, 400}, true)); }

    void send(UINT message, WPARAM wParam, int x = 0, int y = 0) {
        SendMessageW(window.handle(), message, wParam, MAKELPARAM(x, y));
    }
    void key(char pressed) { send(WM_KEYDOWN, static_cast<WPARAM>(pressed)); }
    void wheel(int notches, int x, int y) {
        POINT place{x, y};
        ClientToScreen(window.handle(), &place);
        send(WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), place.x, place.y);
    }
    std::size_t pixelsOf(const qelview::MapColor& color) {
        const qelview::PixelImage image = window.picture(false);
        std::size_t count = 0;
        for (std::size_t i = 0; i < image.rgb.size(); i += 3) {
            count += image.rgb[i] == color.red && image.rgb[i + 1] == color.green &&
                     image.rgb[i + 2] == color.blue;
        }
        return count;
    }

    MapWindow window{qelview::makeSampleMap()};
};

TEST_F(MapWindowTest, ShowsAPaneForEachOfThreeKeys) {
    EXPECT_EQ(window.chosen(), MapWindow::Pane::Gdi);
    EXPECT_GT(pixelsOf(qelview::kLand), 5000U);
    key('2');
    EXPECT_EQ(window.chosen(), MapWindow::Pane::Gl);
    EXPECT_GT(pixelsOf(qelview::kLand), 5000U);
    key('3');
    EXPECT_EQ(window.chosen(), MapWindow::Pane::Relief);
    EXPECT_EQ(pixelsOf(qelview::kLand), 0U);
    // The dark ground of the model view, and not only that.
    EXPECT_LT(pixelsOf({27, 32, 40}), 500U * 400 - 5000);
    key('1');
    EXPECT_EQ(window.chosen(), MapWindow::Pane::Gdi);
    key('4');
    EXPECT_EQ(window.chosen(), MapWindow::Pane::Gdi);
}

TEST_F(MapWindowTest, MovesWithTheMouseThatDragsIt) {
    const qel::XPnt2d grabbed = window.view().worldAt(100, 120);
    send(WM_MOUSEMOVE, 0, 90, 90);
    EXPECT_NEAR(window.view().pixelOf(grabbed).x, 100, 1e-6) << "no button is down";
    send(WM_LBUTTONDOWN, MK_LBUTTON, 100, 120);
    send(WM_MOUSEMOVE, MK_LBUTTON, 130, 100);
    send(WM_MOUSEMOVE, MK_LBUTTON, 160, 90);
    send(WM_LBUTTONUP, 0, 160, 90);
    EXPECT_NEAR(window.view().pixelOf(grabbed).x, 160, 1e-6);
    EXPECT_NEAR(window.view().pixelOf(grabbed).y, 90, 1e-6);
    send(WM_MOUSEMOVE, 0, 10, 10);
    EXPECT_NEAR(window.view().pixelOf(grabbed).x, 160, 1e-6) << "the button is up again";
}

TEST_F(MapWindowTest, LetsGoWhenSomethingElseTakesTheMouse) {
    const qel::XPnt2d grabbed = window.view().worldAt(100, 120);
    send(WM_LBUTTONDOWN, MK_LBUTTON, 100, 120);
    send(WM_MOUSEMOVE, MK_LBUTTON, 130, 100);
    ReleaseCapture();
    send(WM_MOUSEMOVE, 0, 200, 200);
    EXPECT_NEAR(window.view().pixelOf(grabbed).x, 130, 1e-6);
}

TEST_F(MapWindowTest, ZoomsAtTheCursorAndFitsAgain) {
    const double fitted = window.view().unitsPerPixel();
    const qel::XPnt2d under = window.view().worldAt(400, 300);
    wheel(2, 400, 300);
    EXPECT_NEAR(window.view().unitsPerPixel(), fitted / 1.5625, 1e-9 * fitted);
    EXPECT_NEAR(window.view().pixelOf(under).x, 400, 1e-6);
    EXPECT_NEAR(window.view().pixelOf(under).y, 300, 1e-6);
    wheel(-1, 10, 10);
    EXPECT_NEAR(window.view().unitsPerPixel(), fitted / 1.25, 1e-9 * fitted);
    key('F');
    EXPECT_NEAR(window.view().unitsPerPixel(), fitted, 1e-12 * fitted);
}

TEST_F(MapWindowTest, SharesItsViewBetweenBothPlanePanes) {
    wheel(3, 100, 100);
    const double zoomed = window.view().unitsPerPixel();
    const std::size_t byGdi = pixelsOf(qelview::kLand);
    key('2');
    EXPECT_EQ(window.view().unitsPerPixel(), zoomed);
    EXPECT_NEAR(static_cast<double>(pixelsOf(qelview::kLand)), static_cast<double>(byGdi), 0.02 * 500 * 400);
}

TEST_F(MapWindowTest, TurnsTheReliefAndLeavesTheMapAlone) {
    key('3');
    const double units = window.view().unitsPerPixel();
    const std::size_t before = pixelsOf({27, 32, 40});
    send(WM_LBUTTONDOWN, MK_LBUTTON, 200, 200);
    send(WM_MOUSEMOVE, MK_LBUTTON, 260, 150);
    send(WM_LBUTTONUP, 0, 260, 150);
    EXPECT_NE(pixelsOf({27, 32, 40}), before);
    wheel(2, 250, 200);
    EXPECT_EQ(window.view().unitsPerPixel(), units);
}

TEST_F(MapWindowTest, FollowsTheSizeOfItsWindow) {
    SetWindowPos(window.handle(), nullptr, 0, 0, 333, 222, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(window.view().width(), 333);
    EXPECT_EQ(window.view().height(), 222);
    for (const char pane : {'1', '2', '3'}) {
        key(pane);
        const qelview::PixelImage image = window.picture();
        EXPECT_EQ(image.width, 333);
        EXPECT_EQ(image.height, 222);
    }
    SetWindowPos(window.handle(), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    key('1');
    EXPECT_EQ(window.picture().width, 1) << "of a pane without a size";
    key('2');
    EXPECT_EQ(window.picture().width, 1);
}

TEST_F(MapWindowTest, DrawsTextsLinesAndMarginsAsLargeOnEveryScreen) {
    const auto inkIn = [this](const char pane) {
        key(pane);
        const qelview::PixelImage image = window.picture();
        const auto dark = [&](std::size_t x, std::size_t y) {
            return image.rgb[3 * (y * static_cast<std::size_t>(image.width) + x)] < 90;
        };
        // The upper left corner, with the title, at twice the size.
        std::size_t highest = 0;
        std::size_t count = 0;
        for (std::size_t y = static_cast<std::size_t>(image.height) - 100;
             y < static_cast<std::size_t>(image.height); ++y) {
            for (std::size_t x = 0; x < 200; ++x) {
                highest = dark(x, y) ? y : highest;
                count += dark(x, y) ? 1U : 0U;
            }
        }
        return std::pair(static_cast<double>(image.height) - static_cast<double>(highest),
                         static_cast<double>(count));
    };
    for (const char pane : {'1', '2'}) {
        const auto [marginBefore, inkBefore] = inkIn(pane);
        const RECT place{0, 0, 500, 400};
        SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&place));
        const auto [marginAfter, inkAfter] = inkIn(pane);
        EXPECT_NEAR(marginAfter / marginBefore, 2.0, 0.2) << pane;
        EXPECT_GT(inkAfter, 1.5 * inkBefore) << pane;
        SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(inkIn(pane).second, inkBefore) << pane;
    }
}

TEST(MapWindowRun, WritesAPictureOfEachPane) {
    const std::filesystem::path prefix = std::filesystem::temp_directory_path() / "qelview-test-map";
    qelview::Options options;
    options.width = 320;
    options.height = 240;
    options.mapOut = prefix.string();
    EXPECT_TRUE(options.showsMap());
    EXPECT_EQ(qelview::runMap(options, qelview::makeSampleMap()), qelview::ExitCode::Success);
    for (const char* const ending : {"-gdi.png", "-gl.png", "-3d.png"}) {
        const std::filesystem::path file = prefix.string() + ending;
        const qel::test::Picture picture = qel::test::Picture::load(file);
        EXPECT_EQ(picture.width(), 320);
        EXPECT_EQ(picture.height(), 240);
        EXPECT_GT(picture.countOtherThan(picture.at(0, 120)), 5000U) << ending;
        std::filesystem::remove(file);
    }
}

TEST(MapWindowRun, WritesTheOpenGlPaneToASingleFile) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "qelview-test-map.png";
    qelview::Options options;
    options.width = 320;
    options.height = 240;
    options.isMap = true;
    options.out = file.string();
    EXPECT_EQ(qelview::runMap(options, qelview::makeSampleMap()), qelview::ExitCode::Success);
    const qel::test::Picture picture = qel::test::Picture::load(file);
    std::filesystem::remove(file);
    const qelview::MapColor land = qelview::kLand;
    EXPECT_GT(picture.countOf({land.red, land.green, land.blue, 255}), 5000U);
}

TEST(MapWindowRun, EndsWithOneWhereNoPictureCanBeWritten) {
    qelview::Options options;
    options.mapOut = "absent-folder/map";
    EXPECT_EQ(qelview::runMap(options, qelview::makeSampleMap()), qelview::ExitCode::Usage);
}

TEST(MapWindowRun, EndsWithThreeWithoutOpenGl) {
    qelview::Options options;
    options.mapOut = "never";
    qel::test::CallTrace trace;
    trace.answer("wglCreateContext", 0);
    EXPECT_EQ(qelview::runMap(options, qelview::makeSampleMap()), qelview::ExitCode::NoContext);
}

TEST(MapWindowOptions, AreAFlagAndAPrefix) {
    const auto optionsOf = [](std::vector<std::string> arguments) {
        return std::get<qelview::Options>(qelview::parseOptions(std::move(arguments)));
    };
    EXPECT_FALSE(optionsOf({}).showsMap());
    EXPECT_TRUE(optionsOf({"--map"}).showsMap());
    EXPECT_FALSE(optionsOf({"--map"}).writesPictures());
    const qelview::Options options = optionsOf({"--map-out", "out/map", "world.geojson"});
    EXPECT_TRUE(options.showsMap());
    EXPECT_TRUE(options.writesPictures());
    EXPECT_EQ(options.files.at(0), "world.geojson");
    for (const char* const ofModels : {"--capture", "--script", "--motion"}) {
        const auto parsed = qelview::parseOptions({"--map", ofModels, "file"});
        ASSERT_TRUE(std::holds_alternative<qelview::Ending>(parsed)) << ofModels;
        EXPECT_EQ(std::get<qelview::Ending>(parsed).code, qelview::ExitCode::Usage);
    }
}

}  // namespace
