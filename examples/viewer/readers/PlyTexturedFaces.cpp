#include "PlyTexturedFaces.h"

#include <bit>
#include <cmath>
#include <utility>

#include "MeshLook.h"
#include "ReadError.h"
#include "TexturePlacement.h"

namespace qelview {

PlyTexturedFaces::Part* PlyTexturedFaces::partOf(double image, Warnings& warnings) {
    if (!(image >= 0.0 && image < static_cast<double>(imageNames.size())) || image != std::floor(image)) {
        warnings.add("faces", "a texture that the header does not name is left out");
        return nullptr;
    }
    const auto number = static_cast<std::size_t>(image);
    const auto [place, isNew] = parts.try_emplace(number);
    Part& part = place->second;
    if (isNew) {
        try {
            part.texture = std::make_shared<const Texture>(Texture{images.fileNamed(imageNames[number])});
        } catch (const ReadError& error) {
            warnings.add("header", error.what());
        }
    }
    return part.texture ? &part : nullptr;
}

bool PlyTexturedFaces::add(std::span<const std::uint32_t> corners, std::span<const double> coords,
                           double image, Warnings& warnings) {
    Part* const part = partOf(image, warnings);
    if (part == nullptr) {
        return false;
    }
    const TexturePlacement placement = TexturePlacement::upwards();
    face.clear();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const qel::ArrayTexCoord2f coord = placement.placed(coords[2 * i], coords[2 * i + 1]);
        face.push_back(part->corners.numberOf(
            {corners[i], std::bit_cast<std::uint32_t>(coord.u), std::bit_cast<std::uint32_t>(coord.v)}));
    }
    part->faces.add(face);
    return true;
}

std::vector<TriangleMesh> PlyTexturedFaces::takeMeshes(const TriangleMesh& vertices, Warnings& warnings) {
    std::vector<TriangleMesh> meshes;
    for (auto& [number, part] : parts) {
        TriangleMesh mesh;
        mesh.color = {1.0F, 1.0F, 1.0F};
        mesh.texture = part.texture;
        mesh.positions.reserve(part.corners.known().size());
        mesh.normals.reserve(vertices.normals.empty() ? 0 : part.corners.known().size());
        mesh.texCoords.reserve(part.corners.known().size());
        for (const auto& [vertex, u, v] : part.corners.known()) {
            mesh.positions.push_back(vertices.positions[vertex]);
            mesh.texCoords.push_back({std::bit_cast<float>(u), std::bit_cast<float>(v)});
            if (!vertices.normals.empty()) {
                mesh.normals.push_back(vertices.normals[vertex]);
            }
        }
        giveFaces(mesh, part.faces, warnings);
        if (!mesh.indices.empty()) {
            meshes.push_back(std::move(mesh));
        }
    }
    parts.clear();
    return meshes;
}

}  // namespace qelview
