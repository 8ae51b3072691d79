#include "ObjMeshes.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "MeshLook.h"
#include "MeshNormals.h"
#include "Numbering.h"

namespace qelview {

namespace {

constexpr std::array<float, 3> kWhite{1.0F, 1.0F, 1.0F};

/// What makes two corners the same vertex.
struct VertexKey {
    std::uint32_t position = 0;
    /// Of the normal; where there are texture coordinates, of the pair of both.
    std::uint32_t others = 0;
    std::uint32_t mesh = kNoNumber;
    bool operator==(const VertexKey&) const = default;
};

}  // namespace

/// Numbers the vertices of each mesh.
class ObjMeshes::VertexNumbers {
  public:
    explicit VertexNumbers(std::size_t positions) : firstOfPositions(positions) {}

    /// @param next the number that a new vertex gets.
    std::uint32_t numberOf(const VertexKey& key, std::uint32_t next) {
        // Nearly all positions have one normal and lie in one mesh.
        auto& [firstKey, firstVertex] = firstOfPositions[key.position];
        if (firstKey.mesh == kNoNumber) {
            firstKey = key;
            firstVertex = next;
        }
        if (firstKey == key) {
            return firstVertex;
        }
        const std::uint32_t other = others.numberOf({key.position, key.others, key.mesh});
        if (other == vertexOfOther.size()) {
            vertexOfOther.push_back(next);
        }
        return vertexOfOther[other];
    }
    std::uint32_t numberOfPair(std::uint32_t normal, std::uint32_t texCoord) {
        return pairs.numberOf({normal, texCoord});
    }

