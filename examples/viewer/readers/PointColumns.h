#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace qelview {

/// The meaning of the columns of a point file.
struct PointColumns {
    /// Of x, y and z.
    std::array<std::size_t, 3> position{0, 1, 2};
    /// Of red, green and blue, each 0 to 255.
    std::optional<std::array<std::size_t, 3>> color;
    /// Points with a time follow each other along a path.
    bool hasTime = false;
};

/// What separates the columns of a line: ';', ',' or blanks.
enum class Separator : char { Semicolon = ';', Comma = ',', Blank = ' ' };

/// Semicolon before comma before blanks.
[[nodiscard]] Separator separatorOf(std::string_view line);

/// Splits a line into columns, without blanks and quotes around them. Reuses the storage of `columns`.
void splitColumns(std::string_view line, Separator separator, std::vector<std::string_view>& columns);

/// The meaning of the columns by their names, in any order and case: x or easting, y or northing, z or height
/// or elevation, red, green, blue (also r, g, b), and anything with "time" in it.
/// @return nothing if x, y or z is missing.
[[nodiscard]] std::optional<PointColumns> columnsByName(const std::vector<std::string_view>& names);

/// The meaning of unnamed columns by their number: x y z, and with exactly six also red green blue.
[[nodiscard]] PointColumns columnsByPosition(std::size_t count);

}  // namespace qelview
