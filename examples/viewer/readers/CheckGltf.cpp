#include <algorithm>
#include <cctype>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "ByteOrder.h"
#include "CheckMeshFiles.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

using nlohmann::json;

constexpr std::string_view kDataScheme = "data:";
constexpr std::string_view kBase64 = ";base64,";

bool isOfBase64(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '+' || character == '/';
}

bool isBase64(std::string_view text) {
    const std::size_t padded = text.size();
    for (int i = 0; i < 2 && text.ends_with('='); ++i) {
        text.remove_suffix(1);
    }
    return padded % 4 == 0 && std::all_of(text.begin(), text.end(), isOfBase64);
}

/// A file beside the model or below: a model must not reach for what lies elsewhere, least of all on another
/// machine, which would be told who asks.
bool isNameBeside(std::string_view name) {
    const bool isAbsolute = name.starts_with('/') || name.starts_with('\\');
    const bool hasScheme = name.find(':') != std::string_view::npos;
    return !name.empty() && !isAbsolute && !hasScheme && name.find("..") == std::string_view::npos;
}

void checkUri(const std::string& place, const std::string& uri) {
    if (!uri.starts_with(kDataScheme)) {
        if (!isNameBeside(uri)) {
            refuse(place, qelview::quoted(uri) + " is not a file beside this one");
        }
        return;
    }
    const std::size_t mark = uri.find(kBase64);
    if (mark == std::string::npos || !isBase64(std::string_view(uri).substr(mark + kBase64.size()))) {
        refuse(place, "its data are not Base64 text");
    }
}

/// Of buffers and of images, which the importer decodes both.
void checkUris(const json& root, const char* section) {
    const auto found = root.find(section);
    if (found == root.end() || !found->is_array()) {
        return;
    }
    for (std::size_t i = 0; i < found->size(); ++i) {
        const json& element = (*found)[i];
        const auto uri = element.is_object() ? element.find("uri") : element.end();
        if (element.is_object() && uri != element.end() && uri->is_string()) {
            checkUri(std::string(section) + " " + std::to_string(i), uri->get<std::string>());
        }
    }
}

/// The accessor of an attribute or of indices. The importer reads through a null pointer where one has no
/// data.
const json& accessorAt(const json& root, const std::string& place, const json& index) {
    const auto accessors = root.find("accessors");
    const bool isListed = accessors != root.end() && accessors->is_array() && index.is_number_unsigned() &&
                          index.get<std::uint64_t>() < accessors->size();
    if (!isListed) {
        refuse(place, "it names an accessor that does not exist");
    }
    const json& accessor = (*accessors)[index.get<std::size_t>()];
    if (!accessor.is_object() || !accessor.contains("bufferView")) {
        refuse(place, "its accessor " + index.dump() + " has no data");
    }
    return accessor;
}

/// The importer reads as much of every attribute as there are positions.
void checkAttributes(const json& root, const std::string& place, const json& attributes) {
    const json& positions = accessorAt(root, place, attributes["POSITION"]);
    for (const auto& [name, index] : attributes.items()) {
        const json& accessor = accessorAt(root, place, index);
        if (!accessor.contains("count") || !positions.contains("count") ||
            accessor["count"] != positions["count"]) {
            refuse(place, "its attribute " + qelview::quoted(name) + " is not as long as its positions");
        }
    }
}

/// The importer makes faces of primitives without positions too, over vertices that there are none of.
void checkPrimitives(const json& root) {
    const json meshes = root.value("meshes", json::array());
    for (std::size_t i = 0; i < meshes.size() && meshes.is_array(); ++i) {
        const json primitives =
            meshes[i].is_object() ? meshes[i].value("primitives", json::array()) : json::array();
        for (const json& primitive : primitives) {
            const json attributes =
                primitive.is_object() ? primitive.value("attributes", json::object()) : json::object();
            const std::string place = "mesh " + std::to_string(i);
            if (!attributes.is_object() || !attributes.contains("POSITION")) {
                refuse(place, "it has no positions");
            }
            checkAttributes(root, place, attributes);
            if (primitive.contains("indices")) {
                static_cast<void>(accessorAt(root, place, primitive["indices"]));
            }
        }
    }
}

void checkJson(std::string_view text) {
    json root;
    try {
        root = json::parse(text.begin(), text.end());
    } catch (const json::parse_error& error) {
        const std::size_t place = std::min(text.size(), error.byte);
        const auto end = text.begin() + static_cast<std::ptrdiff_t>(place);
        refuse(atLine(1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'))),
               "the JSON text is damaged or ends here");
    } catch (const json::exception&) {
        refuse("file", "a number is too large");
    }
    if (!root.is_object() || !root.contains("asset")) {
        refuse("file", "there is no glTF asset");
    }
    checkPrimitives(root);
    checkUris(root, "buffers");
    checkUris(root, "images");
}

}  // namespace

void checkGltf(std::string_view text, const ProgressStretch& progress) {
    requireText(text);
    checkJson(text);
    progress.report(1.0);
}

void checkGlb(std::string_view bytes, const ProgressStretch& progress) {
    constexpr std::size_t kHeaderSize = 12;
    constexpr std::size_t kChunkHeaderSize = 8;
    constexpr std::size_t kLengthAt = 8;
    if (bytes.size() < kHeaderSize + kChunkHeaderSize || !bytes.starts_with("glTF")) {
        refuse("header", "a binary glTF file begins with glTF, its version and its length");
    }
    const auto wordAt = [bytes](std::size_t place) {
        return readScalar<std::uint32_t>(bytes.data() + place, ByteOrder::Little);
    };
    if (wordAt(kLengthAt) != bytes.size()) {
        refuse("header", "it promises " + std::to_string(wordAt(kLengthAt)) + " bytes, the file has " +
                             std::to_string(bytes.size()));
    }
    const std::uint64_t room = bytes.size() - kHeaderSize - kChunkHeaderSize;
    if (wordAt(kHeaderSize) > room) {
        refuse("first chunk", "it promises " + std::to_string(wordAt(kHeaderSize)) + " bytes, there are " +
                                  std::to_string(room));
    }
    checkJson(bytes.substr(kHeaderSize + kChunkHeaderSize, wordAt(kHeaderSize)));
    progress.report(1.0);
}

}  // namespace qelview
