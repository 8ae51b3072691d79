#pragma once

#include "Texture.h"

namespace qelview {

/// The power of two that is nearest to a size, from 1 to `most`, which is a power of two.
[[nodiscard]] int nearestPowerOfTwo(int size, int most);

/// The same image in another size; each pixel is the mean of what it covers.
[[nodiscard]] TextureImage scaledImage(const TextureImage& image, int width, int height);

}  // namespace qelview
