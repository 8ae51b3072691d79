#include "display/CaptureFixture.h"

namespace qel::test {
namespace {

constexpr std::uint32_t kColumns = 64;
constexpr std::uint32_t kRows = 40;
constexpr std::uint64_t kPixelBytes = std::uint64_t{kColumns} * kRows * 3;

/// A write of the three (file header, bitmap header, pixels) that does not reach the disk. A disk that is
/// full lets a write succeed with fewer bytes than it was given; here with none.
struct ShortWrite {
    const char* name;
    int nth;
    std::int64_t answer;
    std::uint64_t bytesInTheFile;
};

class WriteFaults : public Capture, public ::testing::WithParamInterface<ShortWrite> {};

TEST_P(WriteFaults, LeaveAFileWithoutThoseBytesAndADisplayThatWritesTheNextOne) {
    const Census before = censusAfterFirstUse();
    const Picture picture = windowFrame();
    ASSERT_EQ(begin(kColumns, kRows), 0);
    drawHostsScene();
    {
        CallTrace trace;
        trace.answerError("WriteFile", GetParam().answer, ERROR_DISK_FULL, GetParam().nth);
        EXPECT_EQ(display->saveBitmap(), 0);
        EXPECT_EQ(trace.count("CreateFileW"), 1U);
        EXPECT_EQ(trace.count("WriteFile"), 3U);
        EXPECT_EQ(trace.count("CloseHandle"), 1U);
    }
    EXPECT_EQ(file.size(), GetParam().bytesInTheFile);
    // The capture is over: the window is current again, and nothing is left to be saved.
    EXPECT_EQ(currentContext(), context);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_EQ(file.size(), GetParam().bytesInTheFile);
    EXPECT_TRUE(windowFrame() == picture);
    EXPECT_EQ(Census::now(), before);

    ASSERT_EQ(begin(kColumns, kRows), 0);
    drawHostsScene();
    display->saveBitmap();
    EXPECT_EQ(file.size(), kBitmapHeader + kPixelBytes);
}

INSTANTIATE_TEST_SUITE_P(Of, WriteFaults,
                         ::testing::Values(ShortWrite{"TheFileHeaderThatFails", 1, FALSE, 40 + kPixelBytes},
                                           ShortWrite{"TheBitmapHeaderThatFails", 2, FALSE, 14 + kPixelBytes},
                                           ShortWrite{"ThePixelsThatFail", 3, FALSE, kBitmapHeader},
                                           ShortWrite{"TheFileHeaderToAFullDisk", 1, TRUE, 40 + kPixelBytes},
                                           ShortWrite{"TheBitmapHeaderToAFullDisk", 2, TRUE,
                                                      14 + kPixelBytes},
                                           ShortWrite{"ThePixelsToAFullDisk", 3, TRUE, kBitmapHeader},
                                           ShortWrite{"EverythingToAFullDisk", 0, TRUE, 0}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qel::test
