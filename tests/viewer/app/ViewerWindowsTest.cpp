#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <utility>

#include "PictureRun.h"
#include "QelGl.h"
#include "Stage.h"
#include "SystemWindow.h"
#include "kit/CallTrace.h"
#include "viewer/ViewerData.h"

/// The viewer's rooms that stand on a window.

namespace {

using qel::test::CallTrace;
using qelview::Stage;

/// A wide flat scene of two crossing lines around the origin.
qelview::Scene crossingLines() {
    qelview::Scene scene;
    scene.title = "lines";
    scene.segments.push_back({{-10, 0, 0}, {10, 0, 0}, {{255, 0, 0}, 1.0F}});
    scene.segments.push_back({{0, -5, 0}, {0, 5, 0}, {{0, 255, 0}, 1.0F}});
    return scene;
}

TEST(ViewerWritePictures, EndsWithThreeAndNoPictureWhenTheWindowGetsNoContext) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "qelview-test-context.png";
    qelview::Options options;
    options.out = file.string();
    CallTrace trace;
    trace.answer("wglCreateContext", 0);
    qelview::Stopwatch watch;
    EXPECT_EQ(qelview::writePictures(options, crossingLines(), watch), qelview::ExitCode::NoContext);
    EXPECT_FALSE(std::filesystem::exists(file));
}

class ViewerStage : public testing::Test {
  protected:
    void SetUp() override {
        window = qelview::createHiddenWindow({320, 200});
        ASSERT_TRUE(window);
        stage = Stage::open(window.get(), crossingLines());
        ASSERT_NE(stage, nullptr);
        stage->resize({320, 200});
    }
    /// The stage lets go of the window before the window goes.
    void TearDown() override { stage.reset(); }

    double distanceToScene() { return stage->camera().getEye().norm(); }

    qelview::OwnedWindow window;
    std::unique_ptr<Stage> stage;
};

TEST_F(ViewerStage, FitsTheSceneIntoEachStandardView) {
    for (unsigned view = 0; view < 8; ++view) {
        stage->setView(view);
        for (const qel::XPnt3d& end : crossingLines().outline()) {
            const qel::XPnt3d place = stage->camera().projectPnt(end);
            EXPECT_GT(place.x, 0.0) << view;
            EXPECT_LT(place.x, 320.0) << view;
            EXPECT_GT(place.y, 0.0) << view;
            EXPECT_LT(place.y, 200.0) << view;
        }
    }
}

TEST_F(ViewerStage, ReturnsToTheFittedDistanceAfterAZoom) {
    stage->setView(0);
    stage->show();
    const double fitted = distanceToScene();
    stage->camera().zoomAt(0.05F, 160, 100);
    EXPECT_LT(distanceToScene(), fitted);
    stage->fit();
    EXPECT_NEAR(distanceToScene(), fitted, 1e-9 * fitted);
}

TEST_F(ViewerStage, KeepsTheSizeOfTheSceneWhenTheProjectionChanges) {
    stage->setView(0);
    stage->show();
    const double before = stage->camera().project(10, 0, 0).x - stage->camera().project(-10, 0, 0).x;
    stage->switchProjection();
    EXPECT_TRUE(stage->camera().isOrtho());
    const double after = stage->camera().project(10, 0, 0).x - stage->camera().project(-10, 0, 0).x;
    EXPECT_NEAR(after, before, 0.005 * before);
    stage->switchProjection();
    EXPECT_FALSE(stage->camera().isOrtho());
}

TEST_F(ViewerStage, FitsTheSceneIntoOrthographicViewsToo) {
    qelview::Scene deep = crossingLines();
    // Its far end is small in perspective.
    deep.segments.push_back({{0, 0, -40}, {12, 7, -40}, {{0, 0, 255}, 1.0F}});
    stage = Stage::open(window.get(), deep);
    stage->resize({320, 200});
    stage->setView(0);
    stage->switchProjection();
    stage->fit();
    for (const qel::XPnt3d& end : deep.outline()) {
        const qel::XPnt3d place = stage->camera().projectPnt(end);
        EXPECT_NEAR(place.x, 160.0, 160.0);
        EXPECT_NEAR(place.y, 100.0, 100.0);
    }
}

TEST_F(ViewerStage, GivesThePixelsThatItDrew) {
    stage->setView(0);
    const qelview::PixelImage image = stage->picture();
    ASSERT_EQ(image.width, 320);
    ASSERT_EQ(image.height, 200);
    ASSERT_EQ(image.rgb.size(), 320U * 200U * 3U);
    // Below the axes tripod, which is red and green too.
    constexpr std::size_t kRowsBelowTheAxes = 150;
    const auto countOf = [&image](std::uint8_t red, std::uint8_t green) {
        int count = 0;
        for (std::size_t i = 0; i < 320 * kRowsBelowTheAxes * 3; i += 3) {
            count += image.rgb[i] == red && image.rgb[i + 1] == green && image.rgb[i + 2] == 0 ? 1 : 0;
        }
        return count;
    };
    // The longer line is 94 % of the width, the other one half of it, from row 15 upwards: with a line of heading the middle of
    // the scene is 10 rows below that of the view.
    EXPECT_NEAR(countOf(255, 0), 300, 3);
    EXPECT_NEAR(countOf(0, 255), 135, 3);
}

