#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace qelview {

/// The materials of an OBJ file, as far as they are shown: their colours in diffuse light.
class ObjMaterials {
  public:
    explicit ObjMaterials(std::filesystem::path objFile) : file(std::move(objFile)) {}

    /// Takes the materials of an MTL file beside the model; if there is none, of the one that is called like
    /// the model. Lines that name no colour are passed over, and so is a file that cannot be read, or was
    /// read before, or comes after 64 others.
    void readLibrary(std::string_view name);
    /// What the plain model calls the material of this name: the same for all of a colour.
    [[nodiscard]] const std::string& plainNameOf(std::string_view name);
    /// The materials that were asked for, as an MTL file; empty if none has a colour.
    [[nodiscard]] std::string plainLibrary() const;

  private:
    /// Red, green and blue.
    using Diffuse = std::array<float, 3>;

    void readText(std::string_view text);

    std::filesystem::path file;
    /// Names of those read.
    std::set<std::string> libraries;
    std::map<std::string, Diffuse, std::less<>> diffuse;
    std::map<Diffuse, std::string> asked;
};

}  // namespace qelview
