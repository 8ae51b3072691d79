#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "ObjMaterials.h"
#include "PlainModel.h"
#include "PlainText.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// One kind of thing that elements name by number: positions, texture coordinates, normals.
struct Numbered {
    const char* name;
    long long count = 0;
    /// The largest number named so far, and where: it may be defined further down.
    long long highestNamed = 0;
    std::size_t lineOfHighest = 0;
};

using Numbers = std::array<double, 3>;
/// Numbers of a position, a texture coordinate and a normal, from 1; 0 where there is none.
using Corner = std::array<long long, 3>;

/// In bytes; the importer has no room for names of any length.
constexpr std::size_t kLongestName = 200;
constexpr Numbers kWhite{1.0, 1.0, 1.0};

class ObjReading {
  public:
    ObjReading(std::string_view text, const std::filesystem::path& file, const ProgressStretch& progress)
        : lines(text, progress), materials(file) {}

    PlainModel run() {
        while (lines.nextPlain()) {
            std::string_view line = lines.line();
            joinContinued(line);
            line = line.substr(0, line.find('#'));
            splitWords(line, words);
            if (!words.empty()) {
                passStatement(line);
            }
        }
        for (const Numbered& kind : kinds) {
            requireDefined(kind);
        }
        if (positions.empty()) {
            refuse("end of file", "there is no vertex");
        }
        return plainModel();
    }

  private:
    /// A backslash at the end of a line continues it on the next one.
    void joinContinued(std::string_view& line) {
        if (!line.ends_with('\\')) {
            return;
        }
        joined.clear();
        while (line.ends_with('\\')) {
            line.remove_suffix(1);
            joined.append(line).push_back(' ');
            if (!lines.nextPlain()) {
                break;
            }
            line = lines.line();
        }
        joined.append(line);
        line = joined;
    }

    void passStatement(std::string_view line) {
        const std::string_view keyword = words.front();
        if (keyword == "v") {
            readPosition();
        } else if (keyword == "vt") {
            static_cast<void>(readNumbers(1, 3));
            ++kinds[1].count;
        } else if (keyword == "vn") {
            passNumbers(normals, "vn", readNumbers(3, 3));
            normals.endLine();
            ++kinds[2].count;
        } else if (keyword == "f" || keyword == "l" || keyword == "p") {
            passElement();
        } else if (keyword == "o" || keyword == "g") {
            group = behindFirstWord(line).substr(0, kLongestName);
            isGroupNew = true;
        } else if (keyword == "usemtl") {
            material = materials.plainNameOf(behindFirstWord(line));
        } else if (keyword == "mtllib") {
            materials.readLibrary(behindFirstWord(line));
        }
    }

    void readPosition() {
        const std::size_t values = words.size() - 1;
        if (values != 3 && values != 4 && values != 6) {
            lines.refuseLine("a vertex has 3 coordinates, and a weight or a colour; this one has " +
                             std::to_string(values) + " values");
        }
        Numbers position = numbersFrom(1);
        if (values == 4) {
            divide(position, readCoordinate(words[4], lines));
        }
        if (values == 6) {
            colors.resize(positions.size(), kWhite);
            colors.push_back(numbersFrom(4));
        } else if (!colors.empty()) {
            colors.push_back(kWhite);
        }
        positions.push_back(position);
        ++kinds[0].count;
    }

    [[nodiscard]] Numbers numbersFrom(std::size_t first) const {
        return {readCoordinate(words[first], lines), readCoordinate(words[first + 1], lines),
                readCoordinate(words[first + 2], lines)};
    }

    void divide(Numbers& position, double weight) const {
        for (double& coordinate : position) {
            coordinate /= weight;
            if (const std::string fault = faultOfCoordinate(coordinate); !fault.empty()) {
                lines.refuseLine("with its weight, a coordinate " + fault);
            }
        }
    }

    [[nodiscard]] Numbers readNumbers(std::size_t fewest, std::size_t most) const {
        const std::size_t values = words.size() - 1;
        if (values < fewest || values > most) {
            lines.refuseLine(std::string(words.front()) + " with " + std::to_string(values) + " values");
        }
        Numbers numbers{};
        for (std::size_t i = 0; i < values; ++i) {
            numbers.at(i) = readCoordinate(words[i + 1], lines);
        }
        return numbers;
    }

