#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "AllCores.h"
#include "ByteOrder.h"
#include "Numbering.h"
#include "ReadError.h"
#include "ReadFormats.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

constexpr std::size_t kHeaderSize = 84;
constexpr std::size_t kRecordSize = 50;
constexpr std::size_t kCountOffset = 80;
/// Of the normal, which is the first one, and of the three places.
constexpr std::size_t kVectorSize = 12;
constexpr std::size_t kColorOffset = 48;

/// Of a triangle: five bits a channel, if the highest one is set.
constexpr std::uint16_t kHasColor = 0x8000;

std::uint64_t declaredTriangles(std::string_view bytes) {
    return readScalar<std::uint32_t>(bytes.data() + kCountOffset, ByteOrder::Little);
}

/// A few bytes behind the last triangle do no harm.
bool isBinary(std::string_view bytes) {
    if (bytes.size() < kHeaderSize) {
        return false;
    }
    const std::uint64_t end = kHeaderSize + kRecordSize * declaredTriangles(bytes);
    return bytes.size() >= end && bytes.size() - end < kRecordSize;
}

/// Closed surfaces have twice as many triangles as vertices, open ones a few vertices more.
std::size_t expectedVertices(std::size_t triangles) {
    return triangles / 2 + triangles / 16 + 2;
}

qel::QelColor3f colorOf(std::uint16_t bits) {
    constexpr std::uint32_t kWhole = 31;
    if ((bits & kHasColor) == 0) {
        return TriangleMesh().color;
    }
    const auto share = [bits](unsigned shift) {
        return static_cast<float>((static_cast<std::uint32_t>(bits) >> shift) & kWhole) /
               static_cast<float>(kWhole);
    };
    return {share(10), share(5), share(0)};
}

class BinaryStlReading {
  public:
    BinaryStlReading(std::string_view bytesOfFile, const ProgressStretch& progressOfFile)
        : bytes(bytesOfFile),
          progress(progressOfFile),
          triangles(declaredTriangles(bytes)),
          cornersOfFirstCore(piecesOf(triangles * 3).front().end) {}

    Scene run() {
        if (triangles == 0) {
            refuse("header", "there is no triangle");
        }
        auto [corners, keys] = numberAll<std::uint64_t, 2>(
            triangles * 3, expectedVertices(triangles), [this](std::size_t corner) { return keyOf(corner); });
        TriangleMesh mesh;
        mesh.indices = std::move(corners);
        giveVertices(mesh, keys);
        Scene scene;
        scene.meshes.push_back(std::move(mesh));
        if (const std::uint64_t left = bytes.size() - kHeaderSize - kRecordSize * triangles; left > 0) {
            scene.warnings.push_back("end of file: " + std::to_string(left) +
                                     " bytes behind the last triangle are left out");
        }
        return scene;
    }

  private:
    /// The place and the colour of a vertex: x below y, and z below the colour. Long words are faster to hash.
    using Key = std::array<std::uint64_t, 2>;

    [[nodiscard]] Key keyOf(std::size_t corner) const {
        if (corner < cornersOfFirstCore) {
            progress.reportPiece(corner, cornersOfFirstCore);
        }
        const std::size_t triangle = corner / 3;
        const char* const record = bytes.data() + kHeaderSize + kRecordSize * triangle;
        const char* const place = record + (1 + corner % 3) * kVectorSize;
        const auto bits = readScalar<std::uint16_t>(record + kColorOffset, ByteOrder::Little);
        std::array<std::uint64_t, 3> words{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto value = readScalar<float>(place + axis * sizeof(float), ByteOrder::Little);
            if (!(std::abs(value) <= static_cast<float>(kLargestCoordinate))) {
                refuse("triangle " + std::to_string(triangle + 1),
                       "a coordinate " + faultOfCoordinate(static_cast<double>(value)));
            }
            // Adding 0 makes -0 a 0.
            words[axis] = std::bit_cast<std::uint32_t>(value + 0.0F);
        }
        const std::uint64_t color = (bits & kHasColor) != 0 ? bits : 0;
        return {words[0] | words[1] << kHalfWord, words[2] | color << kHalfWord};
    }

    static void giveVertices(TriangleMesh& mesh, const std::vector<Key>& keys) {
        const auto coordinate = [](std::uint64_t word) {
            return static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(word)));
        };
        const bool hasColors =
            std::any_of(keys.begin(), keys.end(), [](const Key& key) { return (key[1] >> kHalfWord) != 0; });
        // Vertices that differ in their colours alone can share a place.
        mesh.arePlacesDistinct = !hasColors;
        mesh.positions.reserve(keys.size());
        mesh.colors.reserve(hasColors ? keys.size() : 0);
        for (const auto& [xAndY, zAndColor] : keys) {
            mesh.positions.emplace_back(coordinate(xAndY), coordinate(xAndY >> kHalfWord),
                                        coordinate(zAndColor));
            if (hasColors) {
                mesh.colors.push_back(colorOf(static_cast<std::uint16_t>(zAndColor >> kHalfWord)));
            }
        }
    }

    static constexpr unsigned kHalfWord = 32;

    std::string_view bytes;
    ProgressStretch progress;
    std::uint64_t triangles;
    /// Its progress is that of all.
    std::size_t cornersOfFirstCore;
};

/// Follows the keywords of the text in their order.
class AsciiStlReading {
  public:
    AsciiStlReading(std::string_view wholeText, const ProgressStretch& progress)
        : text(wholeText), lines(text, progress) {}

