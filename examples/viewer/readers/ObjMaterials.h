#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ModelImages.h"
#include "QelColor.h"
#include "Texture.h"
#include "TexturePlacement.h"
#include "Warnings.h"

namespace qelview {

/// What is shown of a material.
struct ObjLook {
    /// Nothing for the viewer's own colour.
    std::optional<qel::QelColor3f> color;
    /// Null for none.
    std::shared_ptr<const Texture> texture;
    TexturePlacement placement;
};

/// The materials of an OBJ file, as far as they are shown: their colours in diffuse light, and the textures
/// that multiply them.
class ObjMaterials {
  public:
    explicit ObjMaterials(std::filesystem::path objFile) : file(std::move(objFile)), images(file) {}

    /// Takes the materials of an MTL file next to the model; if there is none, of the one that is named like
    /// the model. Lines that name no colour are passed over, and so is a file that comes after 64 others.
    /// @return false if no file can be read.
    bool readLibrary(std::string_view name);
    /// Reads the image of the material. One that cannot be shown is a warning, and leaves the plain colour.
    /// @param place in the model that names the material.
    /// @return an empty look for a material that no library has, which is a warning too.
    [[nodiscard]] const ObjLook& lookOf(std::string_view name, const std::string& place, Warnings& warnings);

  private:
    struct Material {
        ObjLook look;
        /// The file of an image that is not read yet; empty for none.
        std::string map;
        Wrapping wrapping = Wrapping::Repeat;
    };

    void readText(std::string_view text);
    /// The file of a texture behind its options.
    static void readMap(std::string_view line, const std::vector<std::string_view>& words,
                        Material& material);

    std::filesystem::path file;
    ModelImages images;
    /// Names of those asked for, and whether they were read.
    std::map<std::string, bool, std::less<>> libraries;
    std::map<std::string, Material, std::less<>> materials;
};

}  // namespace qelview
