#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "ByteOrder.h"
#include "CheckMeshFiles.h"
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
        if (triangle % 65536 == 0) {
            progress.report(static_cast<double>(triangle) / static_cast<double>(triangles));
        }
    }
    if (triangles == 0) {
        refuse("header", "there is no triangle");
    }
}

/// Follows the keywords of the text in their order.
class AsciiStlCheck {
  public:
    AsciiStlCheck(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

    void run() {
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
    }

  private:
    enum class State : std::uint8_t { Outside, Solid, Facet, Loop, LoopDone };

    void step() {
        const std::string_view word = words.front();
        if (state == State::Loop && word == "vertex") {
            checkVertex();
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

    void checkRest(std::string_view keyword) const {
        if (keyword == "solid") {
            checkName();
        } else if (keyword == "facet") {
            checkNormal();
        } else if (keyword != "endsolid" && words.size() != (keyword == "outer" ? 2U : 1U)) {
            lines.refuseLine("there is more than " + quoted(keyword) + " needs");
        }
    }

    void checkName() const {
        constexpr std::size_t kLongestName = 1000;
        const bool isSafe = std::none_of(words.begin() + 1, words.end(), [](std::string_view word) {
            return word == "facet" || word == "vertex" || word.starts_with("endsolid");
        });
        if (!isSafe || lines.line().size() > kLongestName) {
            lines.refuseLine("the name of the solid is too long or holds a keyword");
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

    void checkVertex() {
        if (words.size() != 4) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size() - 1));
        }
        for (std::size_t i = 1; i <= 3; ++i) {
            static_cast<void>(readCoordinate(words[i], lines));
        }
        ++corners;
    }

    void closeLoop() {
        if (corners != 3) {
            lines.refuseLine("a triangle has 3 corners, this one has " + std::to_string(corners));
        }
        corners = 0;
        ++triangles;
    }

    TextLines lines;
    std::vector<std::string_view> words;
    State state = State::Outside;
    std::size_t corners = 0;
    std::size_t triangles = 0;
};

}  // namespace

void checkStl(std::string_view bytes, const ProgressStretch& progress) {
    if (isBinary(bytes)) {
        checkBinary(bytes, progress);
        return;
    }
    if (bytes.starts_with("solid") && bytes.find('\0') == std::string_view::npos) {
        AsciiStlCheck(bytes, progress).run();
        return;
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