  private:
    std::vector<std::pair<VertexKey, std::uint32_t>> firstOfPositions;
    Numbering<std::uint32_t, 3> others{0};
    Numbering<std::uint32_t, 2> pairs{0};
    std::vector<std::uint32_t> vertexOfOther;
};

void ObjMeshes::addPosition(const qel::XPnt3d& position) {
    positions.push_back(position);
    if (!colors.empty()) {
        colors.push_back(kWhite);
    }
}

void ObjMeshes::setColor(const std::array<double, 3>& color) {
    colors.resize(positions.size(), kWhite);
    for (std::size_t i = 0; i < color.size(); ++i) {
        colors.back().at(i) = static_cast<float>(color.at(i));
        largestChannel = std::max(largestChannel, colors.back().at(i));
    }
}

void ObjMeshes::addNormal(const qel::XPnt3d& normal) {
    normals.push_back(unitNormal(normal));
}

std::size_t ObjMeshes::meshOf(bool hasNormals, bool hasTexCoords) {
    const qel::QelColor3f color = look.color.value_or(TriangleMesh().color);
    const Texture* const texture = hasTexCoords ? look.texture.get() : nullptr;
    const auto [known, isNew] =
        meshes.try_emplace({color.r, color.g, color.b, hasNormals, texture}, meshes.size());
    if (isNew) {
        kinds.push_back({look, hasNormals, hasTexCoords});
    }
    return known->second;
}

void ObjMeshes::addFace(std::span<const ObjCorner> corners) {
    const bool hasNormals = std::all_of(corners.begin(), corners.end(),
                                        [](const ObjCorner& corner) { return corner.normal != kNoNumber; });
    const bool hasTexCoords =
        look.texture && std::all_of(corners.begin(), corners.end(),
                                    [](const ObjCorner& corner) { return corner.texCoord != kNoNumber; });
    const std::size_t mesh = meshOf(hasNormals, hasTexCoords);
    if (sections.empty() || sections.back().mesh != mesh ||
        sections.back().cornersOfAFace != corners.size()) {
        sections.push_back({mesh, corners.size(), cornersOfFaces.size(), texCoordsOfCorners.size()});
    }
    for (const ObjCorner& corner : corners) {
        cornersOfFaces.push_back({corner.position, corner.normal});
        if (hasTexCoords) {
            texCoordsOfCorners.push_back(corner.texCoord);
        }
    }
}

void ObjMeshes::addLineOrPoints(bool isLine, std::span<const ObjCorner> corners) {
    std::vector<std::uint32_t>& numbers = isLine ? lines.emplace_back() : points;
    std::transform(corners.begin(), corners.end(), std::back_inserter(numbers),
                   [](const ObjCorner& corner) { return corner.position; });
}

qel::QelColor3f ObjMeshes::colorOf(std::uint32_t position) const {
    const float whole = largestChannel > 1.0F ? 255.0F : 1.0F;
    const auto share = [&](std::size_t i) {
        return shownShare(static_cast<double>(colors[position].at(i) / whole));
    };
    return {share(0), share(1), share(2)};
}

ObjCorner ObjMeshes::cornerAt(const Section& section, std::size_t corner) const {
    const MeshKind& kind = kinds[section.mesh];
    const FaceCorner& named = cornersOfFaces[corner];
    return {named.position, kind.hasNormals ? named.normal : kNoNumber,
            kind.hasTexCoords ? texCoordsOfCorners[section.firstTexCoord + corner - section.firstCorner]
                              : kNoNumber};
}

std::uint32_t ObjMeshes::vertexOf(const ObjCorner& corner, std::size_t meshNumber, VertexNumbers& numbers,
                                  TriangleMesh& mesh) const {
    const MeshKind& kind = kinds[meshNumber];
    const std::uint32_t others =
        kind.hasTexCoords ? numbers.numberOfPair(corner.normal, corner.texCoord) : corner.normal;
    const auto next = static_cast<std::uint32_t>(mesh.positions.size());
    const std::uint32_t vertex =
        numbers.numberOf({corner.position, others, static_cast<std::uint32_t>(meshNumber)}, next);
    if (vertex == next) {
        mesh.positions.push_back(positions[corner.position]);
        if (kind.hasTexCoords) {
            const auto& [u, v] = texCoords[corner.texCoord];
            mesh.texCoords.push_back(kind.look.placement.placed(u, v));
        } else if (!colors.empty()) {
            mesh.colors.push_back(colorOf(corner.position));
        }
        if (kind.hasNormals) {
            mesh.normals.push_back(normals[corner.normal]);
        }
    }
    return vertex;
}

Scene ObjMeshes::finished(Warnings& warnings) {
    Scene scene;
    placeFaces(scene, warnings);
    placeLines(scene);
    if (points.empty() && lines.empty() && meshes.empty()) {
        points.resize(positions.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            points[i] = static_cast<std::uint32_t>(i);
        }
    }
    placePoints(scene);
    return scene;
}

void ObjMeshes::placeFaces(Scene& scene, Warnings& warnings) {
    for (const MeshKind& kind : kinds) {
        TriangleMesh& mesh = scene.meshes.emplace_back();
        mesh.color = kind.look.color.value_or(mesh.color);
        mesh.texture = kind.hasTexCoords ? kind.look.texture : nullptr;
    }
    std::vector<MeshFaces> faces(meshes.size());
    VertexNumbers numbers(positions.size());
    std::vector<std::uint32_t> face;
    sections.push_back({0, 0, cornersOfFaces.size(), 0});
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        const Section& section = sections[i];
        for (std::size_t corner = section.firstCorner; corner < sections[i + 1].firstCorner; ++corner) {
            face.push_back(
                vertexOf(cornerAt(section, corner), section.mesh, numbers, scene.meshes[section.mesh]));
            if (face.size() == section.cornersOfAFace) {
                faces[section.mesh].add(face);
                face.clear();
            }
        }
    }
    cornersOfFaces = {};
    texCoordsOfCorners = {};
    for (std::size_t mesh = 0; mesh < faces.size(); ++mesh) {
        giveFaces(scene.meshes[mesh], faces[mesh], warnings);
    }
    std::erase_if(scene.meshes, [](const TriangleMesh& mesh) { return mesh.indices.empty(); });
}

void ObjMeshes::placeLines(Scene& scene) const {
    if (lines.empty()) {
        return;
    }
    Polyline& polyline = scene.polylines.emplace_back();
    polyline.style = kLinesOfMeshFiles;
    for (const std::vector<std::uint32_t>& line : lines) {
        Points& part = polyline.parts.emplace_back();
        std::transform(line.begin(), line.end(), std::back_inserter(part),
                       [this](std::uint32_t position) { return positions[position]; });
    }
}

void ObjMeshes::placePoints(Scene& scene) const {
    if (points.empty()) {
        return;
    }
    PointCloud& cloud = scene.clouds.emplace_back();
    for (const std::uint32_t position : points) {
        cloud.positions.push_back(positions[position]);
        if (!colors.empty()) {
            cloud.colors.push_back(colorOfDot(colorOf(position)));
        }
    }
}

}  // namespace qelview
