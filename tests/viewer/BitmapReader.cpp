#include "BitmapReader.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

namespace qel::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kHeaderBytes = 54;
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kHeightAt = 22;
constexpr std::size_t kBitsAt = 28;
constexpr std::size_t kChannels = 3;
constexpr std::uint8_t kBitsOfAPixel = 24;
constexpr std::uint32_t kLargestSide = 1U << 15;

std::uint32_t wordAt(const Bytes& bytes, std::size_t place) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < sizeof word; ++i) {
        word |= static_cast<std::uint32_t>(bytes[place + i]) << (8 * i);
    }
    return word;
}

Bytes readAll(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

std::optional<qelview::PixelImage> readBitmap(const std::filesystem::path& file) {
    const Bytes bytes = readAll(file);
    if (bytes.size() < kHeaderBytes || bytes[0] != 'B' || bytes[1] != 'M' ||
        bytes[kBitsAt] != kBitsOfAPixel) {
        return std::nullopt;
    }
    const std::uint32_t width = wordAt(bytes, kWidthAt);
    const std::uint32_t height = wordAt(bytes, kHeightAt);
    if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide ||
        bytes.size() < kHeaderBytes + std::size_t{width} * height * kChannels) {
        return std::nullopt;
    }
    const std::size_t rowBytes = (std::size_t{width} * kChannels + 3) / 4 * 4;
    qelview::PixelImage image{static_cast<int>(width), static_cast<int>(height), {}};
    image.rgb.reserve(std::size_t{width} * height * kChannels);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t pixel = kHeaderBytes + y * rowBytes + x * kChannels;
            // Files store blue, green, red.
            for (std::size_t channel = kChannels; channel-- > 0;) {
                image.rgb.push_back(pixel + channel < bytes.size() ? bytes[pixel + channel]
                                                                   : std::uint8_t{0});
            }
        }
    }
    return image;
}

}  // namespace qel::test
