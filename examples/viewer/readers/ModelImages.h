#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "ReadImage.h"

namespace qelview {

/// The images of a model, within a limit for all of them together.
class ModelImages {
  public:
    explicit ModelImages(std::filesystem::path modelFile) : model(std::move(modelFile)) {}

    /// The image of a file next to the model, which is read once.
    /// @param name in UTF-8.
    /// @throws ReadError with the name and the reason.
    [[nodiscard]] std::shared_ptr<const TextureImage> fileNamed(std::string_view name);
    /// @throws ReadError with the place and the reason.
    [[nodiscard]] std::shared_ptr<const TextureImage> decoded(const std::string& place,
                                                              std::string_view bytes);
    /// Counts an image that is made from others.
    /// @throws ReadError if it exceeds the limit.
    void takePixels(std::uint64_t count);

  private:
    std::filesystem::path model;
    /// Null for those that cannot be shown.
    std::map<std::string, std::shared_ptr<const TextureImage>, std::less<>> files;
    std::uint64_t pixelsLeft = kMostPixelsOfAModel;
};

}  // namespace qelview
