#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "MeshLook.h"
#include "ObjMaterials.h"
#include "ObjMeshes.h"
#include "ReadError.h"
#include "ReadFormats.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

/// One kind of thing that elements name by number: positions, texture coordinates, normals.
struct NumberedKind {
    const char* name;
    long long count = 0;
    /// The largest number named so far, and where: it may be defined further down.
    long long highestNamed = 0;
    std::size_t lineOfHighest = 0;
};

/// Statements that change nothing that is shown.
bool isPassedOver(std::string_view keyword) {
    static constexpr std::array<std::string_view, 9> kKeywords{
        "s", "usemap", "maplib", "bevel", "c_interp", "d_interp", "lod", "shadow_obj", "trace_obj"};
    return std::find(kKeywords.begin(), kKeywords.end(), keyword) != kKeywords.end();
}

class ObjReading {
  public:
    ObjReading(std::string_view text, const std::filesystem::path& file, const ProgressStretch& progress)
        : lines(text, progress), materials(file), meshes(countsIn(text)) {}

    Scene run() {
        while (lines.next()) {
            std::string_view line = lines.line();
            joinContinued(line);
            line = line.substr(0, line.find('#'));
            splitWords(line, words);
            if (!words.empty()) {
                readStatement(line);
            }
        }
        for (const NumberedKind& kind : kinds) {
            if (kind.highestNamed > kind.count) {
                refuse(atLine(kind.lineOfHighest),
                       std::string(kind.name) + " " + std::to_string(kind.highestNamed) +
                           " does not exist: the file has " + std::to_string(kind.count));
            }
        }
        if (kinds[0].count == 0) {
            refuse("end of file", "there is no vertex");
        }
        Scene scene = meshes.finished(warnings);
        scene.warnings = warnings.lines();
        return scene;
    }

  private:
    /// By the beginnings of lines, if faces have as many corners as the first one.
    static ObjMeshes::Counts countsIn(std::string_view text) {
        ObjMeshes::Counts counts;
        std::size_t faces = 0;
        for (std::size_t at = 0; at < text.size(); at = std::min(text.find('\n', at), text.size()) + 1) {
            const std::string_view keyword = text.substr(at, 2);
            if (keyword == "f " && faces++ == 0) {
                const std::string_view face = text.substr(at, text.find_first_of("\r\n", at) - at);
                counts.corners = static_cast<std::size_t>(std::count(face.begin(), face.end(), ' '));
            } else if (keyword == "v ") {
                ++counts.positions;
            } else if (keyword == "vn") {
                ++counts.normals;
            } else if (keyword == "vt") {
                ++counts.texCoords;
            }
        }
        // Each corner takes a digit and a separator.
        counts.corners = std::min(counts.corners * faces, text.size() / 2);
        return counts;
    }

    /// A backslash at the end of a line continues it on the next one.
    void joinContinued(std::string_view& line) {
        if (!line.ends_with('\\')) {
            return;
        }
        joined.clear();
        while (line.ends_with('\\')) {
            line.remove_suffix(1);
            joined.append(line).push_back(' ');
            if (!lines.next()) {
                break;
            }
            line = lines.line();
        }
        joined.append(line);
        line = joined;
    }

    void readStatement(std::string_view line) {
        const std::string_view keyword = words.front();
        if (keyword == "v") {
            readPosition();
        } else if (keyword == "vt") {
            const std::array<double, 3> texCoord = readNumbers(1);
            meshes.addTexCoord(texCoord[0], texCoord[1]);
            ++kinds[1].count;
        } else if (keyword == "vn") {
            const std::array<double, 3> normal = readNumbers(3);
            meshes.addNormal({normal[0], normal[1], normal[2]});
            ++kinds[2].count;
        } else if (keyword == "f" || keyword == "l" || keyword == "p") {
            readElement(keyword.front());
        } else if (keyword == "usemtl") {
            meshes.setLook(materials.lookOf(behindFirstWord(line), atLine(lines.number()), warnings));
        } else if (keyword == "mtllib") {
            readLibraries(behindFirstWord(line));
        } else if (keyword != "o" && keyword != "g" && !isPassedOver(keyword)) {
            warn("unknown statement " + inQuotes(keyword));
        }
    }

