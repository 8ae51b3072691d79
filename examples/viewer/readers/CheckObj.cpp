#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "CheckMeshFiles.h"
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

class ObjCheck {
  public:
    ObjCheck(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

    void run() {
        while (lines.nextPlain()) {
            std::string_view line = lines.line();
            joinContinued(line);
            splitWords(line.substr(0, line.find('#')), words);
            if (!words.empty()) {
                checkStatement();
            }
        }
        for (const Numbered& kind : kinds) {
            requireDefined(kind);
        }
        if (kinds[0].count == 0) {
            refuse("end of file", "there is no vertex");
        }
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

    void checkStatement() {
        const std::string_view keyword = words.front();
        if (keyword == "v") {
            checkPosition();
        } else if (keyword == "vt") {
            checkNumbers(1, 3);
            ++kinds[1].count;
        } else if (keyword == "vn") {
            checkNumbers(3, 3);
            ++kinds[2].count;
        } else if (keyword == "f" || keyword == "l" || keyword == "p") {
            checkElement();
        }
    }

    void checkPosition() {
        const std::size_t values = words.size() - 1;
        if (values != 3 && values != 4 && values != 6 && values != 7) {
            lines.refuseLine("a vertex has 3 coordinates, and a weight or a colour; this one has " +
                             std::to_string(values) + " values");
        }
        for (std::size_t i = 1; i <= 3; ++i) {
            static_cast<void>(readCoordinate(words[i], lines));
        }
        for (std::size_t i = 4; i <= values; ++i) {
            static_cast<void>(readCoordinate(words[i], lines));
        }
        ++kinds[0].count;
    }

    void checkNumbers(std::size_t fewest, std::size_t most) {
        const std::size_t values = words.size() - 1;
        if (values < fewest || values > most) {
            lines.refuseLine(std::string(words.front()) + " with " + std::to_string(values) + " values");
        }
        for (std::size_t i = 1; i <= values; ++i) {
            static_cast<void>(readCoordinate(words[i], lines));
        }
    }

    void checkElement() {
        if (words.size() < 2) {
            lines.refuseLine("an element without vertices");
        }
        for (std::size_t i = 1; i < words.size(); ++i) {
            checkCorner(words[i]);
        }
    }

    /// "7", "7/3", "7//2" or "7/3/2".
    void checkCorner(std::string_view corner) {
        std::size_t begin = 0;
        for (std::size_t kind = 0; begin <= corner.size(); ++kind) {
            const std::size_t end = std::min(corner.find('/', begin), corner.size());
            const std::string_view number = corner.substr(begin, end - begin);
            if (kind >= kinds.size() || (number.empty() && kind != 1)) {
                lines.refuseLine(quoted(corner) + " is not a corner of an element");
            }
            if (!number.empty()) {
                checkIndex(kinds[kind], readWhole(number, lines));
            }
            begin = end + 1;
        }
    }

    void checkIndex(Numbered& kind, long long index) {
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
    }

    static void requireDefined(const Numbered& kind) {
        if (kind.highestNamed > kind.count) {
            refuse(atLine(kind.lineOfHighest),
                   std::string(kind.name) + " " + std::to_string(kind.highestNamed) +
                       " does not exist: the file has " + std::to_string(kind.count));
        }
    }

    TextLines lines;
    std::vector<std::string_view> words;
    std::string joined;
    std::array<Numbered, 3> kinds{Numbered{"vertex"}, Numbered{"texture coordinate"}, Numbered{"normal"}};
};

}  // namespace

void checkObj(std::string_view text, const ProgressStretch& progress) {
    requireText(text);
    ObjCheck(text, progress).run();
}

}  // namespace qelview
