#pragma once

#include <cstdint>
#include <string_view>

#include "Texture.h"

namespace qelview {

/// The largest image that is decoded, and the largest number of pixels of all images of a model.
inline constexpr std::uint64_t kMostPixelsOfAnImage = std::uint64_t{64} << 20U;
inline constexpr std::uint64_t kMostPixelsOfAModel = kMostPixelsOfAnImage * 2;

/// Decodes a PNG, JPEG, TGA or BMP image. Its header is checked first, and decoding gets no more memory than
/// an image of the header's size needs.
/// @param mostPixels larger images are refused.
/// @throws ReadError with the reason alone.
[[nodiscard]] TextureImage readImage(std::string_view bytes, std::uint64_t mostPixels = kMostPixelsOfAnImage);

}  // namespace qelview
