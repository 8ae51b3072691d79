#include <string>
#include <vector>

#include "CheckMeshFiles.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// The importer leaves out faces with more.
constexpr long long kMostCorners = 9;
/// The importer takes what lies behind for a line of its own.
constexpr std::size_t kLongestLine = 4096;

class OffCheck {
  public:
    OffCheck(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

    void run() {
        requireWords("a header");
        readKeyword();
        const long long vertices = readCount("vertices");
        const long long faces = readCount("faces");
        isPastCounts = true;
        for (long long i = 0; i < vertices; ++i) {
            requireWords("vertex " + std::to_string(i));
            checkVertex();
        }
        for (long long i = 0; i < faces; ++i) {
            requireWords("face " + std::to_string(i));
            checkFace(vertices);
        }
    }

  private:
    /// Moves to the next line that has words.
    void requireWords(const std::string& expected) {
        do {
            if (!lines.nextPlain()) {
                refuse(atLine(lines.number()), "the file ends where " + expected + " should stand");
            }
            if (lines.line().size() >= kLongestLine) {
                lines.refuseLine("a line of more than " + std::to_string(kLongestLine - 1) + " characters");
            }
            splitWords(lines.line().substr(0, lines.line().find('#')), words);
            refuseEmptyElement();
        } while (words.empty());
        used = 0;
    }

    /// Once it has read the counts, the importer takes each line that holds a character for a vertex or a
    /// face.
    void refuseEmptyElement() const {
        if (isPastCounts && words.empty() && !lines.line().empty()) {
            lines.refuseLine("a remark or blanks where a vertex or a face should stand");
        }
    }

    void readKeyword() {
        if (words[0] != "OFF" && words[0] != "COFF" && words[0] != "NOFF" && words[0] != "CNOFF") {
            lines.refuseLine("an OFF file begins with the word OFF, COFF, NOFF or CNOFF");
        }
        ++used;
    }

    /// Counts may follow the keyword or stand on the next line.
    long long readCount(const std::string& what) {
        if (used == words.size()) {
            requireWords("the number of " + what);
        }
        const long long count = readPlainWhole(words[used++]);
        if (count <= 0) {
            lines.refuseLine("there are no " + what);
        }
        return count;
    }

    /// The importer takes a number with a plus sign for 0.
    long long readPlainWhole(std::string_view word) const {
        if (word.starts_with('+')) {
            lines.refuseLine(quoted(word) + " has a plus sign");
        }
        return readWhole(word, lines);
    }

    void checkVertex() {
        if (words.size() < 3) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size()));
        }
        for (const std::string_view word : words) {
            static_cast<void>(readCoordinate(word, lines));
        }
    }

    void checkFace(long long vertices) {
        const long long corners = readPlainWhole(words[0]);
        if (corners < 1 || corners > kMostCorners) {
            lines.refuseLine("a face of " + std::to_string(corners) + " corners; 1 to " +
                             std::to_string(kMostCorners) + " are read");
        }
        if (words.size() < static_cast<std::size_t>(corners) + 1) {
            lines.refuseLine("a face of " + std::to_string(corners) + " corners that names " +
                             std::to_string(words.size() - 1));
        }
        for (std::size_t i = 1; i <= static_cast<std::size_t>(corners); ++i) {
            const long long index = readPlainWhole(words[i]);
            if (index < 0 || index >= vertices) {
                lines.refuseLine("vertex " + std::to_string(index) + " does not exist: there are " +
                                 std::to_string(vertices) + ", counted from 0");
            }
        }
    }

    TextLines lines;
    std::vector<std::string_view> words;
    std::size_t used = 0;
    bool isPastCounts = false;
};

}  // namespace

void checkOff(std::string_view text, const ProgressStretch& progress) {
    requireText(text);
    OffCheck(text, progress).run();
}

}  // namespace qelview
