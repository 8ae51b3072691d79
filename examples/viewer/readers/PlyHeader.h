#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ByteOrder.h"
#include "ScalarType.h"
#include "Warnings.h"

namespace qelview {

struct PlyProperty {
    std::string name;
    ScalarType type = ScalarType::Float32;
    /// Type of the count before the values, if the property is a list.
    std::optional<ScalarType> countType;
};

struct PlyElement {
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;

    [[nodiscard]] bool hasList() const;
    /// How many bytes an instance takes at least: all of a binary one without lists.
    [[nodiscard]] std::size_t fewestBytes(bool isAscii) const;
};

/// What the header of a PLY file declares.
struct PlyHeader {
    bool isAscii = true;
    ByteOrder byteOrder = ByteOrder::Little;
    std::vector<PlyElement> elements;
    /// Of the comments that name images.
    std::vector<std::string> textureFiles;
    /// In bytes from the start of the file.
    std::size_t bodyBegin = 0;
    std::size_t bodyFirstLine = 0;

    /// Null if there is none of this name.
    [[nodiscard]] const PlyElement* find(std::string_view name) const;
};

/// @throws ReadError that names the line of the header that is wrong.
[[nodiscard]] PlyHeader readPlyHeader(std::string_view bytes, Warnings& warnings);

}  // namespace qelview
