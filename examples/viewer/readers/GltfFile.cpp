#include "GltfFile.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "Base64.h"
#include "ByteOrder.h"
#include "FileBeside.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

using nlohmann::json;

constexpr std::string_view kMagic = "glTF";
constexpr std::uint64_t kLargestWhole = 4294967295;
/// Of all buffers together, in bytes.
constexpr std::uintmax_t kLargestBuffers = std::uintmax_t{1} << 30U;
constexpr std::string_view kDataScheme = "data:";
constexpr std::string_view kBase64 = ";base64,";

/// "%20" and the like stand for bytes.
std::string withoutPercents(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = 0;
        const bool isCode =
            text[i] == '%' && text.size() - i > 2 &&
            std::from_chars(&text[i + 1], &text[i + 1] + 2, value, 16).ptr == &text[i + 1] + 2;
        plain += isCode ? static_cast<char>(static_cast<std::uint8_t>(value)) : text[i];
        i += isCode ? 2 : 0;
    }
    return plain;
}

/// The bytes of a buffer inside or beside the file, at most `room` in a file of their own.
std::string bytesNamed(const std::string& place, const json& member, const std::filesystem::path& file,
                       std::uintmax_t room) {
    const std::string uri = member.is_string() ? member.get<std::string>() : "";
    std::optional<std::string> bytes;
    if (uri.starts_with(kDataScheme)) {
        const std::size_t mark = uri.find(kBase64);
        if (mark != std::string::npos) {
            bytes = decodeBase64(std::string_view(uri).substr(mark + kBase64.size()));
        }
        if (!bytes) {
            refuse(place, "its data are not Base64 text");
        }
        return std::move(*bytes);
    }
    const std::string name = withoutPercents(uri);
    if (!isNameBeside(name)) {
        refuse(place, qelview::quoted(name) + " is not a file beside this one");
    }
    bytes = bytesBeside(file, name, room);
    if (!bytes) {
        refuse(place, "the file " + qelview::quoted(name) + " cannot be read");
    }
    return std::move(*bytes);
}

/// Extensions that change how surfaces look, or how numbers are stored in ways that are read.
bool isExtensionRead(std::string_view name) {
    return name == "KHR_mesh_quantization" || name.starts_with("KHR_materials_") ||
           name.starts_with("KHR_texture_") || name.starts_with("EXT_texture_") ||
           name.starts_with("KHR_lights_");
}

std::size_t widthOf(const std::string& place, const json& type) {
    static constexpr std::array<std::pair<std::string_view, std::size_t>, 4> kTypes{
        {{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4}}};
    const std::string name = type.is_string() ? type.get<std::string>() : "";
    const auto* const found =
        std::find_if(kTypes.begin(), kTypes.end(), [&](const auto& known) { return known.first == name; });
    if (found == kTypes.end()) {
        refuse(place,
               "its accessor is of the type " + qelview::quoted(name) + ", which is not one of vertices");
    }
    return found->second;
}

/// One component, as glTF numbers their types.
class Component {
  public:
    Component(const std::string& place, std::uint64_t typeNumber, bool isShare)
        : type(typeNumber), share(isShare) {
        if (type < kInt8 || type > kFloat || type == kInt32) {
            refuse(place, "its accessor has components of the type " + std::to_string(type));
        }
    }
    [[nodiscard]] std::size_t size() const { return type <= kUint8 ? 1U : type <= kUint16 ? 2U : 4U; }
    [[nodiscard]] double at(const char* from) const {
        switch (type) {
            case kInt8:
                return scaled(readScalar<std::int8_t>(from, ByteOrder::Little), 127.0);
            case kUint8:
                return scaled(readScalar<std::uint8_t>(from, ByteOrder::Little), 255.0);
            case kInt16:
                return scaled(readScalar<std::int16_t>(from, ByteOrder::Little), 32767.0);
            case kUint16:
                return scaled(readScalar<std::uint16_t>(from, ByteOrder::Little), 65535.0);
            case kUint32:
                return scaled(readScalar<std::uint32_t>(from, ByteOrder::Little), 4294967295.0);
            default:
                break;
        }
        return static_cast<double>(readScalar<float>(from, ByteOrder::Little));
    }

