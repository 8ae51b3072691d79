#include "PlyHeader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Progress.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Far more than any real header, so that a binary file without an end of the header is not searched whole.
constexpr std::size_t kLongestHeader = 1 << 20;
/// Each is compared with those before it.
constexpr std::size_t kMostNames = 1000;
constexpr long long kMostInstances = 1LL << 31;

class HeaderReader {
  public:
    HeaderReader(std::string_view bytes, Warnings& warningsOfFile)
        : warnings(warningsOfFile),
          lines(bytes.substr(0, kLongestHeader), ProgressStretch(ignored, 0.0, 1.0)) {}

    PlyHeader run() {
        if (!lines.next() || (lines.line() != "ply" && lines.line() != "PLY")) {
            refuse(atLine(1), "a PLY file begins with the line 'ply'");
        }
        while (lines.next()) {
            splitWords(lines.line(), words);
            if (words.size() == 1 && words[0] == "end_header") {
                return finished();
            }
            if (!words.empty()) {
                readStatement();
            }
        }
        refuse(atLine(lines.number()), "the header has no end_header");
    }

  private:
    PlyHeader finished() {
        if (!hasFormat) {
            lines.refuseLine("the header has no format");
        }
        requireVertices();
        header.bodyBegin = lines.position();
        header.bodyFirstLine = lines.number() + 1;
        return std::move(header);
    }

    void readStatement() {
        const std::string_view keyword = words[0];
        const char first = lowered(keyword.front());
        if (keyword == "format") {
            readFormat();
        } else if (keyword == "element") {
            readElement();
        } else if (keyword == "property") {
            readProperty();
        } else if (first < 'a' || first > 'z') {
            lines.refuseLine(inQuotes(keyword) +
                             " is not a statement of a PLY header; end_header may be missing");
        } else if (keyword == "comment" && words.size() > 2 && words[1] == "TextureFile") {
            header.textureFiles.emplace_back(behindFirstWord(behindFirstWord(lines.line())));
        } else if (keyword != "comment" && keyword != "obj_info") {
            warnings.add(atLine(lines.number()), "unknown statement " + inQuotes(keyword));
        }
    }

    void readFormat() {
        const std::string_view format = words.size() > 1 ? words[1] : "";
        if (format != "ascii" && format != "binary_little_endian" && format != "binary_big_endian") {
            lines.refuseLine("unknown format");
        }
        header.isAscii = format == "ascii";
        header.byteOrder = format == "binary_big_endian" ? ByteOrder::Big : ByteOrder::Little;
        hasFormat = true;
    }

    void readElement() {
        if (words.size() != 3) {
            lines.refuseLine("expected 'element NAME COUNT'");
        }
        const long long count = readWhole(words[2], lines);
        if (count < 0 || count > kMostInstances) {
            lines.refuseLine("invalid count " + inQuotes(words[2]) + " of element " + inQuotes(words[1]));
        }
        if (header.find(words[1]) != nullptr) {
            lines.refuseLine("duplicate element " + inQuotes(words[1]));
        }
        requireFew(header.elements.size());
        header.elements.push_back({std::string(words[1]), static_cast<std::uint64_t>(count), {}});
    }

    void readProperty() {
        const bool isList = words.size() == 5 && words[1] == "list";
        if (header.elements.empty() || (!isList && words.size() != 3)) {
            lines.refuseLine("expected 'property TYPE NAME' below an element");
        }
        PlyProperty property;
        property.name = words.back();
        property.type = readType(words[words.size() - 2]);
        if (isList) {
            property.countType = readType(words[2]);
            if (property.countType == ScalarType::Float32 || property.countType == ScalarType::Float64) {
                lines.refuseLine("the count of a list must be an integer");
            }
        }
        std::vector<PlyProperty>& properties = header.elements.back().properties;
        if (std::any_of(properties.begin(), properties.end(),
                        [&](const PlyProperty& other) { return other.name == property.name; })) {
            lines.refuseLine("duplicate property " + inQuotes(property.name));
        }
        requireFew(properties.size());
        properties.push_back(property);
    }

    void requireFew(std::size_t count) const {
        if (count >= kMostNames) {
            lines.refuseLine("there are more than " + std::to_string(kMostNames) + " elements or properties");
        }
    }

    ScalarType readType(std::string_view word) {
        /// In the order of the types.
        static constexpr std::array<std::array<std::string_view, 3>, 8> kNames{{
            {"char", "int8"},
            {"uchar", "uint8"},
            {"short", "int16"},
            {"ushort", "uint16"},
            {"int", "int32"},
            {"uint", "uint32"},
            {"float", "float32"},
            {"double", "float64", "double64"},
        }};
        const auto* const found = std::find_if(kNames.begin(), kNames.end(), [word](const auto& names) {
            return std::find(names.begin(), names.end(), word) != names.end();
        });
        if (found == kNames.end()) {
            lines.refuseLine("unknown type " + inQuotes(word));
        }
        return static_cast<ScalarType>(found - kNames.begin());
    }

    void requireVertices() {
        const PlyElement* const vertex = header.find("vertex");
        if (vertex == nullptr || vertex->count == 0) {
            lines.refuseLine("the header declares no vertices");
        }
        for (const std::string_view name : {"x", "y", "z"}) {
            const auto isCoordinate = [name](const PlyProperty& property) {
                return property.name == name && !property.countType;
            };
            if (std::none_of(vertex->properties.begin(), vertex->properties.end(), isCoordinate)) {
                lines.refuseLine("vertices have no property " + inQuotes(name));
            }
        }
    }

    Progress ignored;
    Warnings& warnings;
    TextLines lines;
    std::vector<std::string_view> words;
    PlyHeader header;
    bool hasFormat = false;
};

}  // namespace

bool PlyElement::hasList() const {
    return std::any_of(properties.begin(), properties.end(),
                       [](const PlyProperty& property) { return property.countType.has_value(); });
}

std::size_t PlyElement::fewestBytes(bool isAscii) const {
    std::size_t bytes = 0;
    for (const PlyProperty& property : properties) {
        // In text, each value takes a digit and a separator. Lists can be empty, so each takes a length.
        bytes += isAscii ? 2 : readingOf(property.countType.value_or(property.type)).size;
    }
    return bytes;
}

const PlyElement* PlyHeader::find(std::string_view name) const {
    const auto found = std::find_if(elements.begin(), elements.end(),
                                    [name](const PlyElement& element) { return element.name == name; });
    return found == elements.end() ? nullptr : &*found;
}

PlyHeader readPlyHeader(std::string_view bytes, Warnings& warnings) {
    return HeaderReader(bytes, warnings).run();
}

}  // namespace qelview
