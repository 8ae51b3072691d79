#include "PngFile.h"

#include <cstddef>
#include <fstream>

// The encoder is compiled only here.
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>

namespace qelview {

namespace {

void append(void* context, void* data, int size) {
    auto& bytes = *static_cast<std::vector<char>*>(context);
    const char* const begin = static_cast<const char*>(data);
    bytes.insert(bytes.end(), begin, begin + size);
}

}  // namespace

bool writePng(const std::filesystem::path& file, const PixelImage& image) {
    constexpr auto kBytesOfAPixel = static_cast<int>(PixelImage::kChannels);
    const int bytesOfARow = image.width * kBytesOfAPixel;
    const auto size = static_cast<std::size_t>(bytesOfARow) * static_cast<std::size_t>(image.height);
    if (image.width <= 0 || image.height <= 0 || image.rgb.size() != size) {
        return false;
    }
    // Trying each filter on each row takes most of the time and saves hardly a byte.
    constexpr int kDifferenceToTheLeft = 1;
    stbi_write_force_png_filter = kDifferenceToTheLeft;
    // PNG rows go from top to bottom: a negative step from the last row flips the image.
    const std::uint8_t* const highestRow = image.rgb.data() + size - static_cast<std::size_t>(bytesOfARow);
    std::vector<char> bytes;
    if (stbi_write_png_to_func(append, &bytes, image.width, image.height, kBytesOfAPixel, highestRow,
                               -bytesOfARow) == 0) {
        return false;
    }
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    return stream.good();
}

}  // namespace qelview
