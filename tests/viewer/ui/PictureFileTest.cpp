#include "PictureFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "kit/Picture.h"
#include "viewer/BitmapReader.h"
#include "viewer/ViewerData.h"

namespace {

using qelview::CaptureEnd;
using qelview::PixelImage;

/// Three pixels wide, so that a row of a BMP file ends with padding; the lower row is the first.
const PixelImage kPixels{3, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}};

TEST(PictureFileBitmap, HasItsHeaderAndPaddedRowsOfBlueGreenAndRedFromBelow) {
    using namespace std::string_literals;
    const std::vector<char> bytes = qelview::bitmapOf(kPixels);
    const std::string file = "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0"s;
    const std::string header = "\x28\0\0\0\x03\0\0\0\x02\0\0\0\x01\0\x18\0"s + std::string(24, '\0');
    const std::string rows =
        "\x03\x02\x01\x06\x05\x04\x09\x08\x07\0\0\0\x0C\x0B\x0A\x0F\x0E\x0D\x12\x11\x10\0\0\0"s;
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), file + header + rows);
}

TEST(PictureFileCapture, IsABmpFileUnlessItsNameEndsAsThatOfAPngFile) {
    const qel::test::TemporaryFile bmp("capture.bmp",
                                       "what was there before, and more of it than the picture");
    const qel::test::TemporaryFile png("capture.PNG", "");
    EXPECT_EQ(qelview::writeCapture(bmp.path(), kPixels), CaptureEnd::Whole);
    EXPECT_EQ(qelview::writeCapture(png.path(), kPixels), CaptureEnd::Whole);
    const auto bitmap = qel::test::readBitmap(bmp.path());
    ASSERT_TRUE(bitmap.has_value());
    EXPECT_EQ(bitmap->rgb, kPixels.rgb);
    EXPECT_EQ(std::filesystem::file_size(bmp.path()), 78U);
    EXPECT_EQ(qel::test::Picture::load(png.path()).at(2, 1), (qel::test::Rgba{16, 17, 18, 255}));
}

TEST(PictureFileCapture, SaysWhyThereIsNone) {
    EXPECT_EQ(qelview::writeCapture("", kPixels), CaptureEnd::NotWritten);
    EXPECT_EQ(qelview::writeCapture("absent-folder/a.bmp", kPixels), CaptureEnd::NotWritten);
    EXPECT_EQ(qelview::writeCapture(std::filesystem::temp_directory_path(), kPixels), CaptureEnd::NotWritten);
    EXPECT_EQ(qelview::writeCapture("never.bmp", std::nullopt), CaptureEnd::TooLarge);
    EXPECT_FALSE(std::filesystem::exists("never.bmp"));
}

TEST(PictureFileCapture, TellsTheUserWhatToDoAboutEachFailure) {
    EXPECT_EQ(qelview::reasonOf(CaptureEnd::NotWritten), "cannot be written; choose another folder or name");
    EXPECT_EQ(qelview::reasonOf(CaptureEnd::NotWhole),
              "is not complete; make room on the disk and capture again");
    EXPECT_EQ(qelview::reasonOf(CaptureEnd::TooLarge),
              "is too large for the graphics driver; choose a smaller size with R");
}

#if defined(__linux__)
TEST(PictureFileCapture, IsNotWholeOnAFullDisk) {
    EXPECT_EQ(qelview::writeCapture("/dev/full", kPixels), CaptureEnd::NotWhole);
}
#endif

}  // namespace
