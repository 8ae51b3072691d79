#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <thread>

#include "CoordinateText.h"
#include "LoadTask.h"
#include "PictureFile.h"
#include "TileSheet.h"
#include "viewer/BitmapReader.h"
#include "viewer/ViewerData.h"

/// Texts and files that the viewer makes.

namespace {

TEST(ViewerTextsCoordinates, AddsTheOriginAndKeepsTheDigitsThatMatter) {
    const qel::XPnt3d point(1.25, -2.0, 0.0);
    const qel::XPnt3d origin(500000.0, 4000000.0, 100.0);
    EXPECT_EQ(qelview::coordinateText(point, origin, 100.0), "x 500001.25  y 3999998.00  z 100.00");
    EXPECT_EQ(qelview::coordinateText(point, {}, 10000.0), "x 1  y -2  z 0");
    EXPECT_EQ(qelview::coordinateText(point, {}, 1.0), "x 1.2500  y -2.0000  z 0.0000");
    EXPECT_EQ(qelview::coordinateText({1, 2, 3}, {}, 0.0), "x 1  y 2  z 3");
}

TEST(ViewerTextsCamera, TellsAnyTwoNumbersApart) {
    const double next = 0.1 + 0.2;
    const std::string text = qelview::cameraText({next, 0.3, -1e-300}, {1, 2, 3}, {0, 0, 1});
    EXPECT_EQ(text, "eye 0.30000000000000004 0.3 -1e-300\ntarget 1 2 3\nup 0 0 1\n");
}

class ViewerTextsFreeCaptureName : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }
    void take(const char* name) const { std::ofstream(folder / name) << "taken"; }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / "qelview-test-captures";
};

TEST_F(ViewerTextsFreeCaptureName, IsTheFirstThatNoFileHas) {
    EXPECT_EQ(qelview::freeCaptureName(folder).filename(), "qelview-001.bmp");
    take("qelview-001.bmp");
    take("qelview-003.bmp");
    EXPECT_EQ(qelview::freeCaptureName(folder).filename(), "qelview-002.bmp");
    take("qelview-002.bmp");
    EXPECT_EQ(qelview::freeCaptureName(folder).filename(), "qelview-004.bmp");
}

/// A bitmap of 24 bits with rows of three bytes a pixel, padded to four, cut at width x height x 3 bytes.
std::string bitmapOf(std::uint8_t width, std::uint8_t height, const std::string& rows) {
    std::string header(54, '\0');
    header[0] = 'B';
    header[1] = 'M';
    header[10] = 54;
    header[14] = 40;
    header[18] = static_cast<char>(width);
    header[22] = static_cast<char>(height);
    header[26] = 1;
    header[28] = 24;
    return header + rows;
}

TEST(ViewerTextsReadBitmap, TurnsColoursRoundAndSkipsThePadding) {
    // Two rows of one pixel: four bytes the first, two of the second with its padding cut.
    const qel::test::TemporaryFile file("odd.bmp",
                                        bitmapOf(1, 2, std::string("\x01\x02\x03\x00\x04\x05", 6)));
    const auto image = qel::test::readBitmap(file.path());
    ASSERT_TRUE(image.has_value());
    EXPECT_EQ(image->width, 1);
    EXPECT_EQ(image->height, 2);
    EXPECT_EQ(image->rgb, (std::vector<std::uint8_t>{3, 2, 1, 0, 5, 4}));
}

TEST(ViewerTextsReadBitmap, RefusesOtherFiles) {
    std::string deep = bitmapOf(1, 1, "abc");
    deep[28] = 32;
    std::string endless = bitmapOf(1, 1, "abc");
    endless[21] = 0x7F;
    for (const std::string& content :
         {std::string("BM"), bitmapOf(2, 2, "abc"), bitmapOf(0, 1, "abc"), deep, endless}) {
        const qel::test::TemporaryFile file("refused.bmp", content);
        EXPECT_FALSE(qel::test::readBitmap(file.path()).has_value()) << content.size();
    }
    EXPECT_FALSE(qel::test::readBitmap("absent.bmp").has_value());
}

TEST(ViewerTextsReadBitmap, ReadsSidesOfUpToThirtyTwoThousandPixels) {
    const auto isRead = [](std::size_t width) {
        std::string bytes = bitmapOf(0, 1, std::string(3 * width, '\x7F'));
        bytes[18] = static_cast<char>(width % 256);
        bytes[19] = static_cast<char>(width / 256);
        const qel::test::TemporaryFile file("wide.bmp", bytes);
        return qel::test::readBitmap(file.path()).has_value();
    };
    EXPECT_TRUE(isRead(32768));
    EXPECT_FALSE(isRead(32769));
}

TEST(ViewerTextsTileSheet, FillsPlacesFromTheUpperLeftAndCutsWhatIsLargerThanATile) {
    const auto shaded = [](int side, std::uint8_t shade) {
        const auto bytes = static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 3;
        return qelview::PixelImage{side, side, std::vector<std::uint8_t>(bytes, shade)};
    };
    const qelview::PixelImage first = shaded(1, 10);
    const qelview::PixelImage second = shaded(2, 20);
    const qelview::PixelImage third = shaded(3, 30);
    const qelview::PixelImage fourth = shaded(1, 40);
    const qelview::PixelImage image = qelview::sheetOf({&first, &second, &third, &fourth}, 1, 1);
    ASSERT_EQ(image.width, 14);
    ASSERT_EQ(image.height, 14);
    const auto shadeAt = [&image](std::size_t x, std::size_t y) { return image.rgb[(y * 14 + x) * 3]; };
    EXPECT_EQ(shadeAt(4, 9), 10);
    EXPECT_EQ(shadeAt(9, 9), 20);
    EXPECT_EQ(shadeAt(4, 4), 30);
    EXPECT_EQ(shadeAt(9, 4), 40);
    // Grey between the tiles and around them.
    EXPECT_EQ(shadeAt(0, 0), 92);
    EXPECT_EQ(shadeAt(8, 9), 92);
    EXPECT_EQ(std::count(image.rgb.begin(), image.rgb.end(), 92), (14 * 14 - 4) * 3);
}

TEST(ViewerTextsLoadTask, EndsWorkThatIsCancelled) {
    qelview::LoadTask task([](qelview::Progress& progress, qelview::Stopwatch&) -> qelview::Scene {
        for (;;) {
            progress.report(0.5);
            std::this_thread::yield();
        }
    });
    task.cancel();
    EXPECT_THROW(static_cast<void>(task.takeScene()), qelview::ReadCancelled);
}

}  // namespace
