#include "ObjMeshes.h"

#include <algorithm>
#include <iterator>
#include <numeric>
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

/// Assigning `{}` would keep the memory.
template <class Array>
void release(Array& array) {
    array = Array();
}

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

void ObjMeshes::reserve(const Counts& counts) {
    positions.reserve(counts.positions);
    normals.reserve(counts.normals);
    texCoords.reserve(counts.texCoords);
    corners.reserve(counts.corners);
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

std::size_t ObjMeshes::meshNumberOf(bool hasNormals, bool hasTexCoords) {
    const qel::QelColor3f color = look.color.value_or(TriangleMesh().color);
    const Texture* const texture = hasTexCoords ? look.texture.get() : nullptr;
    const auto [known, isNew] =
        meshes.try_emplace({color.r, color.g, color.b, hasNormals, texture}, meshes.size());
    if (isNew) {
        kinds.push_back({look, hasNormals, hasTexCoords});
    }
    return known->second;
}

void ObjMeshes::addFace(std::span<const ObjCorner> face) {
    const bool hasNormals = std::all_of(face.begin(), face.end(),
                                        [](const ObjCorner& corner) { return corner.normal != kNoNumber; });
    const bool hasTexCoords =
        look.texture && std::all_of(face.begin(), face.end(),
                                    [](const ObjCorner& corner) { return corner.texCoord != kNoNumber; });
    const std::size_t mesh = meshNumberOf(hasNormals, hasTexCoords);
    if (sections.empty() || sections.back().mesh != mesh || sections.back().cornersOfAFace != face.size()) {
        sections.push_back(
            {mesh, face.size(), corners.size(), normalsOfCorners.size(), texCoordsOfCorners.size()});
        normalsOfCorners.reserve(hasNormals ? corners.capacity() : 0);
        texCoordsOfCorners.reserve(hasTexCoords ? corners.capacity() : 0);
    }
    for (const ObjCorner& corner : face) {
        corners.push_back(corner.position);
        if (hasNormals) {
            normalsOfCorners.push_back(corner.normal);
        }
        if (hasTexCoords) {
            texCoordsOfCorners.push_back(corner.texCoord);
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

ObjCorner ObjMeshes::cornerAt(const Section& section, std::size_t corner) const {
    const MeshKind& kind = kinds[section.mesh];
    const std::size_t place = corner - section.firstCorner;
    return {corners[corner], kind.hasNormals ? normalsOfCorners[section.firstNormal + place] : kNoNumber,
            kind.hasTexCoords ? texCoordsOfCorners[section.firstTexCoord + place] : kNoNumber};
}

std::vector<std::vector<ObjCorner>> ObjMeshes::numberCorners() {
    std::vector<std::vector<ObjCorner>> vertices(kinds.size());
    VertexNumbers numbers(positions.size());
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        const Section& section = sections[i];
        std::vector<ObjCorner>& known = vertices[section.mesh];
        for (std::size_t corner = section.firstCorner; corner < sections[i + 1].firstCorner; ++corner) {
            const ObjCorner named = cornerAt(section, corner);
            const std::uint32_t others = kinds[section.mesh].hasTexCoords
                                             ? numbers.numberOfPair(named.normal, named.texCoord)
                                             : named.normal;
            const auto next = static_cast<std::uint32_t>(known.size());
            corners[corner] =
                numbers.numberOf({named.position, others, static_cast<std::uint32_t>(section.mesh)}, next);
            if (corners[corner] == next) {
                known.push_back(named);
            }
        }
    }
    return vertices;
}

TriangleMesh ObjMeshes::meshOf(const MeshKind& kind, const std::vector<ObjCorner>& vertices) const {
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

std::vector<MeshFaces> ObjMeshes::facesOfMeshes() const {
    std::vector<std::size_t> triangles(kinds.size());
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        if (sections[i].cornersOfAFace == 3) {
            triangles[sections[i].mesh] += (sections[i + 1].firstCorner - sections[i].firstCorner) / 3;
        }
    }
    std::vector<MeshFaces> faces(kinds.size());
    for (std::size_t mesh = 0; mesh < faces.size(); ++mesh) {
        faces[mesh].reserveTriangles(triangles[mesh]);
    }
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        const auto& [mesh, cornersOfAFace, first, firstNormal, firstTexCoord] = sections[i];
        for (std::size_t at = first; at < sections[i + 1].firstCorner; at += cornersOfAFace) {
            faces[mesh].add(std::span(corners).subspan(at, cornersOfAFace));
        }
    }
    return faces;
}

void ObjMeshes::placeFaces(Scene& scene, Warnings& warnings) {
    sections.push_back({0, 0, corners.size(), 0, 0});
    std::vector<std::vector<ObjCorner>> vertices = numberCorners();
    // What is no longer needed goes before the next arrays are made: large files have hundreds of megabytes.
    release(normalsOfCorners);
    release(texCoordsOfCorners);
    for (std::size_t mesh = 0; mesh < kinds.size(); ++mesh) {
        scene.meshes.push_back(meshOf(kinds[mesh], vertices[mesh]));
        release(vertices[mesh]);
    }
    release(positions);
    release(normals);
    release(texCoords);
    std::vector<MeshFaces> faces = facesOfMeshes();
    release(corners);
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
