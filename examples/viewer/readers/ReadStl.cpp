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
#include "ReadMesh.h"
#include "TextLines.h"
#include "Warnings.h"

namespace qelview {

namespace {

constexpr std::size_t kHeaderSize = 84;
constexpr std::size_t kRecordSize = 50;
constexpr std::size_t kCountOffset = 80;
constexpr std::size_t kNormalSize = 12;
constexpr std::size_t kColorOffset = 48;

/// Of a triangle: five bits a channel, if the highest one is set.
constexpr std::uint16_t kHasColor = 0x8000;

std::uint64_t promisedTriangles(std::string_view bytes) {
    return static_cast<std::uint64_t>(
        readScalar<std::uint32_t>(bytes.data() + kCountOffset, ByteOrder::Little));
}

/// A few bytes behind the last triangle do no harm.
bool isBinary(std::string_view bytes) {
    if (bytes.size() < kHeaderSize) {
        return false;
    }
    const std::uint64_t end = kHeaderSize + kRecordSize * promisedTriangles(bytes);
    return bytes.size() >= end && bytes.size() - end < kRecordSize;
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

/// Gives the corners of binary triangles their vertices: places and colours that differ. Looking up what is
/// known already takes longest, so that each core looks up its own share of the places.
class BinaryStlReading {
  public:
    BinaryStlReading(std::string_view bytesOfFile, const ProgressStretch& progressOfFile)
        : bytes(bytesOfFile),
          progress(progressOfFile),
          triangles(promisedTriangles(bytes)),
          // As many as there are cores, if it is worth while.
          pieces(piecesOf(triangles)),
          shares(pieces.size()) {}

    Scene run() {
        if (triangles == 0) {
            refuse("header", "there is no triangle");
        }
        mesh.indices.resize(triangles * 3);
        onAllCores(pieces, [this](std::size_t share) { numberCorners(share); });
        giveVertices();
        Scene scene;
        scene.meshes.push_back(std::move(mesh));
        if (const std::uint64_t left = bytes.size() - kHeaderSize - kRecordSize * triangles; left > 0) {
            scene.warnings.push_back("end of file: " + std::to_string(left) +
                                     " bytes behind the last triangle are left out");
        }
        return scene;
    }

  private:
    using Key = std::array<std::uint32_t, 4>;

    /// The vertices of one core.
    struct Share {
        Numbering<std::uint32_t, 4> vertices{0};
        bool hasColors = false;
    };

    /// Of all triangles, the corners whose places belong to a share. Until all are known, an index is the
    /// number within the share, times the number of shares, plus the share.
    void numberCorners(std::size_t number) {
        // Closed surfaces have twice as many triangles as vertices.
        Share share{Numbering<std::uint32_t, 4>(triangles / 2 / shares.size() + 2)};
        for (std::uint64_t triangle = 0; triangle < triangles; ++triangle) {
            if (number == 0) {
                progress.reportPiece(triangle, triangles);
            }
            const char* const record = bytes.data() + kHeaderSize + kRecordSize * triangle;
            const auto bits = readScalar<std::uint16_t>(record + kColorOffset, ByteOrder::Little);
            const std::uint16_t color = (bits & kHasColor) != 0 ? bits : 0;
            share.hasColors = share.hasColors || color != 0;
            for (std::size_t corner = 0; corner < 3; ++corner) {
                const Key key = keyOf(record + kNormalSize + 3 * corner * sizeof(float), color, triangle);
                // Bits that neighbours differ in.
                const std::uint32_t mixed = (key[0] ^ key[1] * 31U ^ key[2] * 97U) * 0x9E3779B1U;
                if ((mixed >> 16U) % shares.size() == number) {
                    mesh.indices[3 * triangle + corner] =
                        static_cast<std::uint32_t>(share.vertices.numberOf(key) * shares.size() + number);
                }
            }
        }
        shares[number] = std::move(share);
    }

    static Key keyOf(const char* place, std::uint16_t color, std::uint64_t triangle) {
        Key key{0, 0, 0, color};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto value = readScalar<float>(place + axis * sizeof(float), ByteOrder::Little);
            if (!(std::abs(value) <= static_cast<float>(kLargestCoordinate))) {
                refuse("triangle " + std::to_string(triangle + 1),
                       "a coordinate " + faultOfCoordinate(static_cast<double>(value)));
            }
            // Adding 0 makes -0 a 0.
            key.at(axis) = std::bit_cast<std::uint32_t>(value + 0.0F);
        }
        return key;
    }

    void giveVertices() {
        const auto coordinate = [](std::uint32_t word) {
            return static_cast<double>(std::bit_cast<float>(word));
        };
        const bool hasColors =
            std::any_of(shares.begin(), shares.end(), [](const Share& share) { return share.hasColors; });
        std::vector<std::uint32_t> firsts;
        for (const Share& share : shares) {
            firsts.push_back(static_cast<std::uint32_t>(mesh.positions.size()));
            for (const auto& [x, y, z, color] : share.vertices.known()) {
                mesh.positions.emplace_back(coordinate(x), coordinate(y), coordinate(z));
                if (hasColors) {
                    mesh.colors.push_back(colorOf(static_cast<std::uint16_t>(color)));
                }
            }
        }
        const auto count = static_cast<std::uint32_t>(shares.size());
        forEachOnAllCores(mesh.indices.size(), [&](std::size_t i) {
            mesh.indices[i] = firsts[mesh.indices[i] % count] + mesh.indices[i] / count;
        });
    }

    std::string_view bytes;
    ProgressStretch progress;
    std::uint64_t triangles;
    std::vector<Piece> pieces;
    std::vector<Share> shares;
    TriangleMesh mesh;
};

/// Follows the keywords of the text in their order.
class AsciiStlReading {
  public:
    AsciiStlReading(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

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
        if (mesh.indices.empty()) {
            refuse("end of file", "there is no triangle");
        }
        return finished();
    }

