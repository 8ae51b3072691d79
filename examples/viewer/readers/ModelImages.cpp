#include "ModelImages.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "FileBytes.h"
#include "ReadError.h"

namespace qelview {

std::shared_ptr<const TextureImage> ModelImages::fileNamed(std::string_view name) {
    constexpr std::uintmax_t kLargestImageFile = std::uintmax_t{256} << 20U;
    // A model can name an image on each of its lines.
    constexpr std::size_t kMostImages = 1024;
    if (const auto known = files.find(name); known != files.end()) {
        return known->second;
    }
    const std::string place = "image " + inQuotes(name);
    if (files.size() == kMostImages) {
        refuse(place, "too many images");
    }
    std::shared_ptr<const TextureImage>& image = files[std::string(name)];
    const std::optional<std::string> bytes = siblingBytes(model, name, kLargestImageFile);
    if (!bytes) {
        refuse(place, isSiblingName(name) ? "the file cannot be read" : "not a file next to the model");
    }
    return image = decoded(place, *bytes);
}

std::shared_ptr<const TextureImage> ModelImages::decoded(const std::string& place, std::string_view bytes) {
    try {
        TextureImage image = readImage(bytes, std::min(kMostPixelsOfAnImage, pixelsLeft));
        takePixels(static_cast<std::uint64_t>(image.width) * static_cast<std::uint64_t>(image.height));
        return std::make_shared<const TextureImage>(std::move(image));
    } catch (const ReadError& error) {
        refuse(place, error.what());
    }
}

void ModelImages::takePixels(std::uint64_t count) {
    if (count > pixelsLeft) {
        throw ReadError("the images of the model are too large");
    }
    pixelsLeft -= count;
}

}  // namespace qelview
