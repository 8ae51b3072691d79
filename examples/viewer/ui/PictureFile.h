#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qelview {

/// Pixels in OpenGL's order: rows from bottom to top, red, green and blue, without padding.
struct PixelImage {
    static constexpr std::size_t kChannels = 3;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
};

/// The content of a BMP file of 24 bits, every row padded to words.
[[nodiscard]] std::vector<char> bitmapOf(const PixelImage& image);

/// Writes a picture, replacing an existing file. Returns false if that fails.
[[nodiscard]] bool writePng(const std::filesystem::path& file, const PixelImage& image);

/// The first unused name of qelview-001.bmp, qelview-002.bmp, ... in a folder.
/// @return empty if all up to 999 are used.
[[nodiscard]] std::filesystem::path freeCaptureName(const std::filesystem::path& folder);

/// How a capture ended.
enum class CaptureEnd : std::uint8_t {
    /// The file is complete.
    Whole,
    /// The file cannot be written, and is as it was before.
    NotWritten,
    /// The file was begun, but is not complete: the disk may be full. What there is of it is left.
    NotWhole,
    /// The driver cannot draw a picture of that size; no file was begun.
    TooLarge,
};

/// What to tell the user about the file of a capture that failed.
[[nodiscard]] std::string reasonOf(CaptureEnd end);

/// Writes a picture into a PNG file if its name ends so, else into a BMP file.
/// @param image nothing for one that the driver cannot draw.
[[nodiscard]] CaptureEnd writeCapture(const std::filesystem::path& file,
                                      const std::optional<PixelImage>& image);

}  // namespace qelview