TEST_F(ViewerStage, WritesItsTextsAtTheEdges) {
    stage->setView(0);
    const qelview::PixelImage image = stage->picture();
    int bright = 0;
    for (std::size_t y = 0; y < 24; ++y) {
        for (std::size_t x = 0; x < 160; ++x) {
            bright += image.rgb[(y * 320 + x) * 3] > 140 ? 1 : 0;
        }
    }
    EXPECT_GT(bright, 50);
}

TEST_F(ViewerStage, MovesToAnotherWindowWithItsCamera) {
    for (const bool isOrthographic : {false, true}) {
        stage->setView(3);
        if (isOrthographic) {
            stage->switchProjection();
            stage->fit();
        }
        stage->show();
        const qelview::PixelImage before = stage->picture();
        const qelview::OwnedWindow other = qelview::createHiddenWindow({320, 200});
        std::unique_ptr<Stage> moved = stage->viewOn(other.get(), false);
        ASSERT_NE(moved, nullptr);
        EXPECT_EQ(moved->camera().isOrtho(), isOrthographic);
        EXPECT_EQ(qel::dist(moved->camera().getEye(), stage->camera().getEye()), 0.0);
        EXPECT_EQ(moved->picture().rgb, before.rgb);
        moved.reset();
    }
}

TEST_F(ViewerStage, ShowsAnotherScene) {
    stage->setView(0);
    const qelview::PixelImage before = stage->picture();
    qelview::Scene other = crossingLines();
    other.segments.pop_back();
    stage->setScene(other);
    stage->setView(0);
    EXPECT_NE(stage->picture().rgb, before.rgb);
    stage->setScene(crossingLines());
    stage->setView(0);
    EXPECT_EQ(stage->picture().rgb, before.rgb);
}

/// The finished program in its own window.
class ViewerRunning : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t name[MAX_PATH] = L"";
        GetModuleFileNameW(nullptr, name, MAX_PATH);
        const std::filesystem::path program = std::filesystem::path(name).parent_path() / "qelview.exe";
        std::wstring line = L"\"" + program.wstring() + L"\" --size 400x300 --view 0";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        ASSERT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                                 &process),
                  FALSE);
        for (int attempt = 0; attempt < 600 && window == nullptr; ++attempt) {
            Sleep(50);
            HWND const found = FindWindowW(L"QelViewWindow", nullptr);
            window = found != nullptr && IsWindowVisible(found) != FALSE ? found : nullptr;
        }
        ASSERT_NE(window, nullptr);
    }
    void TearDown() override {
        TerminateProcess(process.hProcess, 99);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    DWORD exitCode() {
        constexpr DWORD kLongest = 30000;
        EXPECT_EQ(WaitForSingleObject(process.hProcess, kLongest), WAIT_OBJECT_0);
        DWORD code = 0;
        GetExitCodeProcess(process.hProcess, &code);
        return code;
    }
    void press(WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 0); }

    PROCESS_INFORMATION process{};
    HWND window = nullptr;
};

TEST_F(ViewerRunning, HasTheWantedSizeAndEndsOnEscape) {
    const qelview::ClientSize size = qelview::clientSizeOf(window);
    EXPECT_EQ(size.width, 400);
    EXPECT_EQ(size.height, 300);
    wchar_t caption[64] = L"";
    GetWindowTextW(window, caption, 64);
    EXPECT_STREQ(caption, L"Sample scene - qelview");
    PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(exitCode(), 0U);
}

TEST_F(ViewerRunning, LivesThroughEveryKeyTheMouseAndANewSize) {
    for (const char key : std::string("01234567O6FOXAASHHZZ")) {
        press(static_cast<WPARAM>(key));
        UpdateWindow(window);
    }
    for (const auto& [down, up] :
         {std::pair(WM_LBUTTONDOWN, WM_LBUTTONUP), std::pair(WM_MBUTTONDOWN, WM_MBUTTONUP),
          std::pair(WM_RBUTTONDOWN, WM_RBUTTONUP)}) {
        SendMessageW(window, static_cast<UINT>(down), 0, MAKELPARAM(100, 100));
        SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(140, 120));
        SendMessageW(window, static_cast<UINT>(up), 0, MAKELPARAM(140, 120));
    }
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(100, 100));
    ShowWindow(window, SW_MINIMIZE);
    ShowWindow(window, SW_RESTORE);
    SetWindowPos(window, nullptr, 0, 0, 700, 500, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(exitCode(), 0U);
}

}  // namespace
