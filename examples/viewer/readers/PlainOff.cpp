#include <algorithm>
#include <string>
#include <vector>

#include "PlainModel.h"
#include "PlainText.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// The importer leaves out faces with more.
constexpr long long kMostCorners = 9;
constexpr std::size_t kCoordinates = 3;

class OffReading {
  public:
    OffReading(std::string_view text, const ProgressStretch& progress) : lines(text, progress) {}

    std::string run() {
        requireWords("a header");
        readKeyword();
        const long long vertices = readCount("vertices");
        const long long faces = readCount("faces");
        plain.whole(vertices);
        plain.whole(faces);
        plain.whole(0);
        plain.endLine();
        for (long long i = 0; i < vertices; ++i) {
            requireWords("vertex " + std::to_string(i));
            passVertex();
        }
        for (long long i = 0; i < faces; ++i) {
            requireWords("face " + std::to_string(i));
            passFace(vertices);
        }
        return plain.take();
    }

  private:
    /// Moves to the next line that has words.
    void requireWords(const std::string& expected) {
        do {
            if (!lines.nextPlain()) {
                refuse(atLine(lines.number()), "the file ends where " + expected + " should stand");
            }
            splitWords(lines.line().substr(0, lines.line().find('#')), words);
        } while (words.empty());
        used = 0;
    }

    void readKeyword() {
        const std::string_view keyword = words[used++];
        if (keyword != "OFF" && keyword != "COFF" && keyword != "NOFF" && keyword != "CNOFF") {
            lines.refuseLine("an OFF file begins with the word OFF, COFF, NOFF or CNOFF");
        }
        hasColors = keyword.starts_with('C');
        hasNormals = keyword.find('N') != std::string_view::npos;
        plain.word(keyword);
        plain.endLine();
    }

    /// Counts may follow the keyword or stand on the next line.
    long long readCount(const std::string& what) {
        if (used == words.size()) {
            requireWords("the number of " + what);
        }
        const long long count = readWhole(words[used++], lines);
        if (count <= 0) {
            lines.refuseLine("there are no " + what);
        }
        return count;
    }

    void passVertex() {
        if (words.size() < kCoordinates) {
            lines.refuseLine("a vertex has 3 coordinates, this one has " + std::to_string(words.size()));
        }
        numbers.clear();
        std::transform(words.begin(), words.end(), std::back_inserter(numbers),
                       [this](std::string_view word) { return readCoordinate(word, lines); });
        std::size_t next = 0;
        passNumbers(next, kCoordinates, 0.0);
        if (hasNormals) {
            passNumbers(next, kCoordinates, 0.0);
        }
        if (hasColors) {
            passNumbers(next, 3, 0.0);
            passNumbers(next, 1, 1.0);
        }
        plain.endLine();
    }

    /// `missing` where the line has no more.
    void passNumbers(std::size_t& next, std::size_t count, double missing) {
        for (const std::size_t end = next + count; next < end; ++next) {
            plain.number(next < numbers.size() ? numbers[next] : missing);
        }
    }

    void passFace(long long vertices) {
        const long long corners = readWhole(words[0], lines);
        if (corners < 1 || corners > kMostCorners) {
            lines.refuseLine("a face of " + std::to_string(corners) + " corners; 1 to " +
                             std::to_string(kMostCorners) + " are read");
        }
        if (words.size() < static_cast<std::size_t>(corners) + 1) {
            lines.refuseLine("a face of " + std::to_string(corners) + " corners that names " +
                             std::to_string(words.size() - 1));
        }
        plain.whole(corners);
        for (std::size_t i = 1; i <= static_cast<std::size_t>(corners); ++i) {
            const long long index = readWhole(words[i], lines);
            if (index < 0 || index >= vertices) {
                lines.refuseLine("vertex " + std::to_string(index) + " does not exist: there are " +
                                 std::to_string(vertices) + ", counted from 0");
            }
            plain.whole(index);
        }
        plain.endLine();
    }

    TextLines lines;
    PlainText plain;
    std::vector<std::string_view> words;
    std::vector<double> numbers;
    std::size_t used = 0;
    bool hasColors = false;
    bool hasNormals = false;
};

}  // namespace

PlainModel plainOff(std::string bytes, const std::filesystem::path&, const ProgressStretch& progress) {
    requireText(bytes);
    return {OffReading(bytes, progress).run(), ""};
}

}  // namespace qelview