    Scene run() {
        while (lines.next()) {
            splitWords(lines.line(), words);
            if (!words.empty()) {
                step();
            }
        }
        if (state == State::Solid) {
            warnings.add(atLine(lines.number()), "the line 'endsolid' is missing");
        } else if (state != State::Outside) {
            refuse(atLine(lines.number()), "the file ends inside a triangle");
        }
        numberWaiting();
        if (mesh.indices.empty()) {
            refuse("end of file", "there is no triangle");
        }
        return finished();
    }

  private:
    using Places = Numbering<std::uint64_t, 3>;
    enum class State : std::uint8_t { Outside, Solid, Facet, Loop, LoopDone };

    void step() {
        if (state == State::Loop && is("vertex")) {
            readVertex();
            return;
        }
        struct Step {
            State from;
            std::string_view word;
            State to;
        };
        static constexpr std::array<Step, 6> kSteps{{
            {State::Outside, "solid", State::Solid},
            {State::Solid, "facet", State::Facet},
            {State::Facet, "outer", State::Loop},
            {State::Loop, "endloop", State::LoopDone},
            {State::LoopDone, "endfacet", State::Solid},
            {State::Solid, "endsolid", State::Outside},
        }};
        const auto* const found = std::find_if(kSteps.begin(), kSteps.end(), [&](const Step& step) {
            return step.from == state && is(step.word);
        });
        if (found == kSteps.end()) {
            lines.refuseLine("unexpected " + inQuotes(words.front()));
        }
        checkRest(found->word);
        state = found->to;
        if (state == State::LoopDone) {
            closeLoop();
        }
    }

    /// True if the line begins with the keyword, in small or capital letters.
    [[nodiscard]] bool is(std::string_view keyword) const {
        const std::string_view word = words.front();
        return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                          [](char a, char b) { return lowered(a) == b; });
    }

    /// The normal is made from the triangle, so that it may be missing or none.
    void checkRest(std::string_view keyword) {
        const bool isNamed = keyword == "solid" || keyword == "endsolid";
        const std::size_t expected = keyword == "facet" ? 5 : keyword == "outer" ? 2 : 1;
        if (!isNamed && words.size() != expected) {
            warnings.add(atLine(lines.number()),
                         std::string(words.size() < expected ? "too few" : "too many") + " words for " +
                             inQuotes(keyword));
        }
    }

    void readVertex() {
        if (words.size() < 4) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size() - 1));
        }
        if (words.size() > 4) {
            warnings.add(atLine(lines.number()), "a vertex with more than 3 coordinates");
        }
        Places::Key key{};
        for (std::size_t i = 0; i < key.size(); ++i) {
            // Adding 0 makes -0 a 0.
            key.at(i) = std::bit_cast<std::uint64_t>(readCoordinate(words[i + 1], lines) + 0.0);
        }
        waiting.at(waitingCount++) = key;
        if (waitingCount == waiting.size()) {
            numberWaiting();
        }
        ++cornersOfLoop;
    }

    void numberWaiting() {
        const std::size_t known = mesh.indices.size();
        mesh.indices.resize(known + waitingCount);
        vertices.numberBlock(waiting.data(), waitingCount, mesh.indices.data() + known);
        waitingCount = 0;
    }

    void closeLoop() {
        if (cornersOfLoop != 3) {
            lines.refuseLine("a triangle has 3 corners, this one has " + std::to_string(cornersOfLoop));
        }
        cornersOfLoop = 0;
        if (mesh.indices.capacity() == 0) {
            // For triangles whose text is as long as that of the first one.
            const std::size_t corners = text.size() / (lines.position() / 3);
            mesh.indices.reserve(corners + Places::kBlock);
            vertices = Places(expectedVertices(corners / 3));
        }
    }

    Scene finished() {
        mesh.arePlacesDistinct = true;
        // The table of the numbering is released before the positions are made.
        const std::vector<Places::Key> known = std::exchange(vertices, Places(0)).takeKnown();
        mesh.positions.reserve(known.size());
        for (const auto& [x, y, z] : known) {
            mesh.positions.emplace_back(std::bit_cast<double>(x), std::bit_cast<double>(y),
                                        std::bit_cast<double>(z));
        }
        Scene scene;
        scene.meshes.push_back(std::move(mesh));
        scene.warnings = warnings.lines();
        return scene;
    }

    std::string_view text;
    TextLines lines;
    Warnings warnings;
    std::vector<std::string_view> words;
    State state = State::Outside;
    Places vertices{0};
    /// Corners of the last triangles, whose vertices have no numbers yet.
    std::array<Places::Key, Places::kBlock> waiting{};
    std::size_t waitingCount = 0;
    TriangleMesh mesh;
    std::size_t cornersOfLoop = 0;
};

}  // namespace

Scene readStl(std::string_view bytes, const ProgressStretch& progress) {
    if (isBinary(bytes)) {
        return BinaryStlReading(bytes, progress).run();
    }
    if ((bytes.starts_with("solid") || bytes.starts_with("SOLID")) &&
        bytes.find('\0') == std::string_view::npos) {
        return AsciiStlReading(bytes, progress).run();
    }
    if (bytes.size() < kHeaderSize) {
        refuse("header",
               "the file has " + std::to_string(bytes.size()) + " bytes, too few for a binary STL file");
    }
    refuse("header", "it declares " + std::to_string(declaredTriangles(bytes)) +
                         " triangles, the file has room for " +
                         std::to_string((bytes.size() - kHeaderSize) / kRecordSize));
}

}  // namespace qelview
