#include "GltfFile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "ByteOrder.h"
#include "FileBytes.h"
#include "GltfUri.h"
#include "JsonText.h"
#include "ReadError.h"
#include "ScalarType.h"
#include "TextLines.h"

namespace qelview {

namespace {

using nlohmann::json;

constexpr std::string_view kMagic = "glTF";
constexpr std::uint64_t kLargestWhole = 4294967295;
/// Of all buffers together, in bytes.
constexpr std::uintmax_t kLargestBuffers = std::uintmax_t{1} << 30U;

/// The bytes of a buffer in the file or next to it, at most `room` in a separate file.
std::string bytesNamed(const std::string& place, const json& member, const std::filesystem::path& file,
                       std::uintmax_t room) {
    const std::string_view uri = textOf(member);
    std::optional<std::string> bytes = dataOf(place, uri);
    if (bytes) {
        return std::move(*bytes);
    }
    const std::string name = percentDecode(uri);
    if (!isSiblingName(name)) {
        refuse(place, inQuotes(name) + " is not a file next to the model");
    }
    bytes = siblingBytes(file, name, room);
    if (!bytes) {
        refuse(place, "the file " + inQuotes(name) + " cannot be read");
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
    const std::string_view name = textOf(type);
    for (const auto& [known, width] : kTypes) {
        if (known == name) {
            return width;
        }
    }
    refuse(place, "its accessor is of the type " + inQuotes(name) + ", which is not one of vertices");
}

/// The type that glTF gives a number to.
ScalarType typeOf(const std::string& place, std::uint64_t number) {
    constexpr std::uint64_t kFirst = 5120;
    constexpr std::array<std::optional<ScalarType>, 7> kTypes{
        ScalarType::Int8, ScalarType::Uint8,  ScalarType::Int16,  ScalarType::Uint16,
        std::nullopt,     ScalarType::Uint32, ScalarType::Float32};
    const bool isKnown = number >= kFirst && number - kFirst < kTypes.size() && kTypes.at(number - kFirst);
    if (!isKnown) {
        refuse(place, "unknown component type " + std::to_string(number));
    }
    return *kTypes.at(number - kFirst);
}

}  // namespace

std::uint64_t wholeOf(const std::string& place, const json& object, const char* name, std::uint64_t missing) {
    const json& number = memberOf(object, name);
    if (number.is_null()) {
        return missing;
    }
    if (!number.is_number_unsigned() || number.get<std::uint64_t>() > kLargestWhole) {
        refuse(place, "its " + inQuotes(name) + " is not a valid integer");
    }
    return number.get<std::uint64_t>();
}

void readNumbers(const std::string& place, const json& object, const char* name, std::span<double> numbers) {
    const json& list = memberOf(object, name);
    if (list.is_null()) {
        return;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!list.is_array() || i >= list.size() || !list[i].is_number()) {
            refuse(place,
                   "its " + inQuotes(name) + " are not " + std::to_string(numbers.size()) + " numbers");
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
        root = parseJson(bytes);
    }
    checkVersion();
    readBuffers(file, binaryChunk);
}

std::string_view GltfFile::parseBinary(std::string_view bytes) {
    constexpr std::size_t kHeaderSize = 12;
    constexpr std::size_t kChunkHeaderSize = 8;
    constexpr std::size_t kLengthAt = 8;
    if (bytes.size() < kHeaderSize + kChunkHeaderSize) {
        refuse("header", "too short for a binary glTF file");
    }
    const auto wordAt = [bytes](std::size_t place) {
        return readScalar<std::uint32_t>(bytes.data() + place, ByteOrder::Little);
    };
    if (wordAt(kLengthAt) != bytes.size()) {
        refuse("header", "it declares " + std::to_string(wordAt(kLengthAt)) + " bytes, the file has " +
                             std::to_string(bytes.size()));
    }
    const auto takeChunk = [&](const std::string& place) {
        const std::size_t room = bytes.size() - kChunkHeaderSize;
        const std::uint32_t length = readScalar<std::uint32_t>(bytes.data(), ByteOrder::Little);
        if (length > room) {
            refuse(place,
                   "it declares " + std::to_string(length) + " bytes, there are " + std::to_string(room));
        }
        const std::string_view chunk = bytes.substr(kChunkHeaderSize, length);
        bytes.remove_prefix(kChunkHeaderSize + length);
        return chunk;
    };
    bytes.remove_prefix(kHeaderSize);
    root = parseJson(takeChunk("first chunk"));
    return bytes.size() < kChunkHeaderSize ? std::string_view() : takeChunk("second chunk");
}

void GltfFile::checkVersion() const {
    const json& asset = memberOf(root, "asset");
    if (!asset.is_object()) {
        refuse("file", "not a glTF asset");
    }
    if (!textOf(memberOf(asset, "version")).starts_with("2.")) {
        refuse("file", "only version 2 of glTF is supported");
    }
    for (const json& extension : top("extensionsRequired")) {
        if (!isExtensionRead(textOf(extension))) {
            refuse("file",
                   "it requires the extension " + inQuotes(textOf(extension)) + ", which is not supported");
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
        refuse(place, "its index into " + inQuotes(list) + " is out of range");
    }
    return top(list)[index.get<std::size_t>()];
}

void GltfFile::readBuffers(const std::filesystem::path& file, std::string_view binaryChunk) {
    std::uintmax_t room = kLargestBuffers;
    for (std::size_t i = 0; i < count("buffers"); ++i) {
        const std::string place = "buffer " + std::to_string(i);
        const json& buffer = element(place, "buffers", i);
        // The chunk of a binary file is its first buffer, if that has no other place.
        const json& uri = memberOf(buffer, "uri");
        if (i != 0 || !uri.is_null()) {
            decoded.push_back(bytesNamed(place, uri, file, room));
        }
        const std::string_view bytes = i == 0 && uri.is_null() ? binaryChunk : decoded.back();
        const std::uint64_t declared = wholeOf(place, buffer, "byteLength", 0);
        if (declared > bytes.size()) {
            refuse(place, "it declares " + std::to_string(declared) + " bytes, there are " +
                              std::to_string(bytes.size()));
        }
        room -= std::min<std::uintmax_t>(room, bytes.size());
        buffers.push_back(bytes);
    }
}

std::string_view GltfFile::viewOf(const std::string& place, const json& view) const {
    const std::uint64_t number = wholeOf(place, view, "buffer", kLargestWhole);
    if (number >= buffers.size()) {
        refuse(place, "its buffer does not exist");
    }
    const std::string_view buffer = buffers[static_cast<std::size_t>(number)];
    const std::uint64_t offset = wholeOf(place, view, "byteOffset", 0);
    const std::uint64_t length = wholeOf(place, view, "byteLength", 0);
    if (offset > buffer.size() || length > buffer.size() - offset) {
        refuse(place, "it extends beyond the end of its buffer");
    }
    return buffer.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

GltfNumbers GltfFile::numbers(const std::string& place, const json& accessor, std::size_t narrowest,
                              std::size_t widest) const {
    const json& its = element(place, "accessors", accessor);
    const std::string itsPlace = place + ", accessor " + accessor.dump();
    if (!its.contains("bufferView") || its.contains("sparse")) {
        refuse(itsPlace, its.contains("sparse") ? "sparse accessors are not supported" : "it has no data");
    }
    const std::size_t width = widthOf(itsPlace, memberOf(its, "type"));
    if (width < narrowest || width > widest) {
        refuse(itsPlace, "its elements have " + std::to_string(width) + " components");
    }
    const json& view = element(itsPlace, "bufferViews", memberOf(its, "bufferView"));
    const ScalarType type = typeOf(itsPlace, wholeOf(itsPlace, its, "componentType", 0));
    const bool areShares = memberOf(its, "normalized") == true && type != ScalarType::Float32;
    const ScalarReading& reading = readingOf(type);
    const std::uint64_t size = width * reading.size;
    const std::uint64_t stride = std::max(size, wholeOf(itsPlace, view, "byteStride", size));
    const std::uint64_t elements = wholeOf(itsPlace, its, "count", 0);
    const std::uint64_t offset = wholeOf(itsPlace, its, "byteOffset", 0);
    const std::string_view bytes = viewOf(itsPlace, view);
    // Each factor is below 2^32, so that nothing overflows.
    if (elements == 0 || offset + stride * (elements - 1) + size > bytes.size()) {
        refuse(itsPlace, elements == 0 ? "it has no elements" : "it extends beyond the end of its buffer");
    }
    GltfNumbers numbers{width, {}};
    numbers.values.reserve(static_cast<std::size_t>(elements) * width);
    for (std::uint64_t i = 0; i < elements; ++i) {
        const char* const first = bytes.data() + offset + i * stride;
        for (std::size_t k = 0; k < width; ++k) {
            const double number = reading.read(first + k * reading.size, ByteOrder::Little);
            // The lowest of a signed type lies beyond -1 by one step.
            numbers.values.push_back(areShares ? std::max(number / reading.maxValue, -1.0) : number);
        }
    }
    return numbers;
}

}  // namespace qelview
