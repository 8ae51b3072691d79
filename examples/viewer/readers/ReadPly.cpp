#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "ByteOrder.h"
#include "MeshFaces.h"
#include "MeshLook.h"
#include "PlyBody.h"
#include "PlyHeader.h"
#include "PlyTextures.h"
#include "PlyVertices.h"
#include "ReadError.h"
#include "ReadFormats.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

/// What a count of 32 bits can say; an ASCII file could write more.
constexpr double kLongestList = 4294967295.0;
/// Values of one property that are converted at a time: few enough to stay in the processor's cache.
constexpr std::size_t kBlock = 1024;

class PlyReading {
  public:
    PlyReading(std::string_view bytes, const std::filesystem::path& file,
               const ProgressStretch& progressOfFile)
        : header(readPlyHeader(bytes, warnings)),
          body(bodyOf(bytes, header, warnings, progressOfFile)),
          progress(progressOfFile),
          vertexElement(*header.find("vertex")),
          haveFaces(hasFaces(header)),
          texture(textureOfVertices(header, file, warnings)),
          // The header may declare more than the file has room for.
          vertices(
              vertexElement,
              std::min(vertexElement.count, bytes.size() / vertexElement.fewestBytes(header.isAscii) + 1),
              haveFaces, texture != nullptr) {
        if (hasTexturedFaces(header)) {
            texturedFaces.emplace(header.textureFiles, file);
        }
    }

    Scene run() {
        for (const PlyElement& element : header.elements) {
            if (element.properties.empty()) {
                // Any number of them takes no byte of the file.
                continue;
            }
            meanings.clear();
            for (const PlyProperty& property : element.properties) {
                meanings.push_back(meaningOf(element, property));
            }
            isVertex = &element == &vertexElement;
            isFace = uses(element, PlyUse::Corners);
            if (header.isAscii || element.hasList()) {
                readInstances(element);
            } else {
                readRecords(element);
            }
        }
        if (!body->records().empty()) {
            warnings.add("end of file", std::to_string(body->records().size()) +
                                            " bytes behind the last element are left out");
        }
        Scene scene;
        if (haveFaces) {
            placeFaces(scene);
        } else {
            scene.clouds.push_back(vertices.takeCloud());
        }
        scene.warnings = warnings.lines();
        return scene;
    }

  private:
    void placeFaces(Scene& scene) {
        TriangleMesh mesh = vertices.takeMesh();
        if (texturedFaces) {
            scene.meshes = texturedFaces->takeMeshes(mesh, warnings);
            for (TriangleMesh& textured : scene.meshes) {
                textured.color = material.value_or(textured.color);
            }
        }
        if (!scene.meshes.empty() && faces.isEmpty()) {
            return;
        }
        mesh.color = material.value_or(texture ? qel::QelColor3f(1.0F, 1.0F, 1.0F) : mesh.color);
        mesh.texture = texture;
        giveFaces(mesh, faces, warnings);
        addMeshOrCloud(scene, std::move(mesh));
    }

    void readInstances(const PlyElement& element) {
        for (std::uint64_t index = 0; index < element.count; ++index) {
            body->beginInstance(element, index);
            if (const std::uint64_t triangles = readTriangles(element, index); triangles > 0) {
                index += triangles - 1;
                continue;
            }
            for (std::size_t i = 0; i < meanings.size(); ++i) {
                const PlyProperty& property = element.properties[i];
                if (property.countType) {
                    readList(property, meanings[i].use);
                } else {
                    const double value = body->next(property.type);
                    if (takeColumn(property, meanings[i], index, {&value, 1}) == 0) {
                        refuseCoordinate(property, value);
                    }
                }
            }
            body->endInstance();
            if (isFace) {
                addFace();
            }
        }
    }

    /// Triangles as most binary files write them, which are most of the bytes: those that follow and can be
    /// shown, up to a report of progress. Anything else is read value by value.
    /// @return how many.
    std::uint64_t readTriangles(const PlyElement& element, std::uint64_t first) {
        constexpr std::size_t kSize = sizeof(std::uint8_t) + 3 * sizeof(std::uint32_t);
        constexpr std::uint64_t kMost = 65536;
        const PlyProperty& property = element.properties.front();
        const bool isInt = property.type == ScalarType::Int32 || property.type == ScalarType::Uint32;
        if (meanings.size() > 1 || meanings.front().use != PlyUse::Corners || !isInt ||
            property.countType != ScalarType::Uint8) {
            return 0;
        }
        const std::string_view records = body->records();
        const std::uint64_t most = std::min<std::uint64_t>(element.count - first, records.size() / kSize);
        if (first == 0) {
            faces.reserveTriangles(most);
        }
        // A negative number looks like one beyond these.
        const auto vertexCount = std::min<std::uint64_t>(vertexElement.count, 1U << 31U);
        std::uint64_t count = 0;
        for (const char* at = records.data(); count < std::min(most, kMost) && *at == 3; at += kSize) {
            std::array<std::uint32_t, 3> triangle;
            for (std::size_t i = 0; i < triangle.size(); ++i) {
                triangle[i] = readScalar<std::uint32_t>(at + 1 + i * sizeof(std::uint32_t), header.byteOrder);
            }
            if (std::max({triangle[0], triangle[1], triangle[2]}) >= vertexCount) {
                break;
            }
            faces.add(triangle);
            ++count;
        }
        body->passRecords(count * kSize);
        return count;
    }