  private:
    static constexpr std::uint64_t kInt8 = 5120;
    static constexpr std::uint64_t kUint8 = 5121;
    static constexpr std::uint64_t kInt16 = 5122;
    static constexpr std::uint64_t kUint16 = 5123;
    static constexpr std::uint64_t kInt32 = 5124;
    static constexpr std::uint64_t kUint32 = 5125;
    static constexpr std::uint64_t kFloat = 5126;

    template <class Whole>
    [[nodiscard]] double scaled(Whole value, double largest) const {
        const auto number = static_cast<double>(value);
        return share ? std::max(number / largest, -1.0) : number;
    }

    std::uint64_t type;
    bool share;
};

}  // namespace

const json& memberOf(const json& object, const char* name) {
    static const json none;
    const auto found = object.find(name);
    return found == object.end() ? none : *found;
}

std::uint64_t wholeOf(const std::string& place, const json& object, const char* name, std::uint64_t missing) {
    const json& number = memberOf(object, name);
    if (number.is_null()) {
        return missing;
    }
    if (!number.is_number_unsigned() || number.get<std::uint64_t>() > kLargestWhole) {
        refuse(place, "its " + qelview::quoted(name) + " is not a whole number that can be");
    }
    return number.get<std::uint64_t>();
}

void readNumbers(const std::string& place, const json& object, const char* name, double* numbers,
                 std::size_t count) {
    const json& list = memberOf(object, name);
    if (list.is_null()) {
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!list.is_array() || i >= list.size() || !list[i].is_number()) {
            refuse(place, "its " + qelview::quoted(name) + " are not " + std::to_string(count) + " numbers");
        }
        numbers[i] = list[i].get<double>();
    }
}

GltfFile::GltfFile(std::string_view bytes, const std::filesystem::path& file) {
    std::string_view binaryChunk;
    if (bytes.starts_with(kMagic)) {
        binaryChunk = parseBinary(bytes);
    } else {
        requireText(bytes);
        parse(bytes);
    }
    checkVersion();
    readBuffers(file, binaryChunk);
}

std::string_view GltfFile::parseBinary(std::string_view bytes) {
    constexpr std::size_t kHeaderSize = 12;
    constexpr std::size_t kChunkHeaderSize = 8;
    constexpr std::size_t kLengthAt = 8;
    if (bytes.size() < kHeaderSize + kChunkHeaderSize) {
        refuse("header", "a binary glTF file begins with glTF, its version, its length and a first chunk");
    }
    const auto wordAt = [bytes](std::size_t place) {
        return readScalar<std::uint32_t>(bytes.data() + place, ByteOrder::Little);
    };
    if (wordAt(kLengthAt) != bytes.size()) {
        refuse("header", "it promises " + std::to_string(wordAt(kLengthAt)) + " bytes, the file has " +
                             std::to_string(bytes.size()));
    }
    const auto takeChunk = [&](const std::string& place) {
        const std::size_t room = bytes.size() - kChunkHeaderSize;
        const std::uint32_t length = readScalar<std::uint32_t>(bytes.data(), ByteOrder::Little);
        if (length > room) {
            refuse(place,
                   "it promises " + std::to_string(length) + " bytes, there are " + std::to_string(room));
        }
        const std::string_view chunk = bytes.substr(kChunkHeaderSize, length);
        bytes.remove_prefix(kChunkHeaderSize + length);
        return chunk;
    };
    bytes.remove_prefix(kHeaderSize);
    parse(takeChunk("first chunk"));
    return bytes.size() < kChunkHeaderSize ? std::string_view() : takeChunk("second chunk");
}

void GltfFile::parse(std::string_view text) {
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
}

void GltfFile::checkVersion() const {
    const json& asset = root.is_object() ? memberOf(root, "asset") : root;
    if (!root.is_object() || !asset.is_object()) {
        refuse("file", "there is no glTF asset");
    }
    const json& version = memberOf(asset, "version");
    if (!version.is_string() || !version.get<std::string>().starts_with("2.")) {
        refuse("file", "it is not of version 2 of glTF");
    }
    for (const json& extension : top("extensionsRequired")) {
        if (!extension.is_string() || !isExtensionRead(extension.get<std::string>())) {
            refuse("file", "it needs the extension " +
                               qelview::quoted(extension.is_string() ? extension.get<std::string>() : "") +
                               ", which is not read");
        }
    }
}

