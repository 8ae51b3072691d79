#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "ReadFormats.h"
#include "viewer/ViewerData.h"

/// A small glTF scene that tests change.

namespace qel::test {

/// A buffer of four corners of a square (VEC3 of floats), four colours (VEC4 of bytes that stand for shares)
/// and the indices 0 1 2 3 (bytes), in the order of its views.
inline nlohmann::json square() {
    return nlohmann::json::parse(R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
        "nodes": [{"mesh": 0}],
        "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, "indices": 2, "mode": 5}]}],
        "accessors": [{"bufferView": 0, "componentType": 5126, "count": 4, "type": "VEC3"},
                      {"bufferView": 1, "componentType": 5121, "count": 4, "type": "VEC4", "normalized": true},
                      {"bufferView": 2, "componentType": 5121, "count": 4, "type": "SCALAR"}],
        "bufferViews": [{"buffer": 0, "byteLength": 48}, {"buffer": 0, "byteOffset": 48, "byteLength": 16},
                        {"buffer": 0, "byteOffset": 64, "byteLength": 4}],
        "buffers": [{"byteLength": 68, "uri": "data:application/octet-stream;base64,AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAAAACAPwAAgD8AAAAA/wAA/wD/AP8AAP8AMzMzMwABAgM="}]})");
}

inline qelview::Scene readSquare(std::string_view bytes,
                                 const std::filesystem::path& file = "nowhere/model.gltf") {
    qelview::Progress progress;
    return qelview::readGltf(bytes, file, qelview::ProgressStretch(progress, 0.0, 1.0));
}

inline std::string gltfRefusal(const std::string& bytes) {
    return refusalOf([&] { return readSquare(bytes); });
}

/// With one value of the square changed.
inline nlohmann::json squareWith(const char* pointer, const nlohmann::json& value) {
    nlohmann::json changed = square();
    changed[nlohmann::json::json_pointer(pointer)] = value;
    return changed;
}

/// As a binary file with a second chunk.
inline std::string glb(const nlohmann::json& root, const std::string& binary) {
    const auto word = [](std::size_t value) {
        std::string bytes;
        for (int i = 0; i < 4; ++i) {
            bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
        }
        return bytes;
    };
    const std::string text = root.dump();
    const std::string chunks =
        word(text.size()) + "JSON" + text + word(binary.size()) + std::string("BIN\0", 4) + binary;
    return "glTF" + word(2) + word(12 + chunks.size()) + chunks;
}

}  // namespace qel::test