  private:
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
            lines.refuseLine(quoted(words.front()) + " is not expected here");
        }
        checkRest(found->word);
        state = found->to;
        if (state == State::LoopDone) {
            closeLoop();
        }
    }

    /// True if the line begins with the keyword, in small or capital letters.
    [[nodiscard]] bool is(std::string_view keyword) const {
        const auto lower = [](char character) {
            return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                        : character;
        };
        const std::string_view word = words.front();
        return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                          [&](char a, char b) { return lower(a) == b; });
    }

    /// The normal is made from the triangle, so that it may be missing or none.
    void checkRest(std::string_view keyword) {
        const bool isNamed = keyword == "solid" || keyword == "endsolid";
        const std::size_t expected = keyword == "facet" ? 5 : keyword == "outer" ? 2 : 1;
        if (!isNamed && words.size() != expected) {
            warnings.add(atLine(lines.number()), "there is " +
                                                     std::string(words.size() < expected ? "less" : "more") +
                                                     " than belongs to " + quoted(keyword));
        }
    }

    void readVertex() {
        if (words.size() < 4) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size() - 1));
        }
        if (words.size() > 4) {
            warnings.add(atLine(lines.number()), "a vertex with more than 3 coordinates");
        }
        std::array<std::uint64_t, 3> key{};
        for (std::size_t i = 0; i < key.size(); ++i) {
            // Adding 0 makes -0 a 0.
            key.at(i) = std::bit_cast<std::uint64_t>(readCoordinate(words[i + 1], lines) + 0.0);
        }
        mesh.indices.push_back(vertices.numberOf(key));
        ++cornersOfLoop;
    }

    void closeLoop() {
        if (cornersOfLoop != 3) {
            lines.refuseLine("a triangle has 3 corners, this one has " + std::to_string(cornersOfLoop));
        }
        cornersOfLoop = 0;
    }

    Scene finished() {
        mesh.positions.reserve(vertices.known().size());
        for (const auto& [x, y, z] : vertices.known()) {
            mesh.positions.emplace_back(std::bit_cast<double>(x), std::bit_cast<double>(y),
                                        std::bit_cast<double>(z));
        }
        Scene scene;
        scene.meshes.push_back(std::move(mesh));
        scene.warnings = warnings.lines();
        return scene;
    }

    TextLines lines;
    Warnings warnings;
    std::vector<std::string_view> words;
    State state = State::Outside;
    Numbering<std::uint64_t, 3> vertices{0};
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
    refuse("header", "it promises " + std::to_string(promisedTriangles(bytes)) +
                         " triangles, the file has room for " +
                         std::to_string((bytes.size() - kHeaderSize) / kRecordSize));
}

}  // namespace qelview
