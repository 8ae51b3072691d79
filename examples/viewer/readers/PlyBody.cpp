#include "PlyBody.h"

#include <algorithm>
#include <vector>

#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Of an ASCII body: one instance a line.
class AsciiBody final : public PlyBody {
  public:
    AsciiBody(std::string_view bytes, const PlyHeader& header, const ProgressStretch& progress)
        : lines(bytes, progress) {
        while (lines.number() + 1 < header.bodyFirstLine && lines.next()) {
        }
    }

    void beginInstance(const PlyElement& element, std::uint64_t index) override {
        do {
            if (!lines.nextPlain()) {
                refuse(atLine(lines.number()), "the file ends after " + std::to_string(index) + " of " +
                                                   std::to_string(element.count) + " instances of element " +
                                                   quoted(element.name));
            }
            splitWords(lines.line(), words);
        } while (words.empty());
        used = 0;
    }
    double next(ScalarType) override {
        if (used == words.size()) {
            refuseHere("too few values");
        }
        return readNumber(words[used++], lines);
    }
    void endInstance() override {
        if (used != words.size()) {
            refuseHere(std::to_string(words.size()) + " values where the header promises " +
                       std::to_string(used));
        }
    }
    [[noreturn]] void refuseHere(const std::string& reason) const override { lines.refuseLine(reason); }

  private:
    TextLines lines;
    std::vector<std::string_view> words;
    std::size_t used = 0;
};

/// Of a binary body.
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
        if (body.size() - used < sizeOf(type)) {
            refuseHere("the file ends here");
        }
        const char* const from = body.data() + used;
        used += sizeOf(type);
        return readAs(type, from, order);
    }
    void endInstance() override {}
    [[noreturn]] void refuseHere(const std::string& reason) const override {
        refuse(current->name + " " + std::to_string(instance), reason);
    }

  private:
    std::string_view body;
    ByteOrder order;
    ProgressStretch progress;
    std::size_t used = 0;
    const PlyElement* current = nullptr;
    std::uint64_t instance = 0;
};

}  // namespace

std::unique_ptr<PlyBody> bodyOf(std::string_view bytes, const PlyHeader& header,
                                const ProgressStretch& progress) {
    if (header.isAscii) {
        requireText(bytes);
        return std::make_unique<AsciiBody>(bytes, header, progress);
    }
    return std::make_unique<BinaryBody>(bytes, header, progress);
}

}  // namespace qelview
