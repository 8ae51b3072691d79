#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "OpenViewerWindows.h"
#include "RecentStore.h"
#include "RunViewerWindows.h"
#include "kit/Picture.h"
#include "viewer/BitmapReader.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::contentOf;
using qel::test::Ended;
using qel::test::Picture;
using qel::test::quoted;
using qel::test::runViewer;
using qel::test::temporary;

TEST(QelView, RefusesABadFileInOneLineWithExitCodeTwo) {
    const qel::test::TemporaryFile bad("bad.obj", "v 0 0 0\nv 1 0 0\nf 1 2 3\n");
    const std::filesystem::path picture = temporary("refused.png");
    const Ended ended = runViewer(quoted(bad.path()) + L" --out " + quoted(picture));
    EXPECT_EQ(ended.code, 2U);
    EXPECT_NE(ended.errors.find("bad.obj: line 3: vertex 3 does not exist: the file has 2\n"),
              std::string::npos)
        << ended.errors;
    EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1);
    EXPECT_FALSE(std::filesystem::exists(picture));
}

TEST(QelView, ShowsAFileWithWarningsAndPrintsThem) {
    const qel::test::TemporaryFile odd("odd.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 2\nsomething\n");
    const std::filesystem::path picture = temporary("odd.png");
    const Ended ended = runViewer(quoted(odd.path()) + L" --size 64x64 --up y --out " + quoted(picture));
    EXPECT_EQ(ended.code, 0U);
    EXPECT_EQ(ended.errors,
              "qelview: warning: qelview-test-odd.obj: line 5: a face of fewer than 3 vertices is left out\n"
              "qelview: warning: qelview-test-odd.obj: line 6: unknown statement 'something'\n");
    EXPECT_TRUE(std::filesystem::remove(picture));
}

TEST(QelView, ShowsNothingOfAGoodFileBesideABadOne) {
    const qel::test::TemporaryFile good("good.xyz", "0 0 0\n1 1 1\n");
    const Ended ended =
        runViewer(quoted(good.path()) + L" absent.ply --out " + quoted(temporary("half.png")));
    EXPECT_EQ(ended.code, 2U);
    EXPECT_EQ(ended.errors, "qelview: absent.ply: the file does not exist\n");
    EXPECT_FALSE(std::filesystem::exists(temporary("half.png")));
}

TEST(QelView, RefusesAWrongCommandLineWithExitCodeOne) {
    const Ended ended = runViewer(L"--view 9");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_NE(ended.errors.find("--view"), std::string::npos);
    EXPECT_EQ(ended.output, "");
}

TEST(QelView, PrintsItsHelpAndItsVersion) {
    const Ended help = runViewer(L"--help");
    EXPECT_EQ(help.code, 0U);
    EXPECT_NE(help.output.find("--views-out"), std::string::npos);
    const Ended version = runViewer(L"--version");
    EXPECT_EQ(version.code, 0U);
    EXPECT_EQ(version.output.rfind("qelview ", 0), 0U);
}

TEST(QelView, SaysWhenAPictureCannotBeWritten) {
    const qel::test::TemporaryFile points("two.xyz", "0 0 0\n1 1 1\n");
    const Ended ended = runViewer(quoted(points.path()) + L" --size 64x64 --out absent-folder/picture.png");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_EQ(ended.errors, "qelview: absent-folder/picture.png: could not write the picture\n");
}

/// A red square in the plane of x and y that fills a view from above.
constexpr const char* kRedSquare = "v 0 0 0 1 0 0\nv 1 0 0 1 0 0\nv 1 1 0 1 0 0\nv 0 1 0 1 0 0\nf 1 2 3 4\n";

TEST(QelView, PaintsAModelInItsColoursAtTheWantedSize) {
    const qel::test::TemporaryFile square("square.obj", kRedSquare);
    const std::filesystem::path file = temporary("square.png");
    const Ended ended = runViewer(quoted(square.path()) + L" --size 200x160 --view 0 --out " + quoted(file));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    EXPECT_EQ(ended.errors, "");
    const Picture picture = Picture::load(file);
    std::filesystem::remove(file);
    EXPECT_EQ(picture.width(), 200);
    EXPECT_EQ(picture.height(), 160);
    const qel::test::Rgba middle = picture.at(100, 80);
    EXPECT_GT(middle[0], 180);
    EXPECT_LT(middle[1], 60);
    EXPECT_LT(middle[2], 60);
    // The background, where nothing is.
    EXPECT_EQ(picture.at(190, 80), (qel::test::Rgba{27, 32, 40, 255}));
}

