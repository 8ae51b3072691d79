#include "PointColumns.h"

#include <algorithm>
#include <string>

#include "TextLines.h"

namespace qelview {

namespace {

using Names = std::initializer_list<std::string_view>;

std::optional<std::size_t> findColumn(const std::vector<std::string>& columns, Names names) {
    for (const std::string_view name : names) {
        const auto found = std::find(columns.begin(), columns.end(), name);
        if (found != columns.end()) {
            return static_cast<std::size_t>(found - columns.begin());
        }
    }
    return std::nullopt;
}

std::optional<std::array<std::size_t, 3>> findThree(const std::vector<std::string>& columns, Names first,
                                                    Names second, Names third) {
    const auto a = findColumn(columns, first);
    const auto b = findColumn(columns, second);
    const auto c = findColumn(columns, third);
    return a && b && c ? std::optional(std::array{*a, *b, *c}) : std::nullopt;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kAround = " \t\"'";
    text.remove_prefix(std::min(text.find_first_not_of(kAround), text.size()));
    return text.substr(0, text.find_last_not_of(kAround) + 1);
}

}  // namespace

Separator separatorOf(std::string_view line) {
    if (line.find(';') != std::string_view::npos) {
        return Separator::Semicolon;
    }
    return line.find(',') != std::string_view::npos ? Separator::Comma : Separator::Blank;
}

void splitColumns(std::string_view line, Separator separator, std::vector<std::string_view>& columns) {
    if (separator == Separator::Blank) {
        splitWords(line, columns);
        std::transform(columns.begin(), columns.end(), columns.begin(), trimmed);
        return;
    }
    columns.clear();
    std::size_t begin = 0;
    while (begin <= line.size()) {
        const std::size_t end = std::min(line.find(static_cast<char>(separator), begin), line.size());
        columns.push_back(trimmed(line.substr(begin, end - begin)));
        begin = end + 1;
    }
}

std::optional<PointColumns> columnsByName(const std::vector<std::string_view>& names) {
    std::vector<std::string> columns(names.begin(), names.end());
    for (std::string& column : columns) {
        std::transform(column.begin(), column.end(), column.begin(), lowered);
    }
    const auto position = findThree(columns, {"x", "easting", "east"}, {"y", "northing", "north"},
                                    {"z", "height", "elevation", "altitude"});
    if (!position) {
        return std::nullopt;
    }
    PointColumns meaning;
    meaning.position = *position;
    meaning.color = findThree(columns, {"red", "r"}, {"green", "g"}, {"blue", "b"});
    meaning.hasTime = std::any_of(columns.begin(), columns.end(), [](const std::string& column) {
        return column.find("time") != std::string::npos;
    });
    return meaning;
}

PointColumns columnsByPosition(std::size_t count) {
    constexpr std::size_t kPositionAndColor = 6;
    PointColumns meaning;
    if (count == kPositionAndColor) {
        meaning.color = {3, 4, 5};
    }
    return meaning;
}

}  // namespace qelview
