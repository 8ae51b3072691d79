#include "ReadFormats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "GltfFile.h"
#include "GltfPlacement.h"
#include "GltfTextures.h"
#include "JsonText.h"
#include "MeshLook.h"
#include "MeshNormals.h"
#include "ReadError.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

using nlohmann::json;

enum Mode : std::uint64_t { Dots, Lines, LineLoop, LineStrip, Triangles, TriangleStrip, TriangleFan };

/// Corners of triangles from those of a list, a strip or a fan; pieces of triangles at the end are left out.
std::vector<std::uint32_t> trianglesOf(const std::vector<std::uint32_t>& corners, std::uint64_t mode) {
    std::vector<std::uint32_t> triangles;
    if (mode == Triangles) {
        triangles.assign(corners.begin(), corners.end() - static_cast<std::ptrdiff_t>(corners.size() % 3));
        return triangles;
    }
    for (std::size_t last = 2; last < corners.size(); ++last) {
        const std::array<std::uint32_t, 3> triangle =
            mode == TriangleStrip ? triangleOfStrip(corners, last)
                                  : std::array{corners.front(), corners[last - 1], corners[last]};
        triangles.insert(triangles.end(), triangle.begin(), triangle.end());
    }
    return triangles;
}

class GltfReading {
  public:
    GltfReading(const GltfFile& gltfFile, const std::filesystem::path& path,
                const ProgressStretch& progressOfNodes, std::uint64_t most)
        : file(gltfFile), textures(gltfFile, path), progress(progressOfNodes), mostCorners(most) {}

    Scene run() {
        std::vector<std::pair<std::size_t, GltfPlacement>> open;
        for (const std::size_t root : roots()) {
            open.emplace_back(root, GltfPlacement());
        }
        std::vector<bool> seen(file.count("nodes"));
        const auto nodes = static_cast<double>(seen.size());
        double done = 0.0;
        while (!open.empty()) {
            const auto [number, outer] = open.back();
            open.pop_back();
            const std::string place = "node " + std::to_string(number);
            if (seen[number]) {
                refuse(place, "it has more than one parent");
            }
            seen[number] = true;
            const json& node = file.element(place, "nodes", number);
            const GltfPlacement placement = outer * GltfPlacement::ofNode(place, node);
            for (const std::size_t child : nodesOf(place, memberOf(node, "children"))) {
                open.emplace_back(child, placement);
            }
            if (node.contains("mesh")) {
                placeMesh(place, memberOf(node, "mesh"), placement,
                          progress.part(done / nodes, (done + 1.0) / nodes));
            }
            progress.report(++done / nodes);
        }
        scene.warnings = warnings.lines();
        return std::move(scene);
    }

  private:
    [[nodiscard]] std::vector<std::size_t> nodesOf(const std::string& place, const json& list) const {
        std::vector<std::size_t> numbers;
        for (const json& number : list) {
            static_cast<void>(file.element(place, "nodes", number));
            numbers.push_back(number.get<std::size_t>());
        }
        return numbers;
    }

    /// Of the scene that is to be shown; without scenes, all nodes without a parent.
    [[nodiscard]] std::vector<std::size_t> roots() const {
        if (file.count("scenes") > 0) {
            const json& number = file.top("scene");
            const json first = 0U;
            const json& chosen = file.element("file", "scenes", number.is_null() ? first : number);
            return nodesOf("scene", memberOf(chosen, "nodes"));
        }
        std::vector<bool> hasParent(file.count("nodes"));
        for (std::size_t i = 0; i < hasParent.size(); ++i) {
            const std::string place = "node " + std::to_string(i);
            for (const std::size_t child :
                 nodesOf(place, memberOf(file.element(place, "nodes", i), "children"))) {
                hasParent[child] = true;
            }
        }
        std::vector<std::size_t> numbers(hasParent.size());
        std::iota(numbers.begin(), numbers.end(), 0U);
        std::erase_if(numbers, [&hasParent](std::size_t number) { return hasParent[number]; });
        return numbers;
    }

