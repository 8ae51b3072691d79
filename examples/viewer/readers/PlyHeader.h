#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ByteOrder.h"

namespace qelview {

enum class PlyType : std::uint8_t { Int8, Uint8, Int16, Uint16, Int32, Uint32, Float32, Float64 };

/// In bytes.
[[nodiscard]] std::size_t sizeOf(PlyType type);

struct PlyProperty {
    std::string name;
    PlyType type = PlyType::Float32;
    /// Type of the count before the values, if the property is a list.
    std::optional<PlyType> countType;
};

struct PlyElement {
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;
};

/// What the head of a PLY file promises.
struct PlyHeader {
    bool isAscii = true;
    ByteOrder byteOrder = ByteOrder::Little;
    std::vector<PlyElement> elements;
    /// In bytes from the start of the file.
    std::size_t bodyBegin = 0;
    std::size_t bodyFirstLine = 0;

    /// Null if there is none of this name.
    [[nodiscard]] const PlyElement* find(std::string_view name) const;
};

/// @throws ReadError that names the line of the header that is wrong.
[[nodiscard]] PlyHeader readPlyHeader(std::string_view bytes);

}  // namespace qelview
