#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "QelColor.h"

namespace qelview {

/// The materials of an OBJ file, as far as they are shown: their colours in diffuse light.
class ObjMaterials {
  public:
    explicit ObjMaterials(std::filesystem::path objFile) : file(std::move(objFile)) {}

    /// Takes the materials of an MTL file beside the model; if there is none, of the one that is called like
    /// the model. Lines that name no colour are passed over, and so is a file that comes after 64 others.
    /// @return false if no file can be read.
    bool readLibrary(std::string_view name);
    /// True if a library has a material of this name, whether or not it has a colour.
    [[nodiscard]] bool has(std::string_view name) const { return colors.find(name) != colors.end(); }
    /// Nothing for a material without a colour.
    [[nodiscard]] std::optional<qel::QelColor3f> colorOf(std::string_view name) const;

  private:
    void readText(std::string_view text);

    std::filesystem::path file;
    /// Names of those asked for, and whether they were read.
    std::map<std::string, bool, std::less<>> libraries;
    std::map<std::string, std::optional<qel::QelColor3f>, std::less<>> colors;
};

}  // namespace qelview
