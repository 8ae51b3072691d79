#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace qelview {

/// Pixels of 8 bits a channel, from the top row down, without gaps between rows.
struct TextureImage {
    int width = 0;
    int height = 0;
    /// 3: red, green, blue; 4: and alpha.
    int channels = 3;
    std::vector<std::uint8_t> pixels;

    /// The first channel of a pixel.
    [[nodiscard]] const std::uint8_t* pixel(int column, int row) const {
        return &pixels[(static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                        static_cast<std::size_t>(column)) *
                       static_cast<std::size_t>(channels)];
    }
};

/// What lies outside the image, in one of its directions.
enum class Wrapping : std::uint8_t {
    /// The image again.
    Repeat,
    /// The pixels of its edge.
    Clamp,
};

/// An image on a surface. Its texture coordinates run from 0 at the left and upper edge to 1 at the right and
/// lower edge.
struct Texture {
    std::shared_ptr<const TextureImage> image;
    Wrapping acrossU = Wrapping::Repeat;
    Wrapping acrossV = Wrapping::Repeat;
    /// Pixels of a lower alpha are holes in the surface; with 0 there are none.
    float alphaCutoff = 0.5F;
    /// Pixels keep sharp edges from nearby, instead of running into each other.
    bool hasSharpPixels = false;
};

}  // namespace qelview
