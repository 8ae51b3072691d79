#include "BitmapFile.h"

#include <gtest/gtest.h>

#include <string>

#include "viewer/ViewerData.h"

namespace {

constexpr std::uint32_t kWidth = 4;
constexpr std::uint32_t kHeight = 3;

/// A bitmap file of 24 bits, as the display writes it.
std::string bitmap() {
    std::string bytes(54 + kWidth * kHeight * 3, '\0');
    bytes[0] = 'B';
    bytes[1] = 'M';
    bytes[10] = 54;
    bytes[14] = 40;
    bytes[18] = static_cast<char>(kWidth);
    bytes[22] = static_cast<char>(kHeight);
    bytes[26] = 1;
    bytes[28] = 24;
    return bytes;
}

bool isWhole(const std::string& bytes) {
    const qel::test::TemporaryFile file("whole.bmp", bytes);
    return qelview::isWholeBitmap(file.path(), kWidth, kHeight);
}

std::string changed(std::size_t place, char byte) {
    std::string bytes = bitmap();
    bytes.at(place) = byte;
    return bytes;
}

struct BitmapCase {
    const char* name;
    std::string bytes;
    bool isWhole;
};

class BitmapFileForms : public testing::TestWithParam<BitmapCase> {};

TEST_P(BitmapFileForms, AreWholeWithTheirHeaderAndTheirLength) {
    EXPECT_EQ(isWhole(GetParam().bytes), GetParam().isWhole);
}

INSTANTIATE_TEST_SUITE_P(Files, BitmapFileForms,
                         testing::Values(BitmapCase{"Whole", bitmap(), true}, BitmapCase{"Empty", "", false},
                                         BitmapCase{"HeaderOnly", bitmap().substr(0, 54), false},
                                         BitmapCase{"CutByAByte", bitmap().substr(0, bitmap().size() - 1),
                                                    false},
                                         BitmapCase{"TooLong", bitmap() + "x", false},
                                         BitmapCase{"Zeros", std::string(bitmap().size(), '\0'), false},
                                         BitmapCase{"NotABitmap", changed(1, 'X'), false},
                                         BitmapCase{"OtherWidth", changed(18, 5), false},
                                         BitmapCase{"OtherHeight", changed(22, 2), false},
                                         BitmapCase{"OtherPixels", changed(28, 32), false},
                                         BitmapCase{"OtherBeginOfPixels", changed(10, 0), false}),
                         [](const auto& each) { return each.param.name; });

TEST(BitmapFile, IsNotWholeWithoutAFile) {
    EXPECT_FALSE(qelview::isWholeBitmap("absent.bmp", kWidth, kHeight));
}

}  // namespace
