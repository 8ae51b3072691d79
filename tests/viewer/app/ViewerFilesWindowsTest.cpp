#include <atomic>
#include <thread>

#include "FileInput.h"
#include "LoadTask.h"
#include "OpenViewerWindows.h"
#include "ProgressWindow.h"
#include "ReadError.h"
#include "viewer/ViewerData.h"

/// Files that are opened from inside the viewer's window.

namespace {

using qel::test::OpenViewer;
using qel::test::TemporaryFile;

constexpr const char* kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2 3 4\n";

class ViewerFiles : public OpenViewer {
  protected:
    std::wstring caption() {
        wchar_t text[128] = L"";
        GetWindowTextW(viewer->handle(), text, 128);
        return text;
    }
    void drop(const std::filesystem::path& file) {
        const std::u8string name = file.u8string();
        play("drop " + std::string(name.begin(), name.end()));
    }
    /// Asserts that the sample scene still stands in the view that it had.
    void expectTheOldScene(const qel::test::Picture& before) {
        EXPECT_EQ(caption(), L"Sample scene - qelview");
        stage().annotations().notice.clear();
        EXPECT_EQ(picture(), before);
        EXPECT_NE(IsWindowEnabled(viewer->handle()), FALSE);
    }
};

TEST_F(ViewerFiles, ShowsADroppedFileInPlaceOfTheScene) {
    const TemporaryFile square("dropped.obj", kSquare);
    const double before = camera().getEye().norm();
    drop(square.path());
    EXPECT_EQ(caption(), L"qelview-test-dropped.obj - qelview");
    EXPECT_LT(camera().getEye().norm(), 0.2 * before);
    EXPECT_FALSE(viewer->hasFailedToOpen());
    EXPECT_EQ(stage().textOf({0, 0, 0}), "x 0.5000  y 0.5000  z 0.0000");
}

TEST_F(ViewerFiles, ForgetsTheMarkOfTheOldScene) {
    const TemporaryFile square("marked.obj", kSquare);
    play("down left 170 149\nup left 170 149");
    ASSERT_EQ(stage().annotations().marks.size(), 1U);
    drop(square.path());
    EXPECT_TRUE(stage().annotations().marks.empty());
}

TEST_F(ViewerFiles, KeepsTheSceneWhenADroppedFileIsBad) {
    const TemporaryFile bad("dropped-bad.obj", "v 0 0 0\nf 1 2 3\n");
    const qel::test::Picture before = picture();
    drop(bad.path());
    EXPECT_TRUE(viewer->hasFailedToOpen());
    EXPECT_EQ(stage().annotations().notice, "Could not open the file");
    expectTheOldScene(before);
}

/// Work that never ends by itself.
qelview::Scene loadForEver(qelview::Progress& progress, qelview::Stopwatch&) {
    for (double done = 0.0;; done += 1e-4) {
        progress.report(done);
        Sleep(1);
    }
}

/// Environment of a person who waits for a load that only he can end.
qelview::Environment endlessLoads() {
    qelview::Environment around = qelview::Environment::scripted();
    around.load = [](const std::vector<std::string>&, qelview::UpAxis) {
        qelview::LoadTask task(loadForEver);
        return qelview::waitWithWindow(task);
    };
    return around;
}

TEST_F(ViewerFiles, StaysResponsiveDuringALongLoadAndKeepsTheSceneWhenItIsCancelled) {
    open(sampleScene(), endlessLoads());
    const qel::test::Picture before = picture();
    HWND const window = viewer->handle();
    std::atomic<bool> hasAnswered = false;
    std::atomic<bool> wasEnabled = true;
    std::thread user([&] {
        HWND progress = nullptr;
        for (int attempt = 0; attempt < 1000 && progress == nullptr; ++attempt) {
            Sleep(10);
            progress = FindWindowW(L"QelViewProgress", nullptr);
        }
        constexpr UINT kLongest = 5000;
        DWORD_PTR result = 0;
        hasAnswered = SendMessageTimeoutW(window, WM_PAINT, 0, 0, SMTO_NORMAL, kLongest, &result) != 0;
        wasEnabled = IsWindowEnabled(window) != FALSE;
        PostMessageW(progress, WM_KEYDOWN, VK_ESCAPE, 0);
    });
    play("drop anything.obj");
    user.join();
    EXPECT_TRUE(hasAnswered);
    EXPECT_FALSE(wasEnabled);
    EXPECT_EQ(stage().annotations().notice, "Loading cancelled");
    EXPECT_FALSE(viewer->hasFailedToOpen());
    expectTheOldScene(before);
}

TEST(ViewerFilesProgress, IsAsLargeOnEveryScreen) {
    constexpr int kDotsPerInch[] = {96, 144, 192};
    for (const int dotsPerInch : kDotsPerInch) {
        RECT window{};
        RECT bar{};
        std::thread user([&] {
            HWND progress = nullptr;
            // The bar is there once the window is shown.
            for (int attempt = 0; attempt < 1000 && IsWindowVisible(progress) == FALSE; ++attempt) {
                Sleep(10);
                progress = FindWindowW(L"QelViewProgress", nullptr);
            }
            HWND const child = GetWindow(progress, GW_CHILD);
            GetClientRect(progress, &window);
            GetClientRect(child, &bar);
            PostMessageW(progress, WM_CLOSE, 0, 0);
        });
        qelview::LoadTask task(loadForEver);
        EXPECT_THROW(static_cast<void>(qelview::waitWithWindow(task, static_cast<unsigned>(dotsPerInch))),
                     qelview::ReadCancelled);
        user.join();
        EXPECT_EQ(window.right, 420 * dotsPerInch / 96);
        // This screen's caption may be lower than the one that belongs to the resolution.
        EXPECT_GE(window.bottom, 64 * dotsPerInch / 96);
        EXPECT_EQ(bar.right, 380 * dotsPerInch / 96);
        EXPECT_EQ(bar.bottom, 24 * dotsPerInch / 96);
    }
}

TEST(ViewerFilesOfAnswer, ReadsOneNameOrAFolderWithItsNames) {
    using Files = std::vector<std::string>;
    using namespace std::string_literals;
    EXPECT_EQ(qelview::parseDialogResult(L"C:\\a b.obj\0\0"s), (Files{"C:\\a b.obj"}));
    EXPECT_EQ(qelview::parseDialogResult(L"C:\\dir\0a.obj\0b.ply\0\0"s),
              (Files{"C:\\dir\\a.obj", "C:\\dir\\b.ply"}));
    EXPECT_EQ(qelview::parseDialogResult(L"C:\\\0a.obj\0b.ply\0\0"s), (Files{"C:\\a.obj", "C:\\b.ply"}));
    EXPECT_TRUE(qelview::parseDialogResult(L"\0\0"s).empty());
}

TEST(ViewerFilesDropped, CarryTheirNamesUnchanged) {
    const std::vector<std::string> files{"C:\\one.obj", "D:\\caf\xC3\xA9 two.ply"};
    HDROP const drop = qelview::makeDrop(files);
    ASSERT_NE(drop, nullptr);
    EXPECT_EQ(qelview::takeDroppedFiles(drop), files);
}

}  // namespace
