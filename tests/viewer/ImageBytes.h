#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kit/GlSurface.h"

namespace qel::test {

/// An uncompressed TGA file of pixels from the top row down, with alpha.
[[nodiscard]] inline std::string tgaOf(int width, const std::vector<Rgba>& pixels) {
    const int height = static_cast<int>(pixels.size()) / width;
    const auto low = [](int number) { return static_cast<char>(number % 256); };
    const auto high = [](int number) { return static_cast<char>(number / 256); };
    constexpr char kTrueColor = 2;
    constexpr char kBits = 32;
    constexpr char kTopDownWithAlpha = 0x28;
    std::string bytes(12, '\0');
    bytes[2] = kTrueColor;
    for (const char byte : {low(width), high(width), low(height), high(height), kBits, kTopDownWithAlpha}) {
        bytes.push_back(byte);
    }
    for (const Rgba& pixel : pixels) {
        for (const std::size_t channel : {2U, 1U, 0U, 3U}) {
            bytes.push_back(static_cast<char>(pixel.at(channel)));
        }
    }
    return bytes;
}

/// Four pixels: red and green above blue and white.
[[nodiscard]] inline std::string fourPixels() {
    return tgaOf(2, {kRed, kGreen, kBlue, kWhite});
}

}  // namespace qel::test