    void readPosition() {
        constexpr std::size_t kPlain = 3;
        constexpr std::size_t kWithWeight = 4;
        constexpr std::size_t kWithColor = 6;
        const std::size_t values = words.size() - 1;
        if (values < kPlain) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(values));
        }
        if (values != kPlain && values != kWithWeight && values != kWithColor) {
            warn("a vertex has 3 coordinates, and a weight or a colour; the rest is ignored");
        }
        qel::XPnt3d position{readCoordinate(words[1], lines), readCoordinate(words[2], lines),
                             readCoordinate(words[3], lines)};
        if (values == kWithWeight) {
            divide(position, readCoordinate(words[4], lines));
        }
        meshes.addPosition(position);
        if (values >= kWithColor) {
            meshes.setColor(
                {readNumber(words[4], lines), readNumber(words[5], lines), readNumber(words[6], lines)});
        }
        ++kinds[0].count;
    }

    void divide(qel::XPnt3d& position, double weight) const {
        for (double* const coordinate : {&position.x, &position.y, &position.z}) {
            *coordinate /= weight;
            if (const std::string fault = faultOfCoordinate(*coordinate); !fault.empty()) {
                lines.refuseLine("with its weight, a coordinate " + fault);
            }
        }
    }

    [[nodiscard]] std::array<double, 3> readNumbers(std::size_t fewest) {
        std::array<double, 3> numbers{};
        const std::size_t values = words.size() - 1;
        if (values < fewest) {
            lines.refuseLine(std::string(words.front()) + " with " + std::to_string(values) + " values");
        }
        if (values > numbers.size()) {
            warn(std::string(words.front()) + " with more than 3 values");
        }
        for (std::size_t i = 0; i < std::min(values, numbers.size()); ++i) {
            numbers.at(i) = readCoordinate(words[i + 1], lines);
        }
        return numbers;
    }

    void readElement(char keyword) {
        corners.clear();
        for (std::size_t i = 1; i < words.size(); ++i) {
            corners.push_back(readCorner(words[i]));
        }
        const std::size_t fewest = keyword == 'f' ? 3 : keyword == 'l' ? 2 : 1;
        if (corners.size() < fewest) {
            const char* const what = keyword == 'f' ? "face" : keyword == 'l' ? "line" : "point";
            warn(std::string("a ") + what + " of fewer than " + std::to_string(fewest) +
                 " vertices is left out");
        } else if (keyword == 'f') {
            meshes.addFace(corners);
        } else {
            meshes.addLineOrPoints(keyword == 'l', corners);
        }
    }

    /// "7", "7/3", "7//2" or "7/3/2".
    ObjCorner readCorner(std::string_view word) {
        std::array<std::uint32_t, 3> numbers{kNoNumber, kNoNumber, kNoNumber};
        const char* at = word.data();
        const char* const end = at + word.size();
        for (std::size_t kind = 0;; ++kind) {
            long long index = 0;
            const auto [behind, error] = std::from_chars(at, end, index);
            const bool isLeftOut = kind == 1 && behind == at;
            if (kind >= kinds.size() || (error != std::errc() && !isLeftOut) ||
                (behind != end && *behind != '/')) {
                lines.refuseLine(inQuotes(word) + " is not a corner of an element");
            }
            if (!isLeftOut) {
                numbers.at(kind) = numberNamed(kinds.at(kind), index);
            }
            if (behind == end) {
                return {numbers[0], numbers[2], numbers[1]};
            }
            at = behind + 1;
        }
    }

    /// From 0; in the file from 1, and negative ones count back from the line.
    std::uint32_t numberNamed(NumberedKind& kind, long long index) {
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
        // One that is too high is refused at the end of the file.
        return static_cast<std::uint32_t>(index > 0 ? index - 1 : kind.count + index);
    }

    /// One name with blanks in it, or several.
    void readLibraries(std::string_view names) {
        if (materials.readLibrary(names)) {
            return;
        }
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (words.size() == 2 || !materials.readLibrary(words[i])) {
                warn("the file of materials " + inQuotes(words[i]) + " cannot be read");
            }
        }
    }

    void warn(const std::string& reason) { warnings.add(atLine(lines.number()), reason); }

    TextLines lines;
    ObjMaterials materials;
    ObjMeshes meshes;
    Warnings warnings;
    std::vector<std::string_view> words;
    std::string joined;
    std::array<NumberedKind, 3> kinds{NumberedKind{"vertex"}, NumberedKind{"texture coordinate"},
                                      NumberedKind{"normal"}};
    std::vector<ObjCorner> corners;
};

}  // namespace

Scene readObj(std::string_view bytes, const std::filesystem::path& file, const ProgressStretch& progress) {
    requireText(bytes);
    return ObjReading(bytes, file, progress).run();
}

}  // namespace qelview
