#include "ModelImages.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "FileBytes.h"
#include "ReadError.h"

namespace qelview {

namespace {

constexpr std::uintmax_t kLargestImageFile = std::uintmax_t{256} << 20U;
/// A model can name an image on each of its lines.
constexpr std::size_t kMostImages = 1024;

}  // namespace

std::shared_ptr<const TextureImage> ModelImages::fileNamed(std::string_view name) {
    const auto refuseIt = [name](const std::string& reason) { refuse("image " + inQuotes(name), reason); };
    if (const auto known = files.find(name); known != files.end()) {
        return known->second;
    }
    if (files.size() == kMostImages) {
        refuseIt("too many images");
    }
    std::shared_ptr<const TextureImage>& image = files[std::string(name)];
    const std::optional<std::string> bytes = siblingBytes(model, name, kLargestImageFile);
    if (!bytes) {
        refuseIt(isSiblingName(name) ? "the file cannot be read" : "not a file next to the model");
    }
    try {
        image = decoded(*bytes);
    } catch (const ReadError& error) {
        refuseIt(error.what());
    }
    return image;
}

std::shared_ptr<const TextureImage> ModelImages::decoded(std::string_view bytes) {
    TextureImage image = readImage(bytes, std::min(kMostPixelsOfAnImage, pixelsLeft));
    takePixels(static_cast<std::uint64_t>(image.width) * static_cast<std::uint64_t>(image.height));
    return std::make_shared<const TextureImage>(std::move(image));
}

void ModelImages::takePixels(std::uint64_t count) {
    if (count > pixelsLeft) {
        throw ReadError("the images of the model are too large");
    }
    pixelsLeft -= count;
}

}  // namespace qelview
