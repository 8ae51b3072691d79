#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qelview {

/// Numbers of an accessor: `width` of each element.
struct GltfNumbers {
    std::size_t width = 0;
    std::vector<double> values;

    [[nodiscard]] std::size_t count() const { return values.size() / width; }
};

/// A glTF 2 asset with its buffers. Everything is checked before it is returned.
class GltfFile {
  public:
    /// @param bytes of a .gltf or a .glb file; the first bytes decide. They must live as long as this object.
    /// @param file next to which the files of its buffers are.
    /// @throws ReadError if it is no asset of glTF 2, needs an extension that is not read, or a buffer is not
    /// whole.
    GltfFile(std::string_view bytes, const std::filesystem::path& file);

    /// An element of one of the lists at the top: "nodes", "meshes" and the like.
    /// @throws ReadError naming `place` if there is none, or it is no object.
    [[nodiscard]] const nlohmann::json& element(const std::string& place, const char* list,
                                                const nlohmann::json& index) const;
    /// How many elements such a list has.
    [[nodiscard]] std::size_t count(const char* list) const;
    /// A member of the asset, or null.
    [[nodiscard]] const nlohmann::json& top(const char* name) const;

    /// Whole numbers that stand for shares become shares.
    /// @throws ReadError naming `place` if there is no such accessor, it has no data or leaves its buffer, or
    /// if its elements have fewer numbers than `narrowest` or more than `widest`.
    [[nodiscard]] GltfNumbers numbers(const std::string& place, const nlohmann::json& accessor,
                                      std::size_t narrowest, std::size_t widest) const;

    /// All bytes of a buffer view.
    /// @throws ReadError naming `place` if it leaves its buffer.
    [[nodiscard]] std::string_view viewOf(const std::string& place, const nlohmann::json& view) const;

  private:
    /// What lies behind the JSON text of a binary file.
    std::string_view parseBinary(std::string_view bytes);
    void checkVersion() const;
    void readBuffers(const std::filesystem::path& file, std::string_view binaryChunk);

    nlohmann::json root;
    std::vector<std::string_view> buffers;
    /// Of the buffers that are not a part of the file as it is.
    std::deque<std::string> decoded;
};

/// A whole number among the members of an object, or `missing`.
/// @throws ReadError naming `place` if it is no whole number, or larger than 4294967295.
[[nodiscard]] std::uint64_t wholeOf(const std::string& place, const nlohmann::json& object, const char* name,
                                    std::uint64_t missing);

/// Numbers among the members of an object; `numbers` stay as they are if there are none.
/// @throws ReadError naming `place` if there are too few, or they are no numbers.
void readNumbers(const std::string& place, const nlohmann::json& object, const char* name,
                 std::span<double> numbers);

}  // namespace qelview
