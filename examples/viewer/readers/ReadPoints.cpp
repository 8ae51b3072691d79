#include "ReadFormats.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "PointColumns.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

constexpr std::size_t kFewestColumns = 3;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr LineStyle kPathStyle{{255, 170, 60}, 2.0F};

class PointReader {
  public:
    PointReader(std::string_view wholeText, const ProgressStretch& progress)
        : text(wholeText), lines(text, progress) {}

    Scene run() {
        while (lines.next()) {
            if (!isSkipped(lines.line())) {
                readLine(lines.line());
            }
        }
        if (cloud.positions.empty()) {
            refuse("end of file", "there is no point");
        }
        Scene scene;
        if (meaning.hasTime) {
            scene.polylines.push_back({{cloud.positions}, kPathStyle});
        }
        scene.clouds.push_back(std::move(cloud));
        return scene;
    }

  private:
    static bool isSkipped(std::string_view line) {
        const std::size_t begin = line.find_first_not_of(" \t");
        return begin == std::string_view::npos || line[begin] == '#' || line.substr(begin).starts_with("//");
    }

    void readLine(std::string_view line) {
        const bool isFirst = columnCount == 0;
        separator = isFirst ? separatorOf(line) : separator;
        splitColumns(line, separator, columns);
        if (isFirst) {
            columnCount = columns.size();
            if (const auto named = columnsByName(columns)) {
                meaning = *named;
                return;
            }
            meaning = columnsByPosition(columnCount);
        }
        if (columns.size() != columnCount || columnCount < kFewestColumns) {
            lines.refuseLine(std::to_string(columns.size()) + " columns instead of " +
                             (columnCount < kFewestColumns ? "at least 3" : std::to_string(columnCount)));
        }
        if (cloud.positions.empty()) {
            reserve(line.size());
        }
        readPoint();
    }

    /// For lines as long as the first one.
    void reserve(std::size_t length) {
        const std::size_t left = text.size() - std::min(lines.position(), text.size());
        const std::size_t count = left / (length + 1) + 2;
        cloud.positions.reserve(count);
        cloud.colors.reserve(meaning.color ? count : 0);
    }

    void readPoint() {
        const auto& [x, y, z] = meaning.position;
        cloud.positions.push_back(qel::XPnt3d{readCoordinate(columns[x], lines),
                                              readCoordinate(columns[y], lines),
                                              readCoordinate(columns[z], lines)});
        if (meaning.color) {
            const auto& [red, green, blue] = *meaning.color;
            const qel::QelColor3b color{readChannel(columns[red]), readChannel(columns[green]),
                                        readChannel(columns[blue])};
            cloud.colors.push_back(color);
        }
    }

    std::uint8_t readChannel(std::string_view word) {
        const double value = readNumber(word, lines);
        if (!(value >= 0.0 && value <= 255.0)) {
            lines.refuseLine("the colour " + inQuotes(word) + " is not from 0 to 255");
        }
        return static_cast<std::uint8_t>(std::lround(value));
    }

    std::string_view text;
    TextLines lines;
    std::vector<std::string_view> columns;
    Separator separator = Separator::Blank;
    PointColumns meaning;
    std::size_t columnCount = 0;
    PointCloud cloud;
};

}  // namespace

Scene readPoints(std::string_view text, const ProgressStretch& progress) {
    requireText(text);
    text.remove_prefix(text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
    return PointReader(text, progress).run();
}

}  // namespace qelview
