#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "Picture.h"

// Other people's headers, whose functions are kept to this file and of which few are used.
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_WRITE_NO_STDIO
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wunused-function"
#endif
#include <stb/stb_image.h>
#include <stb/stb_image_write.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace qel::test {

namespace {

constexpr int kChannels = 4;

void append(void* target, void* data, int size) {
    const auto* const first = static_cast<const char*>(data);
    static_cast<std::string*>(target)->append(first, static_cast<std::size_t>(size));
}

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    std::string content(stream ? static_cast<std::size_t>(stream.tellg()) : 0, '\0');
    stream.seekg(0);
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream) {
        throw std::runtime_error("no picture " + file.string());
    }
    return content;
}

}  // namespace

Picture Picture::load(const std::filesystem::path& file) {
    const std::string content = contentOf(file);
    int width = 0;
    int height = 0;
    int channels = 0;
    const auto* const first = reinterpret_cast<const stbi_uc*>(content.data());
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(first, static_cast<int>(content.size()), &width, &height, &channels, kChannels),
        [](void* data) { stbi_image_free(data); });
    if (pixels == nullptr) {
        throw std::runtime_error("no PNG file: " + file.string());
    }
    Picture picture(width, height);
    const std::size_t rowSize = static_cast<std::size_t>(width) * kChannels;
    for (int y = 0; y < height; ++y) {
        const stbi_uc* const row = pixels.get() + static_cast<std::size_t>(height - 1 - y) * rowSize;
        std::copy(row, row + rowSize,
                  picture.bytes.begin() + static_cast<std::ptrdiff_t>(picture.offset(0, y)));
    }
    return picture;
}

void Picture::save(const std::filesystem::path& file) const {
    std::vector<std::uint8_t> topDown;
    topDown.reserve(bytes.size());
    for (int y = rows - 1; y >= 0; --y) {
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(offset(0, y));
        topDown.insert(topDown.end(), first, first + std::ptrdiff_t{columns} * kChannels);
    }
    std::string content;
    const int done = stbi_write_png_to_func(&append, &content, columns, rows, kChannels, topDown.data(),
                                            columns * kChannels);
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    std::ofstream stream(file, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (done == 0 || !stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

}  // namespace qel::test
