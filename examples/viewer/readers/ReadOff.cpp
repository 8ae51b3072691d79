#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "MeshFaces.h"
#include "MeshLook.h"
#include "MeshNormals.h"
#include "ReadError.h"
#include "ReadFormats.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

constexpr std::size_t kCoordinates = 3;
/// Of a vertex: three digits, blanks and the end of the line.
constexpr std::size_t kShortestLine = 6;

class OffReading {
  public:
    OffReading(std::string_view text, const ProgressStretch& progress)
        : lines(text, progress), mostLines(text.size() / kShortestLine + 1) {}

    Scene run() {
        requireWords("the header", 0);
        readKeyword();
        const long long vertexCount = readCount("vertices");
        const long long faceCount = readCount("faces");
        if (vertexCount == 0) {
            lines.refuseLine("there are no vertices");
        }
        mesh.positions.reserve(roomFor(vertexCount));
        mesh.normals.reserve(hasNormals ? roomFor(vertexCount) : 0);
        colors.reserve(hasColors ? roomFor(vertexCount) : 0);
        for (long long i = 0; i < vertexCount; ++i) {
            requireWords("vertex", i);
            readVertex();
        }
        for (long long i = 0; i < faceCount; ++i) {
            requireWords("face", i);
            readFace(vertexCount);
            if (i == 0 && corners.size() == 3) {
                faces.reserveTriangles(roomFor(faceCount));
            }
        }
        Scene scene;
        giveColors();
        giveFaces(mesh, faces, warnings);
        addMeshOrCloud(scene, std::move(mesh));
        scene.warnings = warnings.lines();
        return scene;
    }

  private:
    /// The header may declare more than the file has lines for.
    [[nodiscard]] std::size_t roomFor(long long count) const {
        return std::min(static_cast<std::size_t>(count), mostLines);
    }

    /// Moves to the next line that has words.
    void requireWords(const char* expected, long long number) {
        do {
            if (!lines.next()) {
                refuse(atLine(lines.number()),
                       "the file ends before " + std::string(expected) + " " + std::to_string(number));
            }
            splitWords(lines.line().substr(0, lines.line().find('#')), words);
        } while (words.empty());
        used = 0;
    }

    /// A file of plain vertices may begin with its counts.
    void readKeyword() {
        const std::string_view keyword = words[used++];
        if (numberIn(keyword)) {
            --used;
            return;
        }
        if (keyword != "OFF" && keyword != "COFF" && keyword != "NOFF" && keyword != "CNOFF") {
            lines.refuseLine("an OFF file begins with the word OFF, COFF, NOFF or CNOFF");
        }
        hasColors = keyword.starts_with('C');
        hasNormals = keyword.find('N') != std::string_view::npos;
    }

    /// Counts may follow the keyword or stand on the next line.
    long long readCount(const std::string& what) {
        if (used == words.size()) {
            requireWords("count", 0);
        }
        const long long count = readWhole(words[used++], lines);
        if (count < 0) {
            lines.refuseLine("invalid number of " + what + ": " + std::to_string(count));
        }
        return count;
    }

    /// Position, normal, colour; of a colour only what is there.
    void readVertex() {
        const std::size_t plain = hasNormals ? 2 * kCoordinates : kCoordinates;
        if (words.size() < plain) {
            lines.refuseLine("a vertex has " + std::to_string(plain) + " coordinates, this one has " +
                             std::to_string(words.size()));
        }
        const auto coordinate = [this](std::size_t i) { return readCoordinate(words[i], lines); };
        mesh.positions.push_back(qel::XPnt3d{coordinate(0), coordinate(1), coordinate(2)});
        if (hasNormals) {
            mesh.normals.push_back(unitNormal({coordinate(3), coordinate(4), coordinate(5)}));
        }
        std::array<double, 3>& color = hasColors ? colors.emplace_back() : ignored;
        for (std::size_t i = plain; i < words.size(); ++i) {
            const double channel = readNumber(words[i], lines);
            if (i < plain + color.size()) {
                color.at(i - plain) = channel;
            }
        }
        constexpr std::size_t kColorAndAlpha = 4;
        if (words.size() > plain + (hasColors ? kColorAndAlpha : 0)) {
            warn("a vertex with more numbers than the first line declares");
        }
    }

    void readFace(long long vertices) {
        const long long count = readWhole(words[0], lines);
        if (count < 1 || static_cast<unsigned long long>(count) > words.size() - 1) {
            lines.refuseLine("a face declares " + std::to_string(count) + " corners and has " +
                             std::to_string(words.size() - 1));
        }
        corners.clear();
        for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
            const long long index = readWhole(words[i], lines);
            if (index < 0 || index >= vertices) {
                lines.refuseLine("vertex " + std::to_string(index) + " does not exist: there are " +
                                 std::to_string(vertices) + ", counted from 0");
            }
            corners.push_back(static_cast<std::uint32_t>(index));
        }
        if (corners.size() < 3) {
            warn("a face of fewer than 3 vertices is left out");
            return;
        }
        if (words.size() > corners.size() + 1) {
            warn("colours of faces are left out");
        }
        faces.add(corners);
    }

    /// Shares, or bytes if one in the file is above 1.
    void giveColors() {
        const bool areBytes = std::any_of(colors.begin(), colors.end(), [](const auto& color) {
            return *std::max_element(color.begin(), color.end()) > 1.0;
        });
        const double whole = areBytes ? 255.0 : 1.0;
        for (const auto& [red, green, blue] : colors) {
            mesh.colors.push_back(shownColor(red / whole, green / whole, blue / whole));
        }
    }

    void warn(const std::string& reason) { warnings.add(atLine(lines.number()), reason); }

    TextLines lines;
    std::size_t mostLines;
    Warnings warnings;
    std::vector<std::string_view> words;
    std::size_t used = 0;
    bool hasColors = false;
    bool hasNormals = false;
    TriangleMesh mesh;
    MeshFaces faces;
    std::vector<std::array<double, 3>> colors;
    std::array<double, 3> ignored{};
    std::vector<std::uint32_t> corners;
};

}  // namespace

Scene readOff(std::string_view bytes, const ProgressStretch& progress) {
    requireText(bytes);
    return OffReading(bytes, progress).run();
}

}  // namespace qelview
