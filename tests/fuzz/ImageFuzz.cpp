#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ReadError.h"
#include "ReadImage.h"

/// Takes any bytes for the image of a texture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Larger ones take the same paths, only longer.
    constexpr std::uint64_t kMostPixels = 1U << 18U;
    try {
        const qelview::TextureImage image =
            qelview::readImage({reinterpret_cast<const char*>(data), size}, kMostPixels);
        const auto pixels = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
        if (pixels == 0 || pixels > kMostPixels ||
            image.pixels.size() != pixels * static_cast<std::size_t>(image.channels)) {
            std::abort();
        }
    } catch (const qelview::ReadError&) {
        // Refused, as it may be; anything else that is thrown ends the program.
    }
    return 0;
}
