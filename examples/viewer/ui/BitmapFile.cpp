#include "BitmapFile.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

namespace qelview {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kHeaderBytes = 54;
constexpr std::size_t kPixelsAt = 10;
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kHeightAt = 22;
constexpr std::size_t kBitsAt = 28;
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

std::optional<PixelImage> readBitmap(const std::filesystem::path& file) {
    const Bytes bytes = readAll(file);
    if (bytes.size() < kHeaderBytes || bytes[0] != 'B' || bytes[1] != 'M' ||
        bytes[kBitsAt] != kBitsOfAPixel) {
        return std::nullopt;
    }
    const std::uint32_t width = wordAt(bytes, kWidthAt);
    const std::uint32_t height = wordAt(bytes, kHeightAt);
    if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide ||
        bytes.size() < kHeaderBytes + std::size_t{width} * height * PixelImage::kChannels) {
        return std::nullopt;
    }
    const std::size_t rowBytes = (std::size_t{width} * PixelImage::kChannels + 3) / 4 * 4;
    PixelImage image{static_cast<int>(width), static_cast<int>(height), {}};
    image.rgb.reserve(std::size_t{width} * height * PixelImage::kChannels);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t pixel = kHeaderBytes + y * rowBytes + x * PixelImage::kChannels;
            // Files store blue, green, red.
            for (std::size_t channel = PixelImage::kChannels; channel-- > 0;) {
                image.rgb.push_back(pixel + channel < bytes.size() ? bytes[pixel + channel]
                                                                   : std::uint8_t{0});
            }
        }
    }
    return image;
}

bool isWholeBitmap(const std::filesystem::path& file, std::uint32_t width, std::uint32_t height) {
    const std::uintmax_t whole = kHeaderBytes + std::uintmax_t{width} * height * PixelImage::kChannels;
    std::error_code error;
    if (std::filesystem::file_size(file, error) != whole || error) {
        return false;
    }
    Bytes header(kHeaderBytes);
    std::ifstream stream(file, std::ios::binary);
    // A full disk may also leave a file of the right length without content.
    return stream.read(reinterpret_cast<char*>(header.data()), kHeaderBytes) && header[0] == 'B' &&
           header[1] == 'M' && wordAt(header, kPixelsAt) == kHeaderBytes &&
           wordAt(header, kWidthAt) == width && wordAt(header, kHeightAt) == height &&
           header[kBitsAt] == kBitsOfAPixel;
}

}  // namespace qelview
