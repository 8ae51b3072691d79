#include "BitmapFile.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <vector>

#include "PngFile.h"

namespace qelview {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kHeaderBytes = 54;
constexpr std::size_t kPixelsAt = 10;
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kHeightAt = 22;
constexpr std::size_t kBitsAt = 28;
constexpr std::uint8_t kBitsOfAPixel = 24;

std::uint32_t wordAt(const Bytes& bytes, std::size_t place) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < sizeof word; ++i) {
        word |= static_cast<std::uint32_t>(bytes[place + i]) << (8 * i);
    }
    return word;
}

}  // namespace

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
