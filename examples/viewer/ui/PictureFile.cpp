#include "PictureFile.h"

#include <algorithm>
#include <fstream>
#include <system_error>

// The encoders are compiled only here.
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>

namespace qelview {

namespace {

constexpr auto kBytesOfAPixel = static_cast<int>(PixelImage::kChannels);

void append(void* context, void* data, int size) {
    auto& bytes = *static_cast<std::vector<char>*>(context);
    const char* const begin = static_cast<const char*>(data);
    bytes.insert(bytes.end(), begin, begin + size);
}

/// The content of a PNG file; empty for an image without its pixels.
std::vector<char> pngOf(const PixelImage& image) {
    const int bytesOfARow = image.width * kBytesOfAPixel;
    const auto size = static_cast<std::size_t>(bytesOfARow) * static_cast<std::size_t>(image.height);
    std::vector<char> bytes;
    if (image.width > 0 && image.height > 0 && image.rgb.size() == size) {
        // Trying each filter on each row takes most of the time and saves hardly a byte.
        constexpr int kDifferenceToTheLeft = 1;
        stbi_write_force_png_filter = kDifferenceToTheLeft;
        // The encoders take rows from top to bottom.
        stbi_flip_vertically_on_write(1);
        stbi_write_png_to_func(append, &bytes, image.width, image.height, kBytesOfAPixel, image.rgb.data(),
                               bytesOfARow);
    }
    return bytes;
}

bool hasPngEnding(const std::filesystem::path& file) {
    std::u8string ending = file.extension().u8string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](char8_t letter) {
        return letter >= u8'A' && letter <= u8'Z' ? static_cast<char8_t>(letter - u8'A' + u8'a') : letter;
    });
    return ending == u8".png";
}

CaptureEnd writeBytes(const std::filesystem::path& file, const std::vector<char>& bytes) {
    std::ofstream stream;
    if (!bytes.empty()) {
        stream.open(file, std::ios::binary | std::ios::trunc);
    }
    if (!stream.is_open()) {
        return CaptureEnd::NotWritten;
    }
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    return stream.good() ? CaptureEnd::Whole : CaptureEnd::NotWhole;
}

}  // namespace

std::vector<char> bitmapOf(const PixelImage& image) {
    std::vector<char> bytes;
    bytes.reserve(image.rgb.size());
    stbi_flip_vertically_on_write(1);
    stbi_write_bmp_to_func(append, &bytes, image.width, image.height, kBytesOfAPixel, image.rgb.data());
    return bytes;
}

bool writePng(const std::filesystem::path& file, const PixelImage& image) {
    return writeBytes(file, pngOf(image)) == CaptureEnd::Whole;
}

std::filesystem::path freeCaptureName(const std::filesystem::path& folder) {
    constexpr int kMost = 999;
    for (int number = 1; number <= kMost; ++number) {
        const std::string digits = std::to_string(number);
        std::filesystem::path file =
            folder / ("qelview-" + std::string(3 - digits.size(), '0') + digits + ".bmp");
        std::error_code error;
        if (!std::filesystem::exists(file, error) && !error) {
            return file;
        }
    }
    return {};
}

std::string reasonOf(CaptureEnd end) {
    switch (end) {
        case CaptureEnd::NotWhole:
            return "is not complete; make room on the disk and capture again";
        case CaptureEnd::TooLarge:
            return "is too large for the graphics driver; choose a smaller size with R";
        default:
            return "cannot be written; choose another folder or name";
    }
}

CaptureEnd writeCapture(const std::filesystem::path& file, const std::optional<PixelImage>& image) {
    if (!image) {
        return CaptureEnd::TooLarge;
    }
    return writeBytes(file, hasPngEnding(file) ? pngOf(*image) : bitmapOf(*image));
}

}  // namespace qelview
