#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace qelview {

/// Pixels in OpenGL's order: rows from bottom to top, red, green and blue, without padding.
struct PixelImage {
    static constexpr std::size_t kChannels = 3;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
};

/// Writes a picture, replacing an existing file. Returns false if that fails.
[[nodiscard]] bool writePng(const std::filesystem::path& file, const PixelImage& image);

}  // namespace qelview