const json& GltfFile::top(const char* name) const {
    return memberOf(root, name);
}

std::size_t GltfFile::count(const char* list) const {
    const json& elements = top(list);
    return elements.is_array() ? elements.size() : 0;
}

const json& GltfFile::element(const std::string& place, const char* list, const json& index) const {
    const bool isListed = index.is_number_unsigned() && index.get<std::uint64_t>() < count(list);
    if (!isListed || !top(list)[index.get<std::size_t>()].is_object()) {
        refuse(place, "it names one of the " + std::string(list) + " that does not exist");
    }
    return top(list)[index.get<std::size_t>()];
}

void GltfFile::readBuffers(const std::filesystem::path& file, std::string_view binaryChunk) {
    std::uintmax_t room = kLargestBuffers;
    for (std::size_t i = 0; i < count("buffers"); ++i) {
        const std::string place = "buffer " + std::to_string(i);
        const json& buffer = element(place, "buffers", i);
        // The chunk of a binary file is its first buffer, if that has no other place.
        std::string bytes = i == 0 && memberOf(buffer, "uri").is_null()
                                ? std::string(binaryChunk)
                                : bytesNamed(place, memberOf(buffer, "uri"), file, room);
        const std::uint64_t promised = wholeOf(place, buffer, "byteLength", 0);
        if (promised > bytes.size()) {
            refuse(place, "it promises " + std::to_string(promised) + " bytes, there are " +
                              std::to_string(bytes.size()));
        }
        room -= std::min<std::uintmax_t>(room, bytes.size());
        buffers.push_back(std::move(bytes));
    }
}

std::string_view GltfFile::viewOf(const std::string& place, const json& view) const {
    const std::uint64_t number = wholeOf(place, view, "buffer", kLargestWhole);
    if (number >= buffers.size()) {
        refuse(place, "it lies in a buffer that does not exist");
    }
    const std::string_view buffer = buffers[static_cast<std::size_t>(number)];
    const std::uint64_t offset = wholeOf(place, view, "byteOffset", 0);
    const std::uint64_t length = wholeOf(place, view, "byteLength", 0);
    if (offset > buffer.size() || length > buffer.size() - offset) {
        refuse(place, "it lies beyond the end of its buffer");
    }
    return buffer.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

GltfNumbers GltfFile::numbers(const std::string& place, const json& accessor, std::size_t narrowest,
                              std::size_t widest) const {
    const json& its = element(place, "accessors", accessor);
    const std::string itsPlace = place + ", accessor " + accessor.dump();
    if (!its.contains("bufferView") || its.contains("sparse")) {
        refuse(itsPlace, its.contains("sparse") ? "sparse numbers are not read" : "it has no data");
    }
    const std::size_t width = widthOf(itsPlace, memberOf(its, "type"));
    if (width < narrowest || width > widest) {
        refuse(itsPlace, "its elements have " + std::to_string(width) + " numbers");
    }
    const json& view = element(itsPlace, "bufferViews", memberOf(its, "bufferView"));
    const Component component(itsPlace, wholeOf(itsPlace, its, "componentType", 0),
                              memberOf(its, "normalized") == true);
    const std::uint64_t size = width * component.size();
    const std::uint64_t stride = std::max(size, wholeOf(itsPlace, view, "byteStride", size));
    const std::uint64_t elements = wholeOf(itsPlace, its, "count", 0);
    const std::uint64_t offset = wholeOf(itsPlace, its, "byteOffset", 0);
    const std::string_view bytes = viewOf(itsPlace, view);
    // Each factor is below 2^32, so that nothing overflows.
    if (elements == 0 || offset + stride * (elements - 1) + size > bytes.size()) {
        refuse(itsPlace, elements == 0 ? "it has no elements" : "it lies beyond the end of its buffer");
    }
    GltfNumbers numbers{width, {}};
    numbers.values.reserve(static_cast<std::size_t>(elements) * width);
    for (std::uint64_t i = 0; i < elements; ++i) {
        const char* const first = bytes.data() + offset + i * stride;
        for (std::size_t k = 0; k < width; ++k) {
            numbers.values.push_back(component.at(first + k * component.size()));
        }
    }
    return numbers;
}

}  // namespace qelview
