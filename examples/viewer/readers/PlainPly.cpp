#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "MeshLook.h"
#include "PlainModel.h"
#include "PlyBody.h"
#include "PlyHeader.h"
#include "PlyWriting.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// What a count of 32 bits can say; an ASCII file could write more.
constexpr double kLongestList = 4294967295.0;

/// What a value of the file is for.
enum class Use : std::uint8_t { None, Position, Normal, Color, MaterialColor, Corners, Strips };

struct Meaning {
    Use use = Use::None;
    std::size_t axis = 0;
};

Meaning meaningOf(const PlyElement& element, const PlyProperty& property) {
    struct Name {
        std::string_view element;
        std::string_view property;
        Meaning meaning;
    };
    static constexpr std::array<Name, 19> kNames{{
        {"vertex", "x", {Use::Position, 0}},
        {"vertex", "y", {Use::Position, 1}},
        {"vertex", "z", {Use::Position, 2}},
        {"vertex", "nx", {Use::Normal, 0}},
        {"vertex", "ny", {Use::Normal, 1}},
        {"vertex", "nz", {Use::Normal, 2}},
        {"vertex", "red", {Use::Color, 0}},
        {"vertex", "green", {Use::Color, 1}},
        {"vertex", "blue", {Use::Color, 2}},
        {"vertex", "r", {Use::Color, 0}},
        {"vertex", "g", {Use::Color, 1}},
        {"vertex", "b", {Use::Color, 2}},
        {"material", "diffuse_red", {Use::MaterialColor, 0}},
        {"material", "diffuse_green", {Use::MaterialColor, 1}},
        {"material", "diffuse_blue", {Use::MaterialColor, 2}},
        {"face", "vertex_indices", {Use::Corners, 0}},
        {"face", "vertex_index", {Use::Corners, 0}},
        {"tristrips", "vertex_indices", {Use::Strips, 0}},
        {"tristrips", "vertex_index", {Use::Strips, 0}},
    }};
    const auto* const found = std::find_if(kNames.begin(), kNames.end(), [&](const Name& name) {
        return name.element == element.name && name.property == property.name;
    });
    if (found == kNames.end()) {
        return {};
    }
    const bool isList = found->meaning.use == Use::Corners || found->meaning.use == Use::Strips;
    return isList == property.countType.has_value() ? found->meaning : Meaning();
}

bool uses(const PlyHeader& header, Use use) {
    return std::any_of(header.elements.begin(), header.elements.end(), [use](const PlyElement& element) {
        return std::any_of(
            element.properties.begin(), element.properties.end(),
            [&](const PlyProperty& property) { return meaningOf(element, property).use == use; });
    });
}

class PlyReading {
  public:
    PlyReading(PlyBody& bodyOfFile, const PlyHeader& fileHeader)
        : body(bodyOfFile),
          header(fileHeader),
          vertexElement(header.find("vertex")),
          materialElement(uses(header, Use::MaterialColor) ? header.find("material") : nullptr),
          plain(uses(header, Use::Normal), uses(header, Use::Color)) {}

    PlainModel run() {
        for (const PlyElement& element : header.elements) {
            if (element.properties.empty()) {
                // Any number of them takes no byte of the file.
                continue;
            }
            std::vector<Meaning> meanings;
            for (const PlyProperty& property : element.properties) {
                meanings.push_back(meaningOf(element, property));
            }
            for (std::uint64_t index = 0; index < element.count; ++index) {
                passInstance(element, meanings, index);
            }
        }
        return {plain.take(), "", color};
    }

  private:
    void passInstance(const PlyElement& element, const std::vector<Meaning>& meanings, std::uint64_t index) {
        vertex = {};
        body.beginInstance(element, index);
        for (std::size_t i = 0; i < meanings.size(); ++i) {
            const PlyProperty& property = element.properties[i];
            if (property.countType) {
                passList(property, meanings[i].use);
            } else {
                passValue(property, meanings[i]);
            }
        }
        body.endInstance();
        if (&element == vertexElement) {
            plain.addVertex(vertex);
        } else if (&element == materialElement && index == 0) {
            color = {shownShare(vertex.color[0]), shownShare(vertex.color[1]), shownShare(vertex.color[2])};
        }
    }

    void passValue(const PlyProperty& property, const Meaning& meaning) {
        const double value = body.next(property.type);
        switch (meaning.use) {
            case Use::Position:
                if (const std::string fault = faultOfCoordinate(value); !fault.empty()) {
                    body.refuseHere("the coordinate " + property.name + " " + fault);
                }
                vertex.position.at(meaning.axis) = value;
                break;
            case Use::Normal:
                vertex.normal.at(meaning.axis) = value;
                break;
            case Use::Color:
            case Use::MaterialColor:
                vertex.color.at(meaning.axis) = value / wholeShareOf(property.type);
                break;
            default:
                break;
        }
    }

    void passList(const PlyProperty& property, Use use) {
        const double length = body.next(*property.countType);
        if (!(length >= 0.0 && length <= kLongestList) || length != std::floor(length)) {
            body.refuseHere("a list cannot have " + std::to_string(length) + " values");
        }
        corners.clear();
        const auto count = static_cast<std::uint64_t>(length);
        for (std::uint64_t i = 0; i < count; ++i) {
            const double value = body.next(property.type);
            if (use == Use::Strips && value == -1.0) {
                passStrip();
            } else if (use == Use::Corners || use == Use::Strips) {
                corners.push_back(cornerOf(value));
            }
        }
        if (use == Use::Strips) {
            passStrip();
        } else if (use == Use::Corners) {
            if (corners.empty()) {
                body.refuseHere("a face without corners");
            }
            plain.addFace(corners);
        }
    }

    std::uint32_t cornerOf(double index) const {
        const std::uint64_t vertices = vertexElement->count;
        if (!(index >= 0.0 && index < static_cast<double>(vertices)) || index != std::floor(index)) {
            const std::string named =
                std::isfinite(index) ? std::to_string(static_cast<long long>(std::clamp(index, -1e15, 1e15)))
                                     : "without a number";
            body.refuseHere("vertex " + named + " does not exist: there are " + std::to_string(vertices) +
                            ", counted from 0");
        }
        return static_cast<std::uint32_t>(index);
    }

    void passStrip() {
        for (std::size_t last = 2; last < corners.size(); ++last) {
            plain.addFace(triangleOfStrip(corners, last));
        }
        corners.clear();
    }

    PlyBody& body;
    const PlyHeader& header;
    const PlyElement* vertexElement;
    /// Null if there is none with a colour.
    const PlyElement* materialElement;
    PlyWriting plain;
    // The importer keeps its colours of PLY files as doubles and hands them out as floats.
    qel::QelColor3f color = TriangleMesh().color;
    PlyVertex vertex;
    std::vector<std::uint32_t> corners;
};

}  // namespace

PlainModel plainPly(std::string bytes, const std::filesystem::path&, const ProgressStretch& progress) {
    const PlyHeader header = readPlyHeader(bytes);
    const std::unique_ptr<PlyBody> body = bodyOf(bytes, header, progress);
    return PlyReading(*body, header).run();
}

}  // namespace qelview
