#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "MeshFaces.h"
#include "ModelImages.h"
#include "Numbering.h"
#include "PlyHeader.h"
#include "Texture.h"
#include "Warnings.h"

namespace qelview {

/// Collects the faces of a PLY file whose corners have their own texture coordinates, as photogrammetry
/// programs write them, and makes a mesh for each image. Vertices are what corners name together.
class PlyTexturedFaces {
  public:
    /// @param names of the images, which are read when the first face shows them.
    PlyTexturedFaces(std::vector<std::string> names, std::filesystem::path modelFile)
        : imageNames(std::move(names)), images(std::move(modelFile)) {}

    /// @param corners numbers of vertices, three at least.
    /// @param coords u and v of each corner, with v upwards in the image.
    /// @param image number of its name, from 0.
    /// @return false if the image cannot be shown, which is a warning; the face is not added then.
    [[nodiscard]] bool add(std::span<const std::uint32_t> corners, std::span<const double> coords,
                           double image, Warnings& warnings);
    /// The meshes in the order of the names, white. Empties this object.
    /// @param vertices those that the faces name. Their colours and texture coordinates are not used.
    [[nodiscard]] std::vector<TriangleMesh> takeMeshes(const TriangleMesh& vertices, Warnings& warnings);

  private:
    /// The faces of one image.
    struct Part {
        /// Null if the image cannot be shown.
        std::shared_ptr<const Texture> texture;
        /// Number of the vertex, and the bits of its texture coordinates.
        Numbering<std::uint32_t, 3> corners{0};
        MeshFaces faces;
    };

    /// Null for an image that cannot be shown.
    [[nodiscard]] Part* partOf(double image, Warnings& warnings);

    std::vector<std::string> imageNames;
    ModelImages images;
    std::map<std::size_t, Part> parts;
    /// Of the current face.
    std::vector<std::uint32_t> face;
};

/// True if the file has faces or triangle strips.
[[nodiscard]] bool hasFaces(const PlyHeader& header);

/// True if faces have their own texture coordinates, and the header names images for them.
[[nodiscard]] bool hasTexturedFaces(const PlyHeader& header);

/// The first image that the header names, if vertices have texture coordinates and faces do not; else null.
/// Textures that cannot be shown are warnings.
[[nodiscard]] std::shared_ptr<const Texture> textureOfVertices(const PlyHeader& header,
                                                               const std::filesystem::path& file,
                                                               Warnings& warnings);

}  // namespace qelview
