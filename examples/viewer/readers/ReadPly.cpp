#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ByteOrder.h"
#include "MeshFaces.h"
#include "MeshLook.h"
#include "ModelImages.h"
#include "PlyBody.h"
#include "PlyHeader.h"
#include "PlyVertices.h"
#include "ReadError.h"
#include "ReadMesh.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

/// What a count of 32 bits can say; an ASCII file could write more.
constexpr double kLongestList = 4294967295.0;
/// Values of one property that are converted at a time: few enough to stay in the processor's cache.
constexpr std::size_t kBlock = 1024;

bool hasFaces(const PlyHeader& header) {
    return std::any_of(header.elements.begin(), header.elements.end(), [](const PlyElement& element) {
        return element.count > 0 && (uses(element, PlyUse::Corners) || uses(element, PlyUse::Strips));
    });
}

/// The first image that the header names, if faces show it.
std::shared_ptr<const Texture> textureOf(const PlyHeader& header, const std::filesystem::path& file,
                                         Warnings& warnings) {
    if (header.textureFiles.empty() || !hasFaces(header)) {
        return nullptr;
    }
    if (!uses(*header.find("vertex"), PlyUse::TexCoord)) {
        warnings.add("header", "a texture without texture coordinates of vertices is left out");
        return nullptr;
    }
    if (header.textureFiles.size() > 1) {
        warnings.add("header", "textures after the first one are left out");
    }
    try {
        return std::make_shared<const Texture>(Texture{ModelImages(file).fileNamed(header.textureFiles[0])});
    } catch (const ReadError& error) {
        warnings.add("header", error.what());
        return nullptr;
    }
}

class PlyReading {
  public:
    PlyReading(PlyBody& bodyOfFile, const PlyHeader& fileHeader, std::shared_ptr<const Texture> textureOfFile,
               Warnings& warningsOfFile, const ProgressStretch& progressOfFile)
        : body(bodyOfFile),
          header(fileHeader),
          warnings(warningsOfFile),
          progress(progressOfFile),
          vertexElement(*header.find("vertex")),
          haveFaces(hasFaces(header)),
          texture(std::move(textureOfFile)),
          vertices(vertexElement, haveFaces, texture != nullptr) {
        if (texture) {
            color = {1.0F, 1.0F, 1.0F};
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
            if (isVertex) {
                vertices.reserve(std::min(element.count, body.mostInstances(element)));
            }
            if (header.isAscii || element.hasList()) {
                readInstances(element);
            } else {
                readRecords(element);
            }
        }
        if (!body.records().empty()) {
            warnings.add("end of file", std::to_string(body.records().size()) +
                                            " bytes behind the last element are left out");
        }
        return finished();
    }

  private:
    Scene finished() {
        Scene scene;
        if (haveFaces) {
            TriangleMesh mesh = vertices.takeMesh();
            mesh.color = color;
            mesh.texture = texture;
            giveFaces(mesh, faces, warnings);
            addMeshOrCloud(scene, std::move(mesh));
        } else {
            scene.clouds.push_back(vertices.takeCloud());
        }
        scene.warnings = warnings.lines();
        return scene;
    }