    void placeMesh(const std::string& node, const json& number, const GltfPlacement& placement,
                   const ProgressStretch& progressOfMesh) {
        const json& mesh = file.element(node, "meshes", number);
        const std::string place = "mesh " + number.dump();
        const json& primitives = memberOf(mesh, "primitives");
        const auto count = static_cast<double>(primitives.size());
        double done = 0.0;
        for (const json& primitive : primitives) {
            if (!primitive.is_object()) {
                refuse(place, "a primitive is not an object");
            }
            placePrimitive(place, primitive, placement,
                           progressOfMesh.part(done / count, (done + 1.0) / count));
            ++done;
        }
    }

    /// An attribute that may be missing, one element a vertex.
    /// @param shown makes it of three numbers.
    template <class Shown>
    [[nodiscard]] auto attributeOf(const std::string& place, const json& attributes, const char* name,
                                   std::size_t widest, std::size_t vertices, const Shown& shown) const {
        std::vector<decltype(shown(0.0, 0.0, 0.0))> elements;
        if (attributes.contains(name)) {
            const auto [width, values] = file.numbers(place, attributes[name], 3, widest);
            if (values.size() / width != vertices) {
                refuse(place, "its attribute " + inQuotes(name) + " and its positions differ in length");
            }
            elements.reserve(vertices);
            for (std::size_t i = 0; i < values.size(); i += width) {
                elements.push_back(shown(values[i], values[i + 1], values[i + 2]));
            }
        }
        return elements;
    }

    void placePrimitive(const std::string& place, const json& primitive, const GltfPlacement& placement,
                        const ProgressStretch& progressOfPrimitive) {
        const json& attributes = memberOf(primitive, "attributes");
        if (!attributes.contains("POSITION")) {
            refuse(place, "it has no positions");
        }
        Points positions = positionsOf(place, attributes, placement, progressOfPrimitive.part(0.0, 0.5));
        const std::uint64_t mode = wholeOf(place, primitive, "mode", Triangles);
        if (mode > TriangleFan) {
            refuse(place, "unknown primitive mode " + std::to_string(mode));
        }
        const std::vector<std::uint32_t> corners =
            cornersOf(place, primitive, positions.size(), progressOfPrimitive.part(0.5, 1.0));
        std::vector<qel::QelColor3f> colors =
            attributeOf(place, attributes, "COLOR_0", 4, positions.size(), shownColor);
        if (mode == Dots) {
            placeDots(corners, positions, colors);
        } else if (mode < Triangles) {
            placeLines(corners, positions, mode);
        } else {
            TriangleMesh mesh;
            mesh.indices = trianglesOf(corners, mode);
            mesh.positions = std::move(positions);
            mesh.colors = std::move(colors);
            if (primitive.contains("material")) {
                showMaterial(mesh, place, file.element(place, "materials", primitive["material"]),
                             attributes);
            }
            mesh.normals = attributeOf(place, attributes, "NORMAL", 3, mesh.positions.size(),
                                       [&](double x, double y, double z) {
                                           return unitNormal(placement.normal({x, y, z}));
                                       });
            if (!mesh.indices.empty()) {
                scene.meshes.push_back(std::move(mesh));
            }
        }
    }

    [[nodiscard]] Points positionsOf(const std::string& place, const json& attributes,
                                     const GltfPlacement& placement,
                                     const ProgressStretch& progressOfPositions) {
        const GltfNumbers numbers = file.numbers(place, attributes["POSITION"], 3, 3);
        addCorners(place, numbers.count());
        Points positions;
        positions.reserve(numbers.count());
        for (std::size_t i = 0; i < numbers.values.size(); i += 3) {
            progressOfPositions.reportPiece(positions.size(), numbers.count());
            const qel::XPnt3d point =
                placement.point({numbers.values[i], numbers.values[i + 1], numbers.values[i + 2]});
            for (const double coordinate : {point.x, point.y, point.z}) {
                if (const std::string fault = faultOfCoordinate(coordinate); !fault.empty()) {
                    refuse(place + ", vertex " + std::to_string(i / 3), "a coordinate " + fault);
                }
            }
            positions.push_back(point);
        }
        return positions;
    }

