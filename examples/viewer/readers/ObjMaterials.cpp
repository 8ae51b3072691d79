#include "ObjMaterials.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "FileBytes.h"
#include "MeshLook.h"
#include "PlainText.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Far more than any real one.
constexpr std::uintmax_t kLargestLibrary = std::uintmax_t{16} << 20U;

/// A model can name a library on each of its lines.
constexpr std::size_t kMostLibraries = 64;

/// Grey if only one number is there.
std::optional<std::array<float, 3>> colorOf(const std::vector<std::string_view>& words) {
    std::array<float, 3> color{};
    for (std::size_t i = 0; i < color.size(); ++i) {
        const std::size_t place = words.size() == 2 ? 1 : i + 1;
        const std::optional<double> value = place < words.size() ? numberIn(words[place]) : std::nullopt;
        if (!value || !std::isfinite(*value)) {
            return std::nullopt;
        }
        color[i] = shownShare(*value);
    }
    return color;
}

}  // namespace

void ObjMaterials::readLibrary(std::string_view name) {
    if (libraries.size() == kMostLibraries || !libraries.emplace(name).second) {
        return;
    }
    std::optional<std::string> text = bytesBeside(file, name, kLargestLibrary);
    if (!text) {
        std::filesystem::path likeTheModel = file.filename();
        text = bytesBeside(file, utf8(likeTheModel.replace_extension("mtl")), kLargestLibrary);
    }
    if (text) {
        readText(*text);
    }
}

void ObjMaterials::readText(std::string_view text) {
    Progress ignored;
    TextLines lines(text, ProgressStretch(ignored, 0.0, 1.0));
    std::vector<std::string_view> words;
    std::string name;
    while (lines.next()) {
        splitWords(lines.line(), words);
        if (words.size() < 2) {
            continue;
        }
        if (words[0] == "newmtl") {
            name = behindFirstWord(lines.line());
        } else if (words[0] == "Kd" && !name.empty()) {
            if (const auto color = colorOf(words)) {
                diffuse[name] = *color;
            }
        }
    }
}

const std::string& ObjMaterials::plainNameOf(std::string_view name) {
    // The importer has this one, for faces without a material.
    static const std::string kWithoutColor = "DefaultMaterial";
    const auto found = diffuse.find(name);
    if (found == diffuse.end()) {
        return kWithoutColor;
    }
    const auto [material, isNew] = asked.try_emplace(found->second);
    if (isNew) {
        material->second = "m" + std::to_string(asked.size());
    }
    return material->second;
}

std::string ObjMaterials::plainLibrary() const {
    PlainText plain;
    for (const auto& [color, name] : asked) {
        plain.word("newmtl");
        plain.word(name);
        plain.endLine();
        plain.word("Kd");
        for (const float channel : color) {
            plain.number(static_cast<double>(channel));
        }
        plain.endLine();
    }
    return plain.take();
}

}  // namespace qelview
