#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "GltfFile.h"
#include "ModelImages.h"
#include "SceneParts.h"
#include "TexturePlacement.h"

namespace qelview {

/// The textures that the materials of a glTF asset multiply their colours with.
class GltfTextures {
  public:
    /// @param gltfFile must live as long as this object.
    /// @param path of the asset, next to which its images are.
    GltfTextures(const GltfFile& gltfFile, const std::filesystem::path& path)
        : file(gltfFile), images(path) {}

    /// Gives a mesh the texture of a material and coordinates for it, if there is one.
    /// @param place of the mesh.
    /// @param attributes of its vertices, whose positions it has.
    /// @throws ReadError if there is a texture that cannot be shown; the mesh is as before then.
    void dress(TriangleMesh& mesh, const std::string& place, const nlohmann::json& material,
               const nlohmann::json& attributes);

  private:
    using Image = std::shared_ptr<const TextureImage>;

    [[nodiscard]] Image imageOf(const std::string& place, const nlohmann::json& number);
    [[nodiscard]] Image readImage(const std::string& place, const nlohmann::json& image);
    /// An image with its mirror image next to it, since OpenGL 1.1 cannot mirror it itself.
    [[nodiscard]] Image mirrored(const Image& image, bool acrossU, bool acrossV);
    [[nodiscard]] Texture textureOf(const std::string& place, const nlohmann::json& index,
                                    TexturePlacement& placement);

    const GltfFile& file;
    ModelImages images;
    /// By their numbers; null for those that cannot be shown.
    std::map<std::uint64_t, Image> known;
    /// By their originals and directions.
    std::map<std::tuple<Image, bool, bool>, Image> mirrorImages;
};

}  // namespace qelview