    void passElement() {
        if (words.size() < 2) {
            lines.refuseLine("an element without vertices");
        }
        if (words.front() == "l" && words.size() == 2) {
            lines.refuseLine("a line with one vertex");
        }
        corners.clear();
        for (std::size_t i = 1; i < words.size(); ++i) {
            corners.push_back(readCorner(words[i]));
        }
        passGroup();
        const bool haveNormals =
            words.front() == "f" &&
            std::all_of(corners.begin(), corners.end(), [](const Corner& corner) { return corner[2] != 0; });
        elements.word(words.front());
        for (const Corner& corner : corners) {
            elements.whole(corner[0]);
            if (haveNormals) {
                elements.behindSlashes(corner[2]);
            }
        }
        elements.endLine();
    }

    /// Only where elements follow: empty groups would be looked through for every other one.
    void passGroup() {
        if (isGroupNew && !group.empty()) {
            elements.word("g");
            elements.word(group);
            elements.endLine();
        }
        isGroupNew = false;
        if (material != materialPassed) {
            elements.word("usemtl");
            elements.word(material);
            elements.endLine();
            materialPassed = material;
        }
    }

    /// "7", "7/3", "7//2" or "7/3/2".
    Corner readCorner(std::string_view text) {
        Corner corner{};
        std::size_t begin = 0;
        for (std::size_t kind = 0; begin <= text.size(); ++kind) {
            const std::size_t end = std::min(text.find('/', begin), text.size());
            const std::string_view number = text.substr(begin, end - begin);
            if (kind >= kinds.size() || (number.empty() && kind != 1)) {
                lines.refuseLine(quoted(text) + " is not a corner of an element");
            }
            if (!number.empty()) {
                corner.at(kind) = numberNamed(kinds.at(kind), readWhole(number, lines));
            }
            begin = end + 1;
        }
        return corner;
    }

    /// From 1; negative ones count back from this line.
    long long numberNamed(Numbered& kind, long long index) {
        if (index == 0) {
            lines.refuseLine(std::string(kind.name) + " 0 does not exist: numbers begin at 1");
        }
        if (index < -kind.count) {
            lines.refuseLine(std::string(kind.name) + " " + std::to_string(index) +
                             " does not exist: there are " + std::to_string(kind.count) + " above this line");
        }
        if (index > kind.highestNamed) {
            kind.highestNamed = index;
            kind.lineOfHighest = lines.number();
        }
        return index > 0 ? index : kind.count + 1 + index;
    }

    static void requireDefined(const Numbered& kind) {
        if (kind.highestNamed > kind.count) {
            refuse(atLine(kind.lineOfHighest),
                   std::string(kind.name) + " " + std::to_string(kind.highestNamed) +
                       " does not exist: the file has " + std::to_string(kind.count));
        }
    }

    static void passNumbers(PlainText& text, std::string_view keyword, const Numbers& numbers) {
        text.word(keyword);
        for (const double number : numbers) {
            text.number(number);
        }
    }

    PlainModel plainModel() {
        PlainModel plain{"", materials.plainLibrary()};
        PlainText text;
        if (!plain.materials.empty()) {
            text.word("mtllib");
            text.word(kMaterialsOfPlainModel);
            text.endLine();
        }
        for (std::size_t i = 0; i < positions.size(); ++i) {
            passNumbers(text, "v", positions[i]);
            if (!colors.empty()) {
                for (const double channel : colors[i]) {
                    text.number(channel);
                }
            }
            text.endLine();
        }
        if (!elements.isEmpty()) {
            text.append(normals);
            text.append(elements);
        }
        plain.model = text.take();
        return plain;
    }

    TextLines lines;
    ObjMaterials materials;
    std::vector<std::string_view> words;
    std::string joined;
    std::array<Numbered, 3> kinds{Numbered{"vertex"}, Numbered{"texture coordinate"}, Numbered{"normal"}};
    std::vector<Numbers> positions;
    /// Empty, or one a position.
    std::vector<Numbers> colors;
    PlainText normals;
    PlainText elements;
    std::vector<Corner> corners;
    std::string group;
    bool isGroupNew = false;
    std::string material;
    std::string materialPassed;
};

}  // namespace

PlainModel plainObj(std::string bytes, const std::filesystem::path& file, const ProgressStretch& progress) {
    requireText(bytes);
    return ObjReading(bytes, file, progress).run();
}

}  // namespace qelview
