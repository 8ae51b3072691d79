#include "Deflate.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "PngFile.h"
#include "ReadImage.h"
#include "viewer/ViewerData.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using qelview::PixelImage;

/// The image that a picture file holds; the decoder is another one than the encoder.
qelview::TextureImage writtenAndRead(const PixelImage& image) {
    const qel::test::TemporaryFile file("written.png", "");
    EXPECT_TRUE(qelview::writePng(file.path(), image));
    std::ifstream stream(file.path(), std::ios::binary);
    return qelview::readImage(std::string(std::istreambuf_iterator<char>(stream), {}));
}

struct Pattern {
    const char* name;
    int width;
    int height;
    /// Of each byte.
    std::uint8_t (*byteAt)(std::size_t place, std::minstd_rand& random);
};

class DeflatePatterns : public testing::TestWithParam<Pattern> {};

TEST_P(DeflatePatterns, AreReadBackAsTheyWere) {
    const Pattern& pattern = GetParam();
    PixelImage image{pattern.width, pattern.height, {}};
    std::minstd_rand random;
    for (std::size_t i = 0; i < static_cast<std::size_t>(image.width * image.height) * 3; ++i) {
        image.rgb.push_back(pattern.byteAt(i, random));
    }
    const qelview::TextureImage read = writtenAndRead(image);
    ASSERT_EQ(read.width, image.width);
    ASSERT_EQ(read.height, image.height);
    ASSERT_EQ(read.channels, 3);
    const auto rowBytes = static_cast<std::ptrdiff_t>(image.width) * 3;
    for (int row = 0; row < image.height; ++row) {
        // Rows of files go downwards.
        const auto from = image.rgb.begin() + (image.height - 1 - row) * rowBytes;
        ASSERT_TRUE(std::equal(from, from + rowBytes, read.pixels.begin() + row * rowBytes)) << row;
    }
}

std::uint8_t low(std::size_t number) {
    return static_cast<std::uint8_t>(number % 256);
}

const std::vector<Pattern> kPatterns{
    {"OnePixel", 1, 1, [](std::size_t place, std::minstd_rand&) { return low(200 + place); }},
    {"Black", 300, 200, [](std::size_t, std::minstd_rand&) { return low(0); }},
    {"Noise", 97, 201, [](std::size_t, std::minstd_rand& random) { return low(random() >> 8U); }},
    {"Gradient", 256, 100, [](std::size_t place, std::minstd_rand&) { return low(place / 3 / 7); }},
    // Repeats of all lengths, from all distances up to more than the window.
    {"Repeats", 400, 200,
     [](std::size_t place, std::minstd_rand&) { return low(place % 40'009 * (place % 40'009) / 97); }},
    {"NoiseAmongRuns", 311, 150,
     [](std::size_t place, std::minstd_rand& random) {
         return low(place / 61 % 3 == 0 ? random() >> 8U : 7);
     }},
};
INSTANTIATE_TEST_SUITE_P(Pictures, DeflatePatterns, testing::ValuesIn(kPatterns),
                         [](const auto& each) { return each.param.name; });

TEST(Deflate, EndsWithTheChecksumOfTheBytes) {
    Bytes bytes;
    for (std::size_t i = 0; i < 200'000; ++i) {
        bytes.push_back(low(255 - i / 1000));
    }
    std::uint64_t sum = 1;
    std::uint64_t sumOfSums = 0;
    for (const std::uint8_t byte : bytes) {
        sum = (sum + byte) % 65521;
        sumOfSums = (sumOfSums + sum) % 65521;
    }
    const Bytes stream = qelview::deflated(bytes);
    // The first two bytes, as one number, are a multiple of 31.
    EXPECT_EQ(stream.at(0) % 16, 8);
    EXPECT_EQ((stream[0] * 256 + stream[1]) % 31, 0);
    const Bytes checksum(stream.end() - 4, stream.end());
    EXPECT_EQ(checksum, (Bytes{low(sumOfSums / 256), low(sumOfSums), low(sum / 256), low(sum)}));
}

TEST(Deflate, MakesRunsShort) {
    // 258 equal bytes take a length and a distance: 13 bits.
    EXPECT_LT(qelview::deflated(Bytes(258'000, 9)).size(), 1000U * 13 / 8 + 100);
    EXPECT_LE(qelview::deflated({}).size(), 9U);
}

}  // namespace
