#include "PowersOfTwo.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace qelview {

namespace {

/// What one pixel of a scaled row covers of the original one: pixels from `first` on, and their weights.
struct Cover {
    std::size_t first = 0;
    std::vector<float> weights;
};

std::vector<Cover> coversOf(int from, int to) {
    std::vector<Cover> covers(static_cast<std::size_t>(to));
    const double ratio = static_cast<double>(from) / to;
    for (int i = 0; i < to; ++i) {
        const double begin = i * ratio;
        const double end = std::min((i + 1) * ratio, static_cast<double>(from));
        Cover& cover = covers[static_cast<std::size_t>(i)];
        cover.first = static_cast<std::size_t>(begin);
        for (std::size_t k = cover.first; static_cast<double>(k) < end; ++k) {
            const double covered =
                std::min(end, static_cast<double>(k + 1)) - std::max(begin, static_cast<double>(k));
            cover.weights.push_back(static_cast<float>(covered / (end - begin)));
        }
    }
    return covers;
}

/// Adds a row to sums, scaled to their width.
void addRow(const std::uint8_t* row, std::size_t channels, const std::vector<Cover>& columns, float weight,
            std::vector<float>& sums) {
    std::size_t next = 0;
    for (const Cover& column : columns) {
        for (std::size_t channel = 0; channel < channels; ++channel, ++next) {
            const std::uint8_t* value = row + column.first * channels + channel;
            for (const float share : column.weights) {
                sums[next] += static_cast<float>(*value) * share * weight;
                value += channels;
            }
        }
    }
}

}  // namespace

int nearestPowerOfTwo(int size, int most) {
    const auto below = static_cast<int>(std::bit_floor(static_cast<unsigned>(size)));
    // Halfway up to the next one.
    return std::min(most, size >= below + (below + 1) / 2 ? 2 * below : below);
}

TextureImage scaledImage(const TextureImage& image, int width, int height) {
    TextureImage scaled{width, height, image.channels, {}};
    const auto channels = static_cast<std::size_t>(image.channels);
    const std::vector<Cover> columns = coversOf(image.width, width);
    std::vector<float> sums(columns.size() * channels);
    scaled.pixels.reserve(sums.size() * static_cast<std::size_t>(height));
    for (const Cover& rows : coversOf(image.height, height)) {
        std::fill(sums.begin(), sums.end(), 0.0F);
        for (std::size_t i = 0; i < rows.weights.size(); ++i) {
            addRow(image.pixel(0, static_cast<int>(rows.first + i)), channels, columns, rows.weights[i],
                   sums);
        }
        for (const float sum : sums) {
            scaled.pixels.push_back(static_cast<std::uint8_t>(std::min(sum + 0.5F, 255.0F)));
        }
    }
    return scaled;
}

}  // namespace qelview
