#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace qelview {

/// Pixels as OpenGL gives them: rows from the lowest to the highest, red, green and blue, without padding.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
};

/// Writes a picture; an existing file is replaced. Returns false if that fails.
[[nodiscard]] bool writePng(const std::filesystem::path& file, const PixelImage& image);

}  // namespace qelview
