#include "PlyTextures.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "MeshLook.h"
#include "PlyVertices.h"
#include "ReadError.h"
#include "TexturePlacement.h"

namespace qelview {

namespace {

/// True if an element that has instances has properties for all these uses.
bool hasElement(const PlyHeader& header, std::initializer_list<PlyUse> wanted) {
    return std::any_of(header.elements.begin(), header.elements.end(), [&](const PlyElement& element) {
        return element.count > 0 &&
               std::all_of(wanted.begin(), wanted.end(), [&](PlyUse use) { return uses(element, use); });
    });
}

}  // namespace

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

bool hasFaces(const PlyHeader& header) {
    return hasElement(header, {PlyUse::Corners}) || hasElement(header, {PlyUse::Strips});
}

bool hasTexturedFaces(const PlyHeader& header) {
    return !header.textureFiles.empty() && hasElement(header, {PlyUse::Corners, PlyUse::CornerTexCoords});
}

std::shared_ptr<const Texture> textureOfVertices(const PlyHeader& header, const std::filesystem::path& file,
                                                 Warnings& warnings) {
    if (header.textureFiles.empty() || !hasFaces(header)) {
        return nullptr;
    }
    const bool areOfFaces = hasTexturedFaces(header);
    if (!areOfFaces && !uses(*header.find("vertex"), PlyUse::TexCoord)) {
        warnings.add("header", "a texture without texture coordinates is left out");
        return nullptr;
    }
    if (header.textureFiles.size() > 1 && !(areOfFaces && hasElement(header, {PlyUse::Image}))) {
        warnings.add("header", "textures after the first one are left out");
    }
    if (areOfFaces) {
        return nullptr;
    }
    try {
        return std::make_shared<const Texture>(Texture{ModelImages(file).fileNamed(header.textureFiles[0])});
    } catch (const ReadError& error) {
        warnings.add("header", error.what());
        return nullptr;
    }
}

}  // namespace qelview
