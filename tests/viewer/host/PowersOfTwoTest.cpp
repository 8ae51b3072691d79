#include "PowersOfTwo.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using qelview::nearestPowerOfTwo;
using qelview::scaledImage;
using qelview::TextureImage;

TEST(PowersOfTwoNearestPowerOfTwo, IsTheNearerOneUpToTheLargest) {
    struct Size {
        int size;
        int nearest;
    };
    for (const Size& each :
         {Size{1, 1}, Size{2, 2}, Size{3, 4}, Size{5, 4}, Size{6, 8}, Size{37, 32}, Size{47, 32},
          Size{48, 64}, Size{64, 64}, Size{700, 512}, Size{1000, 1024}, Size{5000, 1024}}) {
        EXPECT_EQ(nearestPowerOfTwo(each.size, 1024), each.nearest) << each.size;
    }
}

TEST(PowersOfTwoScaledImage, HasTheMeanOfWhatEachPixelCovers) {
    const TextureImage image{3, 1, 3, {0, 0, 0, 90, 30, 0, 240, 0, 255}};
    // The first covers all of the first pixel and half of the next one.
    EXPECT_EQ(scaledImage(image, 2, 1).pixels, (std::vector<std::uint8_t>{30, 10, 0, 190, 10, 170}));
    EXPECT_EQ(scaledImage(image, 1, 1).pixels, (std::vector<std::uint8_t>{110, 10, 85}));
}

TEST(PowersOfTwoScaledImage, KeepsColoursWhenItGrowsInEitherDirection) {
    const TextureImage image{1, 3, 4, {10, 20, 30, 40, 50, 60, 70, 80, 255, 255, 255, 255}};
    const TextureImage scaled = scaledImage(image, 2, 4);
    ASSERT_EQ(scaled.width, 2);
    ASSERT_EQ(scaled.height, 4);
    ASSERT_EQ(scaled.pixels.size(), 32U);
    EXPECT_EQ(scaled.pixel(1, 0)[3], 40);
    // A third of the first row and two thirds of the next one.
    EXPECT_EQ(scaled.pixel(0, 1)[0], 37);
    EXPECT_EQ(scaled.pixel(0, 3)[2], 255);
}

}  // namespace