    void addCorners(const std::string& place, std::uint64_t count) {
        cornersPlaced += count;
        if (cornersPlaced > mostCorners) {
            refuse(place,
                   "with this mesh, the nodes have more than " + std::to_string(mostCorners) + " corners");
        }
    }

    /// Without indices, the vertices in their order.
    [[nodiscard]] std::vector<std::uint32_t> cornersOf(const std::string& place, const json& primitive,
                                                       std::size_t vertices,
                                                       const ProgressStretch& progressOfCorners) {
        std::vector<std::uint32_t> corners;
        if (!primitive.contains("indices")) {
            corners.resize(vertices);
            std::iota(corners.begin(), corners.end(), 0U);
            return corners;
        }
        const GltfNumbers numbers = file.numbers(place, primitive["indices"], 1, 1);
        addCorners(place, numbers.count());
        corners.reserve(numbers.count());
        for (const double index : numbers.values) {
            progressOfCorners.reportPiece(corners.size(), numbers.count());
            if (!(index >= 0.0 && index < static_cast<double>(vertices)) || index != std::floor(index)) {
                refuse(place, "an index is out of range: there are " + std::to_string(vertices) +
                                  " vertices, counted from 0");
            }
            corners.push_back(static_cast<std::uint32_t>(index));
        }
        return corners;
    }

    void showMaterial(TriangleMesh& mesh, const std::string& place, const json& material,
                      const json& attributes) {
        std::array<double, 3> color{1.0, 1.0, 1.0};
        readNumbers(place, memberOf(material, "pbrMetallicRoughness"), "baseColorFactor", color);
        const json& gloss = memberOf(memberOf(material, "extensions"), "KHR_materials_pbrSpecularGlossiness");
        readNumbers(place, gloss, "diffuseFactor", color);
        mesh.color = shownColor(color[0], color[1], color[2]);
        try {
            textures.dress(mesh, place, material, attributes);
        } catch (const ReadError& error) {
            warnings.add("texture", error.what());
        }
    }

    void placeLines(const std::vector<std::uint32_t>& corners, const Points& positions, std::uint64_t mode) {
        Polyline polyline;
        polyline.style = kLinesOfMeshFiles;
        Points part;
        for (const std::uint32_t corner : corners) {
            part.push_back(positions[corner]);
            if (mode == Lines && part.size() == 2) {
                polyline.parts.push_back(std::exchange(part, {}));
            }
        }
        if (mode != Lines && part.size() > 1) {
            if (mode == LineLoop) {
                part.push_back(part.front());
            }
            polyline.parts.push_back(std::move(part));
        }
        if (!polyline.parts.empty()) {
            scene.polylines.push_back(std::move(polyline));
        }
    }

    void placeDots(const std::vector<std::uint32_t>& corners, const Points& positions,
                   const std::vector<qel::QelColor3f>& colors) {
        PointCloud cloud;
        for (const std::uint32_t corner : corners) {
            cloud.positions.push_back(positions[corner]);
            if (!colors.empty()) {
                cloud.colors.push_back(colorOfDot(colors[corner]));
            }
        }
        scene.clouds.push_back(std::move(cloud));
    }

    const GltfFile& file;
    GltfTextures textures;
    Warnings warnings;
    ProgressStretch progress;
    Scene scene;
    std::uint64_t mostCorners;
    std::uint64_t cornersPlaced = 0;
};

}  // namespace

Scene readGltf(std::string_view bytes, const std::filesystem::path& file, const ProgressStretch& progress,
               std::uint64_t mostCorners) {
    const GltfFile gltf(bytes, file);
    Scene scene = GltfReading(gltf, file, progress, mostCorners).run();
    scene.up = UpAxis::Y;
    scene.isUpKnown = true;
    return scene;
}

}  // namespace qelview
