#include "PlyBody.h"

#include <algorithm>
#include <vector>

#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// An ASCII body: one instance a line.
class AsciiBody final : public PlyBody {
  public:
    AsciiBody(std::string_view bytes, const PlyHeader& header, Warnings& warningsOfFile,
              const ProgressStretch& progress)
        : lines(bytes, progress), warnings(warningsOfFile) {
        while (lines.number() + 1 < header.bodyFirstLine && lines.next()) {
        }
    }

    void beginInstance(const PlyElement& element, std::uint64_t index) override {
        do {
            if (!lines.next()) {
                refuse(atLine(lines.number()), "the file ends after " + std::to_string(index) + " of " +
                                                   std::to_string(element.count) + " instances of element " +
                                                   inQuotes(element.name));
            }
            splitWords(lines.line(), words);
        } while (words.empty());
        current = &element;
        used = 0;
    }
    double next(ScalarType) override {
        if (used == words.size()) {
            refuseHere("too few values");
        }
        return readNumber(words[used++], lines);
    }
    void endInstance() override {
        if (used == words.size()) {
            return;
        }
        const std::string reason =
            std::to_string(words.size()) + " values where the header declares " + std::to_string(used);
        // After a list, which says its own length, extra values are an error.
        if (current->hasList()) {
            refuseHere(reason);
        }
        warnings.add(here(), reason);
    }
    [[nodiscard]] std::string here() const override { return atLine(lines.number()); }
    [[nodiscard]] std::string_view records() const override { return {}; }
    void passRecords(std::size_t) override {}

  private:
    TextLines lines;
    Warnings& warnings;
    std::vector<std::string_view> words;
    std::size_t used = 0;
    const PlyElement* current = nullptr;
};

class BinaryBody final : public PlyBody {
  public:
    BinaryBody(std::string_view bytes, const PlyHeader& header, const ProgressStretch& progressOfBody)
        : body(bytes.substr(std::min(header.bodyBegin, bytes.size()))),
          order(header.byteOrder),
          progress(progressOfBody) {}

    void beginInstance(const PlyElement& element, std::uint64_t index) override {
        current = &element;
        instance = index;
        if (index % 65536 == 0) {
            progress.report(static_cast<double>(used) / static_cast<double>(body.size() + 1));
        }
    }
    double next(ScalarType type) override {
        const ScalarReading& reading = readingOf(type);
        if (body.size() - used < reading.size) {
            refuseHere("the file ends here");
        }
        const char* const from = body.data() + used;
        used += reading.size;
        return reading.read(from, order);
    }
    void endInstance() override {}
    [[nodiscard]] std::string here() const override { return current->name + " " + std::to_string(instance); }
    [[nodiscard]] std::string_view records() const override { return body.substr(used); }
    void passRecords(std::size_t bytes) override { used += bytes; }

  private:
    std::string_view body;
    ByteOrder order;
    ProgressStretch progress;
    std::size_t used = 0;
    const PlyElement* current = nullptr;
    std::uint64_t instance = 0;
};

}  // namespace

std::unique_ptr<PlyBody> bodyOf(std::string_view bytes, const PlyHeader& header, Warnings& warnings,
                                const ProgressStretch& progress) {
    if (header.isAscii) {
        requireText(bytes);
        return std::make_unique<AsciiBody>(bytes, header, warnings, progress);
    }
    return std::make_unique<BinaryBody>(bytes, header, progress);
}

}  // namespace qelview
