#include "ObjMeshes.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "MeshLook.h"
#include "MeshNormals.h"

namespace qelview {

namespace {

constexpr std::array<float, 3> kWhite{1.0F, 1.0F, 1.0F};

/// Assigning `{}` would keep the memory.
template <class Array>
void release(Array& array) {
    array = Array();
}

}  // namespace

std::uint32_t ObjMeshes::VertexNumbers::numberOf(const ObjCorner& corner, std::uint32_t mesh,
                                                 std::uint32_t next) {
    const auto& [position, normal, texCoord] = corner;
    if (position < firstOfPositions.size()) {
        // Nearly all positions have one normal and lie in one mesh.
        Vertex& first = firstOfPositions[position];
        if (first.mesh == kNoNumber) {
            first = {normal, texCoord, mesh, next};
        }
        if (first.mesh == mesh && first.normal == normal && first.texCoord == texCoord) {
            return first.number;
        }
    }
    const std::uint32_t other = others.numberOf({position, normal, texCoord, mesh});
    if (other == numbersOfOthers.size()) {
        numbersOfOthers.push_back(next);
    }
    return numbersOfOthers[other];
}

ObjMeshes::ObjMeshes(const Counts& expected) : vertexNumbers(expected.corners > 0 ? expected.positions : 0) {
    positions.reserve(expected.positions);
    normals.reserve(expected.normals);
    texCoords.reserve(expected.texCoords);
    corners.reserve(expected.corners);
}

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

void ObjMeshes::addFace(std::span<const ObjCorner> face) {
    const auto allHave = [face](std::uint32_t ObjCorner::*number) {
        return std::all_of(face.begin(), face.end(),
                           [number](const ObjCorner& corner) { return corner.*number != kNoNumber; });
    };
    const bool hasNormals = allHave(&ObjCorner::normal);
    const bool hasTexCoords = look.texture && allHave(&ObjCorner::texCoord);
    const qel::QelColor3f color = look.color.value_or(TriangleMesh().color);
    const Texture* const texture = hasTexCoords ? look.texture.get() : nullptr;
    const auto [known, isNew] =
        meshes.try_emplace({color.r, color.g, color.b, hasNormals, texture}, meshes.size());
    const std::size_t mesh = known->second;
    if (isNew) {
        kinds.push_back({look, hasNormals, hasTexCoords, 0, {}, {}});
        // Most files have one mesh; of several, none has all vertices.
        if (kinds.size() == 1) {
            kinds.front().vertices.reserve(positions.capacity());
        } else if (kinds.size() == 2) {
            kinds.front().vertices.shrink_to_fit();
        }
    }
    if (sections.empty() || sections.back().mesh != mesh || sections.back().cornersOfAFace != face.size()) {
        sections.push_back({mesh, face.size(), corners.size()});
    }
    kinds[mesh].triangles += face.size() == 3 ? 1U : 0U;
    std::vector<ObjCorner>& vertices = kinds[mesh].vertices;
    for (const ObjCorner& corner : face) {
        const ObjCorner vertex{corner.position, hasNormals ? corner.normal : kNoNumber,
                               hasTexCoords ? corner.texCoord : kNoNumber};
        const auto next = static_cast<std::uint32_t>(vertices.size());
        corners.push_back(vertexNumbers.numberOf(vertex, static_cast<std::uint32_t>(mesh), next));
        if (corners.back() == next) {
            vertices.push_back(vertex);
        }
    }
}

void ObjMeshes::addLineOrPoints(bool isLine, std::span<const ObjCorner> named) {
    std::vector<std::uint32_t>& numbers = isLine ? lines.emplace_back() : points;
    std::transform(named.begin(), named.end(), std::back_inserter(numbers),
                   [](const ObjCorner& corner) { return corner.position; });
}

qel::QelColor3f ObjMeshes::colorOf(std::uint32_t position) const {
    const float whole = largestChannel > 1.0F ? 255.0F : 1.0F;
    const auto share = [&](std::size_t i) {
        return shownShare(static_cast<double>(colors[position].at(i) / whole));
    };
    return {share(0), share(1), share(2)};
}

TriangleMesh ObjMeshes::meshOf(const MeshKind& kind) const {
    const std::vector<ObjCorner>& vertices = kind.vertices;
    const bool hasColors = !kind.hasTexCoords && !colors.empty();
    TriangleMesh mesh;
    mesh.color = kind.look.color.value_or(mesh.color);
    mesh.texture = kind.hasTexCoords ? kind.look.texture : nullptr;
    mesh.positions.reserve(vertices.size());
    mesh.texCoords.reserve(kind.hasTexCoords ? vertices.size() : 0);
    mesh.colors.reserve(hasColors ? vertices.size() : 0);
    mesh.normals.reserve(kind.hasNormals ? vertices.size() : 0);
    for (const ObjCorner& vertex : vertices) {
        mesh.positions.push_back(positions[vertex.position]);
        if (kind.hasTexCoords) {
            const auto& [u, v] = texCoords[vertex.texCoord];
            mesh.texCoords.push_back(kind.look.placement.placed(u, v));
        }
        if (hasColors) {
            mesh.colors.push_back(colorOf(vertex.position));
        }
        if (kind.hasNormals) {
            mesh.normals.push_back(normals[vertex.normal]);
        }
    }
    return mesh;
}

Scene ObjMeshes::finished(Warnings& warnings) {
    Scene scene;
    placeLines(scene);
    if (points.empty() && lines.empty() && meshes.empty()) {
        points.resize(positions.size());
        std::iota(points.begin(), points.end(), 0U);
    }
    placePoints(scene);
    placeFaces(scene, warnings);
    return scene;
}

void ObjMeshes::placeFaces(Scene& scene, Warnings& warnings) {
    sections.push_back({0, 0, corners.size()});
    // What is no longer needed goes before the next arrays are made: large files have hundreds of megabytes.
    release(vertexNumbers);
    for (MeshKind& kind : kinds) {
        scene.meshes.push_back(meshOf(kind));
        release(kind.vertices);
    }
    release(positions);
    release(normals);
    release(texCoords);
    for (MeshKind& kind : kinds) {
        kind.faces.reserveTriangles(kind.triangles);
    }
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        const auto& [mesh, cornersOfAFace, first] = sections[i];
        for (std::size_t at = first; at < sections[i + 1].firstCorner; at += cornersOfAFace) {
            kinds[mesh].faces.add(std::span(corners).subspan(at, cornersOfAFace));
        }
    }
    release(corners);
    for (std::size_t mesh = 0; mesh < kinds.size(); ++mesh) {
        giveFaces(scene.meshes[mesh], kinds[mesh].faces, warnings);
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
