#include <cstring>

#include "OpenViewerWindows.h"
#include "Options.h"
#include "kit/CallTrace.h"
#include "viewer/BitmapReader.h"

/// Pictures of the view for files and for the clipboard.

namespace {

using qel::test::OpenViewer;
using qel::test::Picture;

class ViewerCapture : public OpenViewer {
  protected:
    void TearDown() override {
        OpenViewer::TearDown();
        std::error_code error;
        std::filesystem::remove(png, error);
        std::filesystem::remove(bmp, error);
    }
    Picture capturedPng() {
        EXPECT_TRUE(viewer->capture(png));
        return Picture::load(png);
    }

    std::filesystem::path png = std::filesystem::temp_directory_path() / "qelview-test-capture.PNG";
    std::filesystem::path bmp = std::filesystem::temp_directory_path() / "qelview-test-capture.bmp";
};

TEST_F(ViewerCapture, IsAPngFileIfItsNameEndsSo) {
    ASSERT_TRUE(viewer->capture(bmp));
    const auto bitmap = qel::test::readBitmap(bmp);
    ASSERT_TRUE(bitmap.has_value());
    EXPECT_EQ(capturedPng(), qel::test::pictureOf(*bitmap));
    EXPECT_EQ(stage().annotations().notice, "Captured qelview-test-capture.PNG");
}

TEST_F(ViewerCapture, KeepsEveryColumnInAPngFile) {
    play("size 323 201");
    const Picture picture = capturedPng();
    EXPECT_EQ(picture.width(), 323);
    EXPECT_EQ(picture.height(), 201);
}

TEST_F(ViewerCapture, IsOnceTwiceOrFourTimesAsLargeWithEverythingInProportion) {
    const Picture once = capturedPng();
    play("key R");
    EXPECT_EQ(stage().annotations().notice, "Captures have 640 x 480 pixels");
    const Picture twice = capturedPng();
    ASSERT_EQ(twice.width(), 2 * kWidth);
    ASSERT_EQ(twice.height(), 2 * kHeight);
    play("key R");
    const Picture fourTimes = capturedPng();
    ASSERT_EQ(fourTimes.width(), 4 * kWidth);
    // The heading: four times the pixels for twice the size, give or take the rounding of letters.
    const auto inked = [](const Picture& picture, int times) {
        const auto bright =
            picture.countOf({242, 245, 250, 255}, 40, {0, 210 * times, 160 * times, 30 * times});
        return static_cast<double>(bright);
    };
    ASSERT_GT(inked(once, 1), 100.0);
    EXPECT_NEAR(inked(twice, 2) / inked(once, 1), 4.0, 2.0);
    EXPECT_NEAR(inked(fourTimes, 4) / inked(twice, 2), 4.0, 1.0);
    // The model is at the same place.
    std::size_t alike = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            alike += qel::test::difference(once.at(x, y), fourTimes.at(4 * x + 2, 4 * y + 2)) < 40 ? 1U : 0U;
        }
    }
    EXPECT_GT(alike, std::size_t{kWidth} * kHeight * 85 / 100);
    play("key R");
    EXPECT_EQ(capturedPng(), once);
}

struct Detail {
    const char* name;
    qel::test::Rgba colour;
    /// Where it is at once the size, from the lower left.
    qel::test::PixelArea area;
};

TEST_F(ViewerCapture, EnlargesMarksLegendAndTripodInProportion) {
    constexpr Detail kDetails[] = {{"cross", {255, 217, 64, 255}, {159, 79, 22, 22}},
                                   {"legend", {61, 184, 135, 255}, {14, 98, 24, 32}},
                                   {"tripod", {0, 0, 255, 255}, {260, 180, 60, 60}}};
    play("key E\ndown left 170 149\nup left 170 149");
    for (const char* const projection : {"perspective", "orthographic"}) {
        const Picture once = capturedPng();
        play("key R\nkey R");
        const Picture fourTimes = capturedPng();
        play("key R\nkey O");
        for (const auto& [name, colour, area] : kDetails) {
            const std::size_t before = once.countOf(colour, 40, area);
            const std::size_t after =
                fourTimes.countOf(colour, 40, {4 * area.x, 4 * area.y, 4 * area.width, 4 * area.height});
            EXPECT_GT(before, 8U) << name << ", " << projection;
            // Enlarged letters are of a font with other strokes.
            EXPECT_NEAR(static_cast<double>(after) / static_cast<double>(before), 16.0, 8.0)
                << name << ", " << projection;
        }
    }
}

TEST_F(ViewerCapture, SaysWhenThePictureIsTooLargeForTheDriver) {
    qel::test::CallTrace trace;
    trace.answer("CreateDIBSection", 0);
    EXPECT_FALSE(viewer->capture(png));
    EXPECT_EQ(stage().annotations().notice,
              "The capture qelview-test-capture.PNG is too large for the graphics driver; choose a smaller "
              "size with R");
    EXPECT_FALSE(std::filesystem::exists(png));
    play("key Ctrl+Shift+C");
    EXPECT_EQ(stage().annotations().notice,
              "The picture is too large for the graphics driver; choose a smaller size with R");
}

TEST_F(ViewerCapture, IsReportedWhenItsFileCannotBeWritten) {
    EXPECT_FALSE(viewer->capture("absent/a.png"));
    EXPECT_EQ(stage().annotations().notice,
              "The capture a.png cannot be written; choose another folder or name");
}

TEST_F(ViewerCapture, GoesToTheClipboardAsOtherProgramsTakeIt) {
    play("size 321 200");
    const Picture picture = capturedPng();
    play("key Ctrl+Shift+C");
    EXPECT_EQ(stage().annotations().notice, "View copied");
    ASSERT_NE(OpenClipboard(viewer->handle()), FALSE);
    HANDLE const memory = GetClipboardData(CF_DIB);
    ASSERT_NE(memory, nullptr);
    const auto* const bytes = static_cast<const std::uint8_t*>(GlobalLock(memory));
    BITMAPINFOHEADER header{};
    std::memcpy(&header, bytes, sizeof header);
    EXPECT_EQ(header.biWidth, 321);
    EXPECT_EQ(header.biHeight, 200);
    EXPECT_EQ(header.biBitCount, 24);
    const std::uint8_t* const pixel = bytes + sizeof header + std::size_t{100} * 964 + std::size_t{160} * 3;
    EXPECT_EQ((qel::test::Rgba{pixel[2], pixel[1], pixel[0], 255}), picture.at(160, 100));
    GlobalUnlock(memory);
    CloseClipboard();
}

TEST(ViewerCaptureOptions, NameTheSize) {
    const auto parsed = qelview::parseOptions({"--capture", "a.png", "--capture-size", "4"});
    ASSERT_TRUE(std::holds_alternative<qelview::Options>(parsed));
    EXPECT_EQ(std::get<qelview::Options>(parsed).captureTimes, 4);
    EXPECT_TRUE(std::holds_alternative<qelview::Ending>(qelview::parseOptions({"--capture-size", "3"})));
}

}  // namespace
