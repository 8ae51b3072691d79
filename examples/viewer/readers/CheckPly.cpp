#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "CheckMeshFiles.h"
#include "PlyHeader.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Hands out the values of the body one by one, and knows where it stands.
class PlyValues {
  public:
    virtual ~PlyValues() = default;
    virtual void beginInstance(const PlyElement& element, std::uint64_t index) = 0;
    virtual double next(PlyType type) = 0;
    virtual void endInstance() = 0;
    [[noreturn]] virtual void refuseHere(const std::string& reason) const = 0;
};

/// Of an ASCII body: one instance a line.
class AsciiValues final : public PlyValues {
  public:
    AsciiValues(std::string_view bytes, const PlyHeader& header, const ProgressStretch& progress)
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
    double next(PlyType) override {
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
class BinaryValues final : public PlyValues {
  public:
    BinaryValues(std::string_view bytes, const PlyHeader& header, const ProgressStretch& progressOfBody)
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
    double next(PlyType type) override {
        if (body.size() - used < sizeOf(type)) {
            refuseHere("the file ends here");
        }
        const char* const from = body.data() + used;
        used += sizeOf(type);
        switch (type) {
            case PlyType::Int8:
                return static_cast<double>(readScalar<std::int8_t>(from, order));
            case PlyType::Uint8:
                return static_cast<double>(readScalar<std::uint8_t>(from, order));
            case PlyType::Int16:
                return static_cast<double>(readScalar<std::int16_t>(from, order));
            case PlyType::Uint16:
                return static_cast<double>(readScalar<std::uint16_t>(from, order));
            case PlyType::Int32:
                return static_cast<double>(readScalar<std::int32_t>(from, order));
            case PlyType::Uint32:
                return static_cast<double>(readScalar<std::uint32_t>(from, order));
            case PlyType::Float32:
                return static_cast<double>(readScalar<float>(from, order));
            case PlyType::Float64:
                break;
        }
        return readScalar<double>(from, order);
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

/// What a count of 32 bits can say; an ASCII file could write more.
constexpr double kLongestList = 4294967295.0;

bool isCoordinate(const PlyProperty& property) {
    return property.name == "x" || property.name == "y" || property.name == "z";
}

bool isCornerList(const PlyProperty& property) {
    return property.name == "vertex_indices" || property.name == "vertex_index";
}

class PlyCheck {
  public:
    PlyCheck(PlyValues& bodyValues, const PlyHeader& fileHeader)
        : values(bodyValues), header(fileHeader), vertices(header.find("vertex")->count) {}

    void run() {
        for (const PlyElement& element : header.elements) {
            for (std::uint64_t index = 0; index < element.count; ++index) {
                values.beginInstance(element, index);
                for (const PlyProperty& property : element.properties) {
                    checkProperty(element, property);
                }
                values.endInstance();
            }
        }
    }

  private:
    void checkProperty(const PlyElement& element, const PlyProperty& property) {
        if (property.countType) {
            checkList(element, property);
            return;
        }
        const double value = values.next(property.type);
        if (element.name == "vertex" && isCoordinate(property)) {
            if (const std::string fault = faultOfCoordinate(value); !fault.empty()) {
                values.refuseHere("the coordinate " + property.name + " " + fault);
            }
        }
    }

    void checkList(const PlyElement& element, const PlyProperty& property) {
        const double length = values.next(*property.countType);
        if (!(length >= 0.0 && length <= kLongestList) || length != std::floor(length)) {
            values.refuseHere("a list cannot have " + std::to_string(length) + " values");
        }
        const auto count = static_cast<std::uint64_t>(length);
        for (std::uint64_t i = 0; i < count; ++i) {
            const double value = values.next(property.type);
            if (element.name == "face" && isCornerList(property)) {
                checkCorner(value);
            }
        }
    }

    void checkCorner(double index) {
        if (!(index >= 0.0 && index < static_cast<double>(vertices)) || index != std::floor(index)) {
            values.refuseHere("vertex " +
                              std::to_string(static_cast<long long>(std::clamp(index, -1e15, 1e15))) +
                              " does not exist: there are " + std::to_string(vertices) + ", counted from 0");
        }
    }

    PlyValues& values;
    const PlyHeader& header;
    std::uint64_t vertices;
};

}  // namespace

void checkPly(std::string_view bytes, const ProgressStretch& progress) {
    const PlyHeader header = readPlyHeader(bytes);
    if (header.isAscii) {
        requireText(bytes);
        AsciiValues values(bytes, header, progress);
        PlyCheck(values, header).run();
    } else {
        BinaryValues values(bytes, header, progress);
        PlyCheck(values, header).run();
    }
}

}  // namespace qelview