    void readInstances(const PlyElement& element) {
        for (std::uint64_t index = 0; index < element.count; ++index) {
            body.beginInstance(element, index);
            if (const std::uint64_t triangles = readTriangles(element, index); triangles > 0) {
                index += triangles - 1;
                continue;
            }
            if (isVertex) {
                vertices.resize(index + 1);
            }
            for (std::size_t i = 0; i < meanings.size(); ++i) {
                const PlyProperty& property = element.properties[i];
                if (property.countType) {
                    readList(property, meanings[i].use);
                } else {
                    const double value = body.next(property.type);
                    if (takeColumn(property, meanings[i], index, &value, 1) == 0) {
                        refuseCoordinate(property, value);
                    }
                }
            }
            body.endInstance();
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
        const std::string_view records = body.records();
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
        body.passRecords(count * kSize);
        return count;
    }

    /// Instances of a fixed size in bytes, one property of a block of them after the other.
    void readRecords(const PlyElement& element) {
        std::size_t size = 0;
        for (const PlyProperty& property : element.properties) {
            size += sizeOf(property.type);
        }
        const std::string_view records = body.records();
        const std::uint64_t whole = std::min<std::uint64_t>(element.count, records.size() / size);
        if (isVertex) {
            vertices.resize(whole);
        }
        std::array<double, kBlock> values;
        for (std::uint64_t first = 0; first < whole; first += kBlock) {
            const std::size_t count = std::min<std::uint64_t>(kBlock, whole - first);
            const char* from = records.data() + first * size;
            for (std::size_t i = 0; i < meanings.size(); ++i) {
                const PlyProperty& property = element.properties[i];
                if (meanings[i].use != PlyUse::None) {
                    readColumn(property.type, from, size, count, header.byteOrder, values.data());
                    const std::size_t sound = takeColumn(property, meanings[i], first, values.data(), count);
                    if (sound < count) {
                        body.beginInstance(element, first + sound);
                        refuseCoordinate(property, values.at(sound));
                    }
                }
                from += sizeOf(property.type);
            }
            progress.reportPiece(first, whole);
        }
        if (whole < element.count) {
            body.beginInstance(element, whole);
            body.refuseHere("the file ends here");
        }
        body.passRecords(whole * size);
    }

    /// How many values from the first on can be shown.
    std::size_t takeColumn(const PlyProperty& property, const PlyMeaning& meaning, std::uint64_t first,
                           const double* values, std::size_t count) {
        if (isVertex) {
            return vertices.setColumn(meaning, property.type, first, values, count);
        }
        if (meaning.use == PlyUse::MaterialColor && first == 0) {
            constexpr std::array<float qel::QelColor3f::*, 3> kChannels{
                &qel::QelColor3f::r, &qel::QelColor3f::g, &qel::QelColor3f::b};
            if (!hasMaterial) {
                color = {0.0F, 0.0F, 0.0F};
                hasMaterial = true;
            }
            color.*kChannels.at(meaning.axis) = shownShare(values[0] / maxValueOf(property.type));
        }
        return count;
    }

    void refuseCoordinate(const PlyProperty& property, double value) const {
        body.refuseHere("the coordinate " + property.name + " " + faultOfCoordinate(value));
    }

    void readList(const PlyProperty& property, PlyUse use) {
        const double length = body.next(*property.countType);
        if (!(length >= 0.0 && length <= kLongestList) || length != std::floor(length)) {
            body.refuseHere("a list cannot have " + std::to_string(length) + " values");
        }
        corners.clear();
        const auto count = static_cast<std::uint64_t>(length);
        for (std::uint64_t i = 0; i < count; ++i) {
            const double value = body.next(property.type);
            if (use == PlyUse::Strips && value == -1.0) {
                addStrip();
            } else if (use == PlyUse::Corners || use == PlyUse::Strips) {
                corners.push_back(cornerOf(value));
            }
        }
        if (use == PlyUse::Strips) {
            addStrip();
        } else if (use == PlyUse::Corners && corners.size() < 3) {
            warnings.add(body.here(), "a face of fewer than 3 vertices is left out");
        } else if (use == PlyUse::Corners) {
            faces.add(corners);
        }
    }

    std::uint32_t cornerOf(double index) const {
        const std::uint64_t count = vertexElement.count;
        if (!(index >= 0.0 && index < static_cast<double>(count)) || index != std::floor(index)) {
            const std::string named =
                std::isfinite(index) ? std::to_string(static_cast<long long>(std::clamp(index, -1e15, 1e15)))
                                     : "without a number";
            body.refuseHere("vertex " + named + " does not exist: there are " + std::to_string(count) +
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

    PlyBody& body;
    const PlyHeader& header;
    Warnings& warnings;
    ProgressStretch progress;
    const PlyElement& vertexElement;
    bool haveFaces;
    /// Null for none.
    std::shared_ptr<const Texture> texture;
    PlyVertices vertices;
    MeshFaces faces;
    bool hasMaterial = false;
    qel::QelColor3f color = TriangleMesh().color;
    /// Of the properties of the element at work.
    std::vector<PlyMeaning> meanings;
    bool isVertex = false;
    std::vector<std::uint32_t> corners;
};

}  // namespace

Scene readPly(std::string_view bytes, const std::filesystem::path& file, const ProgressStretch& progress) {
    Warnings warnings;
    const PlyHeader header = readPlyHeader(bytes, warnings);
    const std::unique_ptr<PlyBody> body = bodyOf(bytes, header, warnings, progress);
    return PlyReading(*body, header, textureOf(header, file, warnings), warnings, progress).run();
}

}  // namespace qelview