TEST(QelView, ShowsTheSameModelOrthographically) {
    const qel::test::TemporaryFile square("ortho.obj", kRedSquare);
    const std::filesystem::path file = temporary("ortho.png");
    const Ended ended =
        runViewer(quoted(square.path()) + L" --size 200x160 --view 0 --ortho --out " + quoted(file));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    const Picture picture = Picture::load(file);
    std::filesystem::remove(file);
    int red = 0;
    for (int x = 0; x < picture.width(); ++x) {
        red += picture.at(x, 80)[0] > 150 && picture.at(x, 80)[1] < 60 ? 1 : 0;
    }
    // Of the lower half the square fills 86 % in perspective, of the upper one, which has the heading, 60 %; and it keeps its size.
    EXPECT_NEAR(red, (0.86 + 0.6) / 2.0 * 160.0, 2.0);
}

TEST(QelView, WritesAllStandardViewsOfTheSampleScene) {
    const std::filesystem::path prefix = temporary("views");
    const Ended ended = runViewer(L"--size 320x240 --views-out " + quoted(prefix));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    for (int view = 0; view < 8; ++view) {
        const std::filesystem::path file = prefix.string() + std::to_string(view) + ".png";
        ASSERT_TRUE(std::filesystem::exists(file)) << view;
        const Picture picture = Picture::load(file);
        std::filesystem::remove(file);
        // Each view shows something on more than a tenth of its area.
        EXPECT_GT(picture.countOtherThan({27, 32, 40, 255}, 2), 320U * 240U / 10U) << view;
    }
}

TEST(QelView, CapturesWhatItsPicturesShow) {
    const std::filesystem::path captured = temporary("captured.bmp");
    const std::filesystem::path shown = temporary("shown.png");
    const Ended ended =
        runViewer(L"--size 400x300 --capture " + quoted(captured) + L" --out " + quoted(shown));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    const auto bitmap = qel::test::readBitmap(captured);
    ASSERT_TRUE(bitmap.has_value());
    const Picture picture = Picture::load(shown);
    // Two contexts, and 24 bits of depth in one of them where the other may have 16.
    EXPECT_LT(qel::test::compare(picture, qel::test::pictureOf(*bitmap), 8).share, 0.005);
    std::filesystem::remove(captured);
    std::filesystem::remove(shown);
}

TEST(QelView, SaysWhenACaptureCannotBeWritten) {
    const Ended ended = runViewer(L"--size 64x64 --capture absent-folder/view.bmp");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_EQ(
        ended.errors,
        "qelview: absent-folder/view.bmp: the capture cannot be written; choose another folder or name\n");
}

TEST(QelView, SaysWhenACaptureIsNotComplete) {
    // A device that takes nothing stands in for a full disk, where there is one.
    if (!std::filesystem::exists("Z:\\proc\\self\\status")) {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    const Ended ended = runViewer(L"--size 64x64 --capture Z:/dev/full");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_EQ(ended.errors,
              "qelview: Z:/dev/full: the capture is not complete; make room on the disk and capture again\n");
}

struct Writing {
    const char* name;
    const wchar_t* arguments;
    std::set<std::string> files;
};

class QelViewWriting : public testing::TestWithParam<Writing> {};

TEST_P(QelViewWriting, WriteTheFilesTheyWereToldToAndNoOther) {
    const std::filesystem::path folder = temporary("empty");
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const Ended ended = runViewer(GetParam().arguments, folder);
    EXPECT_EQ(ended.code, 0U) << ended.errors;
    std::set<std::string> written;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        written.insert(entry.path().filename().string());
    }
    EXPECT_EQ(written, GetParam().files);
    std::filesystem::remove_all(folder);
}

