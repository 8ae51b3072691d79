#include "ObjMaterials.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "FileBytes.h"
#include "MeshLook.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Far more than any real one.
constexpr std::uintmax_t kLargestLibrary = std::uintmax_t{16} << 20U;

/// A model can name a library on each of its lines.
constexpr std::size_t kMostLibraries = 64;

/// Grey if only one number is there.
std::optional<qel::QelColor3f> colorIn(const std::vector<std::string_view>& words) {
    std::array<float, 3> color{};
    for (std::size_t i = 0; i < color.size(); ++i) {
        const std::size_t place = words.size() == 2 ? 1 : i + 1;
        const std::optional<double> value = place < words.size() ? numberIn(words[place]) : std::nullopt;
        if (!value || !std::isfinite(*value)) {
            return std::nullopt;
        }
        color.at(i) = shownShare(*value);
    }
    return qel::QelColor3f(color[0], color[1], color[2]);
}

}  // namespace

bool ObjMaterials::readLibrary(std::string_view name) {
    if (const auto known = libraries.find(name); known != libraries.end()) {
        return known->second;
    }
    if (libraries.size() == kMostLibraries) {
        return false;
    }
    std::optional<std::string> text = bytesBeside(file, name, kLargestLibrary);
    if (!text) {
        std::filesystem::path likeTheModel = file.filename();
        text = bytesBeside(file, utf8(likeTheModel.replace_extension("mtl")), kLargestLibrary);
    }
    if (text) {
        readText(*text);
    }
    libraries.emplace(name, text.has_value());
    return text.has_value();
}

void ObjMaterials::readText(std::string_view text) {
    Progress ignored;
    TextLines lines(text, ProgressStretch(ignored, 0.0, 1.0));
    std::vector<std::string_view> words;
    std::optional<qel::QelColor3f>* color = nullptr;
    while (lines.next()) {
        splitWords(lines.line(), words);
        if (words.size() < 2) {
            continue;
        }
        if (words[0] == "newmtl") {
            color = &colors[std::string(behindFirstWord(lines.line()))];
        } else if (words[0] == "Kd" && color != nullptr) {
            if (const auto found = colorIn(words)) {
                *color = found;
            }
        }
    }
}

std::optional<qel::QelColor3f> ObjMaterials::colorOf(std::string_view name) const {
    const auto found = colors.find(name);
    return found == colors.end() ? std::nullopt : found->second;
}

}  // namespace qelview
