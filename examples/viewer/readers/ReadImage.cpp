#include "ReadImage.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "ReadError.h"

namespace {

/// What the decoder on this thread may still allocate. A compressed image of a few pixels can unpack to
/// gigabytes that no pixel shows.
struct Budget {
    std::uint64_t bytesLeft = 0;
    bool isExceeded = false;
};

thread_local Budget budget;

/// Zeroed, since the decoder leaves pixels of cut files unwritten.
void* allocate(std::size_t size) {
    if (size > budget.bytesLeft) {
        budget.isExceeded = true;
        return nullptr;
    }
    budget.bytesLeft -= size;
    return std::calloc(std::max<std::size_t>(size, 1), 1);
}

void* reallocate(void* memory, std::size_t oldSize, std::size_t size) {
    void* const larger = allocate(size);
    if (larger != nullptr && memory != nullptr) {
        std::memcpy(larger, memory, std::min(oldSize, size));
        std::free(memory);
    }
    return larger;
}

}  // namespace

// The decoder is compiled here and seen nowhere else.
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#define STBI_NO_FAILURE_STRINGS
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_TGA
#define STBI_ONLY_BMP
#define STBI_MALLOC allocate
#define STBI_REALLOC_SIZED reallocate
#define STBI_FREE std::free
#include <stb/stb_image.h>

namespace qelview {

namespace {

/// Of deep and interlaced images, whose pixels are held several times while they are decoded, and growing
/// buffers.
constexpr std::uint64_t kBytesPerPixel = 64;
/// Tables, and buffers that grow with the file.
constexpr std::uint64_t kBytesPerImage = 1U << 20U;
constexpr std::uint64_t kBytesPerFileByte = 8;
/// Of an image of any size: with what is there of the model, less than a gigabyte.
constexpr std::uint64_t kMostBytes = 768U << 20U;

}  // namespace

TextureImage readImage(std::string_view bytes, std::uint64_t mostPixels) {
    const auto* const data = reinterpret_cast<const stbi_uc*>(bytes.data());
    const int size = bytes.size() > INT_MAX ? 0 : static_cast<int>(bytes.size());
    TextureImage image;
    int channels = 0;
    budget = {kBytesPerImage};
    if (size == 0 || stbi_info_from_memory(data, size, &image.width, &image.height, &channels) == 0 ||
        image.width <= 0 || image.height <= 0) {
        throw ReadError("not a PNG, JPEG, TGA or BMP image");
    }
    const auto pixels = static_cast<std::uint64_t>(image.width) * static_cast<std::uint64_t>(image.height);
    if (pixels > mostPixels) {
        throw ReadError("too large: " + std::to_string(image.width) + " x " + std::to_string(image.height) +
                        " pixels");
    }
    // Grey with alpha has two channels, and colour with alpha four.
    image.channels = channels % 2 == 0 ? 4 : 3;
    budget = {
        std::min(kBytesPerImage + pixels * kBytesPerPixel + bytes.size() * kBytesPerFileByte, kMostBytes)};
    const std::unique_ptr<stbi_uc, void (*)(void*)> decoded(
        stbi_load_from_memory(data, size, &image.width, &image.height, &channels, image.channels),
        stbi_image_free);
    const std::uint64_t decodedPixels =
        static_cast<std::uint64_t>(image.width) * static_cast<std::uint64_t>(image.height);
    if (!decoded || decodedPixels != pixels) {
        throw ReadError(budget.isExceeded ? "takes too much memory to decode" : "a damaged image");
    }
    image.pixels.assign(decoded.get(), decoded.get() + pixels * static_cast<std::uint64_t>(image.channels));
    return image;
}

}  // namespace qelview