    /// Instances of a fixed size in bytes, one property of a block of them after the other.
    void readRecords(const PlyElement& element) {
        const std::size_t size = element.fewestBytes(false);
        const std::string_view records = body->records();
        const std::uint64_t whole = std::min<std::uint64_t>(element.count, records.size() / size);
        std::array<double, kBlock> values;
        for (std::uint64_t first = 0; first < whole; first += kBlock) {
            const std::size_t count = std::min<std::uint64_t>(kBlock, whole - first);
            const char* from = records.data() + first * size;
            for (std::size_t i = 0; i < meanings.size(); ++i) {
                const PlyProperty& property = element.properties[i];
                if (meanings[i].use != PlyUse::None) {
                    readingOf(property.type).readColumn(from, size, count, header.byteOrder, values.data());
                    const std::size_t sound =
                        takeColumn(property, meanings[i], first, std::span(values).first(count));
                    if (sound < count) {
                        body->beginInstance(element, first + sound);
                        refuseCoordinate(property, values.at(sound));
                    }
                }
                from += readingOf(property.type).size;
            }
            progress.reportPiece(first, whole);
        }
        if (whole < element.count) {
            body->beginInstance(element, whole);
            body->refuseHere("the file ends here");
        }
        body->passRecords(whole * size);
    }

    /// How many values from the first on can be shown.
    std::size_t takeColumn(const PlyProperty& property, const PlyMeaning& meaning, std::uint64_t first,
                           std::span<const double> values) {
        if (isVertex) {
            return vertices.setColumn(meaning, property.type, first, values);
        }
        if (meaning.use == PlyUse::Image) {
            imageOfFace = values[0];
        } else if (meaning.use == PlyUse::MaterialColor && first == 0) {
            if (!material) {
                material.emplace(0.0F, 0.0F, 0.0F);
            }
            *material.*kChannels.at(meaning.axis) = shownShare(values[0] / readingOf(property.type).maxValue);
        }
        return values.size();
    }

    void refuseCoordinate(const PlyProperty& property, double value) const {
        body->refuseHere("the coordinate " + property.name + " " + faultOfCoordinate(value));
    }

    void readList(const PlyProperty& property, PlyUse use) {
        const double length = body->next(*property.countType);
        if (!(length >= 0.0 && length <= kLongestList) || length != std::floor(length)) {
            body->refuseHere("invalid list length " + std::to_string(length));
        }
        const auto count = static_cast<std::uint64_t>(length);
        for (std::uint64_t i = 0; i < count; ++i) {
            const double value = body->next(property.type);
            if (use == PlyUse::Strips && value == -1.0) {
                addStrip();
            } else if (use == PlyUse::Corners || use == PlyUse::Strips) {
                corners.push_back(cornerOf(value));
            } else if (use == PlyUse::CornerTexCoords && texturedFaces) {
                texCoords.push_back(value);
            }
        }
        if (use == PlyUse::Strips) {
            addStrip();
        }
    }

    /// Of the instance that was read, whose properties can come in any order.
    void addFace() {
        if (!texCoords.empty() && corners.size() >= 3 && texCoords.size() != 2 * corners.size()) {
            warnings.add(body->here(), "a face needs 2 texture coordinates a vertex; it has no texture");
            texCoords.clear();
        }
        if (corners.size() < 3) {
            warnings.add(body->here(), "a face of fewer than 3 vertices is left out");
        } else if (texCoords.empty() || !texturedFaces->add(corners, texCoords, imageOfFace, warnings)) {
            faces.add(corners);
        }
        corners.clear();
        texCoords.clear();
    }

    std::uint32_t cornerOf(double index) const {
        const std::uint64_t count = vertexElement.count;
        if (!(index >= 0.0 && index < static_cast<double>(count)) || index != std::floor(index)) {
            const std::string named =
                std::isfinite(index) ? std::to_string(static_cast<long long>(std::clamp(index, -1e15, 1e15)))
                                     : "without a number";
            body->refuseHere("vertex " + named + " does not exist: there are " + std::to_string(count) +
                             ", counted from 0");
        }
        return static_cast<std::uint32_t>(index);
    }

    void addStrip() {
        for (std::size_t last = 2; last < corners.size(); ++last) {
            faces.add(triangleOfStrip(corners, last));
        }
        corners.clear();
    }

    Warnings warnings;
    PlyHeader header;
    std::unique_ptr<PlyBody> body;
    ProgressStretch progress;
    const PlyElement& vertexElement;
    bool haveFaces;
    /// Of vertices; null for none.
    std::shared_ptr<const Texture> texture;
    PlyVertices vertices;
    /// Those that show no texture, or that of their vertices.
    MeshFaces faces;
    /// Nothing if faces bring no texture coordinates.
    std::optional<PlyTexturedFaces> texturedFaces;
    /// The colour of the first one.
    std::optional<qel::QelColor3f> material;
    /// Of the properties of the element at work.
    std::vector<PlyMeaning> meanings;
    bool isVertex = false;
    bool isFace = false;
    /// Of the face or strip at work.
    std::vector<std::uint32_t> corners;
    /// Of the face at work: u and v of each corner.
    std::vector<double> texCoords;
    double imageOfFace = 0.0;
};

}  // namespace

Scene readPly(std::string_view bytes, const std::filesystem::path& file, const ProgressStretch& progress) {
    return PlyReading(bytes, file, progress).run();
}

}  // namespace qelview
