#include <chrono>
#include <cstdio>

#include "CaptureFixture.h"
#include "kit/GuardedHeap.h"
#include "kit/LongRun.h"

namespace qel::test {
namespace {

using ScreenCaptureFile = Capture;

/// Gives every pixel of the bitmap a colour of its own and answers the rows, padded as GDI pads them.
std::vector<std::uint8_t> paintPixels(std::uint32_t width, std::uint32_t height) {
    std::vector<std::uint8_t> rows(paddedRow(width) * height);
    glEnable(GL_SCISSOR_TEST);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            const auto red = static_cast<std::uint8_t>(10 + x * 13);
            const auto green = static_cast<std::uint8_t>(20 + y * 40);
            const auto blue = static_cast<std::uint8_t>(255 - x * 7 - y * 3);
            glScissor(static_cast<GLint>(x), static_cast<GLint>(y), 1, 1);
            glClearColor(red / 255.0F, green / 255.0F, blue / 255.0F, 1);
            glClear(GL_COLOR_BUFFER_BIT);
            std::uint8_t* const pixel = rows.data() + y * paddedRow(width) + x * 3;
            pixel[0] = blue;
            pixel[1] = green;
            pixel[2] = red;
        }
    }
    glDisable(GL_SCISSOR_TEST);
    return rows;
}

/// The headers of a file, written out byte for byte.
std::vector<std::uint8_t> headersOf(std::uint32_t width, std::uint32_t height) {
    std::vector<std::uint8_t> bytes;
    const auto add = [&bytes](std::uint32_t value, int count) {
        for (int byte = 0; byte < count; ++byte) {
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * byte)));
        }
    };
    add(0x4D42, 2);
    add(width * height * 3 + 54, 4);
    add(0, 2);
    add(0, 2);
    add(54, 4);
    add(40, 4);
    add(width, 4);
    add(height, 4);
    add(1, 2);
    add(24, 2);
    for (int field = 0; field < 6; ++field) {
        add(0, 4);
    }
    return bytes;
}

TEST_F(ScreenCaptureFile, HoldHeadersAndTheRowsOfGdiCutAtThreeBytesAPixelForEverySmallSize) {
    // Rows are padded by none to three bytes: every day each padding twice.
    const std::uint32_t mostColumns = shortOrLong(8U, 17U);
    const std::uint32_t mostRows = shortOrLong(3U, 5U);
    for (const BlockEnd end : {BlockEnd::kAligned, BlockEnd::kExact}) {
        const std::size_t damagedBefore = GuardedHeap::damagedBlocks();
        const GuardedHeap heap(end);
        for (std::uint32_t width = 1; width <= mostColumns; ++width) {
            for (std::uint32_t height = 1; height <= mostRows; ++height) {
                SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
                std::vector<std::uint8_t> expected = headersOf(width, height);
                EXPECT_FALSE(faultsIn([&] {
                    ASSERT_EQ(begin(width, height), 0);
                    const std::vector<std::uint8_t> rows = paintPixels(width, height);
                    expected.insert(expected.end(), rows.begin(), rows.begin() + width * height * 3);
                    EXPECT_EQ(display->saveBitmap(), 0);
                }));
                EXPECT_EQ(file.bytes(), expected);
            }
        }
        EXPECT_GE(heap.servedBlocks(), std::size_t{mostColumns} * mostRows);
        EXPECT_EQ(heap.unguardedBlocks(), 0U);
        EXPECT_EQ(GuardedHeap::damagedBlocks(), damagedBefore);
    }
}

TEST_F(ScreenCaptureFile, OfAHundredByFiftyPixelsHave15054BytesAndTheirPixelsAtByte54) {
    ASSERT_EQ(begin(100, 50), 0);
    EXPECT_EQ(display->saveBitmap(), 0);
    const std::vector<std::uint8_t> bytes = file.bytes();
    EXPECT_EQ(bytes.size(), 15054U);
    EXPECT_EQ(numberAt<std::uint32_t>(bytes, 2), 15054U);
    EXPECT_EQ(numberAt<std::uint32_t>(bytes, 10), 54U);
}

TEST_F(ScreenCaptureFile, ReplaceAnOlderAndLongerFile) {
    ASSERT_EQ(begin(64, 64), 0);
    display->saveBitmap();
    ASSERT_EQ(begin(4, 4), 0);
    display->saveBitmap();
    EXPECT_EQ(file.size(), 54U + 4 * 4 * 3);
}

TEST_F(ScreenCaptureFile, MayHaveNamesOfAnyLanguage) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / L"Aufriß \u5e73\u9762 \u03b1.bmp";
    std::filesystem::remove(path);
    Enve2d extent = wholeView();
    ASSERT_EQ(display->beginCapture(8, 8, &extent, QString::fromStdWString(path.wstring())), 0);
    display->saveBitmap();
    EXPECT_EQ(std::filesystem::file_size(path), 54U + 8 * 8 * 3);
    std::filesystem::remove(path);
}

/// Draws a square of three pixels into a corner of the bitmap.
void markCorner(int x, int y) {
    glEnable(GL_SCISSOR_TEST);
    glScissor(x, y, 3, 3);
    glClearColor(0.2F, 0.4F, 0.6F, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
}

TEST_F(ScreenCaptureFile, OfMorePixelsThanTheWindowAreDrawnToTheirLastCorner) {
    display->setBackColor({1, 1, 1});
    ASSERT_EQ(begin(1600, 1200), 0);
    for (const auto& [x, y] : {std::pair{0, 0}, {1597, 0}, {0, 1197}, {1597, 1197}}) {
        markCorner(x, y);
    }
    display->saveBitmap();
    const Picture picture = pictureOf(file);
    constexpr Rgba kMark{51, 102, 153, 255};
    EXPECT_EQ(picture.countOf(kMark), 36U);
    EXPECT_EQ(picture.countOf({255, 255, 255, 255}), 1600U * 1200U - 36U);
    EXPECT_EQ(picture.at(1599, 1199), kMark);
    EXPECT_EQ(picture.at(0, 0), kMark);
}

TEST_F(ScreenCaptureFile, OfAWallOfScreensAreExactToTheByteAndReadyInSeconds) {
    using Clock = std::chrono::steady_clock;
    constexpr std::uint32_t kSide = 8192;
    // Some three seconds on two quiet cores; a busy machine may take its time, but not for ever.
    constexpr double kMostSeconds = 30.0;
    const Clock::time_point begun = Clock::now();
    ASSERT_EQ(begin(kSide, kSide), 0);
    markCorner(kSide - 3, kSide - 3);
    EXPECT_EQ(display->saveBitmap(), 0);
    const double seconds = std::chrono::duration<double>(Clock::now() - begun).count();
    std::printf("             8192 x 8192 pixels in %.1f s\n", seconds);

    ASSERT_EQ(file.size(), std::uint64_t{kSide} * kSide * 3 + 54);
    EXPECT_LT(seconds, kMostSeconds);
    EXPECT_EQ(file.bytes(0, kBitmapHeader), headersOf(kSide, kSide));
    EXPECT_EQ(file.bytes(file.size() - 3, 3), (std::vector<std::uint8_t>{153, 102, 51}));
}

}  // namespace
}  // namespace qel::test