INSTANTIATE_TEST_SUITE_P(
    Runs, QelViewWriting,
    testing::Values(Writing{"Nothing", L"--version", {}},
                    Writing{"Picture", L"--size 64x64 --out a.png", {"a.png"}},
                    Writing{"Capture", L"--size 64x64 --capture a.bmp", {"a.bmp"}},
                    Writing{"Both", L"--size 64x64 --out a.png --capture a.bmp", {"a.bmp", "a.png"}},
                    Writing{"Map", L"--size 64x64 --map-out a", {"a-3d.png", "a-gdi.png", "a-gl.png"}}),
    [](const auto& each) { return each.param.name; });

TEST(QelView, PlaysAScriptThatWritesPictureCameraAndCapture) {
    const std::filesystem::path picture = temporary("script.png");
    const std::filesystem::path camera = temporary("script.txt");
    const std::filesystem::path capture = temporary("script.bmp");
    const qel::test::TemporaryFile motion("script-motion.txt", "0 0 0 20 0 0\n");
    const qel::test::TemporaryFile script(
        "session.txt", "key 0\nsize 200 100\nmotion " + motion.path().string() + "\npicture " +
                           picture.string() + "\ncamera " + camera.string() + "\nkey C\nkey Esc\nkey 1\n");
    const Ended ended = runViewer(L"--script " + quoted(script.path()) + L" --capture " + quoted(capture));
    ASSERT_EQ(ended.code, 0U) << ended.errors;
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(Picture::load(picture).width(), 200);
    EXPECT_EQ(contentOf(camera).rfind("eye ", 0), 0U);
    EXPECT_TRUE(qel::test::readBitmap(capture).has_value());
    for (const auto& file : {picture, camera, capture}) {
        std::filesystem::remove(file);
    }
}

TEST(QelView, RemembersNoFilesOfAScript) {
    const std::vector<std::string> before = qelview::readRecentFiles(qelview::kProgramKey);
    const qel::test::TemporaryFile points("forgotten.xyz", "0 0 0\n1 1 1\n");
    const qel::test::TemporaryFile script("forgetful.txt", "drop " + points.path().string() + "\n");
    const Ended ended =
        runViewer(L"--size 64x64 --script " + quoted(script.path()) + L" " + quoted(points.path()));
    EXPECT_EQ(ended.code, 0U) << ended.errors;
    EXPECT_EQ(qelview::readRecentFiles(qelview::kProgramKey), before);
}

TEST(QelView, RefusesAWrongRecordingWithExitCodeOne) {
    const qel::test::TemporaryFile motion("wrong-motion.txt", "0 0 0 0 0 0\n1 2 3\n");
    const Ended ended = runViewer(L"--size 64x64 --motion " + quoted(motion.path()));
    EXPECT_EQ(ended.code, 1U);
    EXPECT_NE(ended.errors.find("wrong-motion.txt: line 2: expected six numbers"), std::string::npos)
        << ended.errors;
}

struct FailingScript {
    const char* name;
    const char* script;
    DWORD code;
    const char* mentioned;
};

class QelViewFailingScripts : public testing::TestWithParam<FailingScript> {};

TEST_P(QelViewFailingScripts, EndWithTheirLineAndReason) {
    const qel::test::TemporaryFile script("failing.txt", GetParam().script);
    const Ended ended = runViewer(L"--size 64x64 --script " + quoted(script.path()));
    EXPECT_EQ(ended.code, GetParam().code);
    EXPECT_NE(ended.errors.find(GetParam().mentioned), std::string::npos) << ended.errors;
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, QelViewFailingScripts,
    testing::Values(FailingScript{"WrongLine", "key F\nkey F1\n", 1, "line 2: 'F1' is not a key"},
                    FailingScript{"PictureNotWritten", "picture absent-folder/a.png\n", 1, "line 1: "},
                    FailingScript{"RecordingRefused", "\nmotion absent.txt\n", 1, "line 2: "},
                    FailingScript{"DroppedFileRefused", "drop absent.obj\nkey F\n", 2,
                                  "absent.obj: the file does not exist"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
