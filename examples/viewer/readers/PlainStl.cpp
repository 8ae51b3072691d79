#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "ByteOrder.h"
#include "PlainModel.h"
#include "PlainText.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

constexpr std::size_t kHeaderSize = 84;
constexpr std::size_t kRecordSize = 50;
constexpr std::size_t kCountOffset = 80;
constexpr std::size_t kNormalSize = 12;
constexpr std::size_t kCoordinatesOfATriangle = 9;

std::uint64_t promisedTriangles(std::string_view bytes) {
    return static_cast<std::uint64_t>(
        readScalar<std::uint32_t>(bytes.data() + kCountOffset, ByteOrder::Little));
}

bool isBinary(std::string_view bytes) {
    return bytes.size() >= kHeaderSize &&
           bytes.size() == kHeaderSize + kRecordSize * promisedTriangles(bytes);
}

void checkBinary(std::string_view bytes, const ProgressStretch& progress) {
    const std::uint64_t triangles = promisedTriangles(bytes);
    for (std::uint64_t triangle = 0; triangle < triangles; ++triangle) {
        const char* const first = bytes.data() + kHeaderSize + kRecordSize * triangle + kNormalSize;
        for (std::size_t i = 0; i < kCoordinatesOfATriangle; ++i) {
            const auto value =
                static_cast<double>(readScalar<float>(first + i * sizeof(float), ByteOrder::Little));
            if (const std::string fault = faultOfCoordinate(value); !fault.empty()) {
                refuse("triangle " + std::to_string(triangle + 1), "a coordinate " + fault);
            }
        }
        progress.reportPiece(triangle, triangles);
    }
    if (triangles == 0) {
        refuse("header", "there is no triangle");
    }
}

/// Follows the keywords of the text in their order.
class AsciiStlReading {
  public:
    AsciiStlReading(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

    std::string run() {
        while (lines.nextPlain()) {
            splitWords(lines.line(), words);
            if (!words.empty()) {
                step();
            }
        }
        if (state != State::Outside) {
            refuse(atLine(lines.number()), "the file ends inside a solid");
        }
        if (triangles == 0) {
            refuse("end of file", "there is no triangle");
        }
        return plain.take();
    }

  private:
    enum class State : std::uint8_t { Outside, Solid, Facet, Loop, LoopDone };

    void step() {
        const std::string_view word = words.front();
        if (state == State::Loop && word == "vertex") {
            passVertex();
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
            return step.from == state && step.word == word;
        });
        if (found == kSteps.end()) {
            lines.refuseLine(quoted(word) + " is not expected here");
        }
        checkRest(word);
        state = found->to;
        if (state == State::LoopDone) {
            closeLoop();
        }
    }

    void checkRest(std::string_view keyword) {
        if (keyword == "solid") {
            beginSolid();
        } else if (keyword == "endsolid") {
            endSolid();
        } else if (keyword == "facet") {
            checkNormal();
        } else if (words.size() != (keyword == "outer" ? 2U : 1U)) {
            lines.refuseLine("there is more than " + quoted(keyword) + " needs");
        }
    }

    /// A name is passed on if the importer takes it for one.
    void beginSolid() {
        constexpr std::size_t kLongestName = 200;
        name = words.size() > 1 ? words[1] : std::string_view();
        const bool isPlain = std::all_of(name.begin(), name.end(),
                                         [](char character) { return character > ' ' && character <= '~'; });
        if (!isPlain || name.size() > kLongestName) {
            name = {};
        }
        trianglesBefore = triangles;
    }

    void endSolid() {
        if (triangles > trianglesBefore) {
            passLine("endsolid");
        }
    }

    /// It is made anew from the triangle, and need not be finite.
    void checkNormal() const {
        if (words.size() != 5 || words[1] != "normal") {
            lines.refuseLine("a facet begins with 'facet normal X Y Z'");
        }
        for (std::size_t i = 2; i < words.size(); ++i) {
            static_cast<void>(readNumber(words[i], lines));
        }
    }

    void passVertex() {
        if (words.size() != 4) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size() - 1));
        }
        for (std::size_t i = 1; i <= 3; ++i) {
            numbers.push_back(readCoordinate(words[i], lines));
        }
    }

    void closeLoop() {
        if (numbers.size() != kCoordinatesOfATriangle) {
            lines.refuseLine("a triangle has 3 corners, this one has " + std::to_string(numbers.size() / 3));
        }
        if (triangles == trianglesBefore) {
            plain.word("solid");
            passLine(name);
        }
        passLine("facet normal 0 0 0");
        passLine("outer loop");
        for (std::size_t i = 0; i < kCoordinatesOfATriangle; i += 3) {
            plain.word("vertex");
            plain.number(numbers[i]);
            plain.number(numbers[i + 1]);
            plain.number(numbers[i + 2]);
            plain.endLine();
        }
        passLine("endloop");
        passLine("endfacet");
        numbers.clear();
        ++triangles;
    }

    void passLine(std::string_view line) {
        plain.word(line);
        plain.endLine();
    }

    TextLines lines;
    std::vector<std::string_view> words;
    PlainText plain;
    State state = State::Outside;
    /// Of the solid that is open.
    std::string_view name;
    std::size_t trianglesBefore = 0;
    /// Coordinates of the loop that is open.
    std::vector<double> numbers;
    std::size_t triangles = 0;
};

}  // namespace

PlainModel plainStl(std::string bytes, const std::filesystem::path&, const ProgressStretch& progress) {
    if (isBinary(bytes)) {
        // Records of a fixed size are as plain as can be.
        checkBinary(bytes, progress);
        return {std::move(bytes), ""};
    }
    if (bytes.starts_with("solid") && bytes.find('\0') == std::string::npos) {
        return {AsciiStlReading(bytes, progress).run(), ""};
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
