#include "ObjMaterials.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "FileBytes.h"
#include "MeshLook.h"
#include "ReadError.h"
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

/// A texture multiplies the colour. Some programs write black for materials that have a texture.
qel::QelColor3f colorUnder(const std::optional<qel::QelColor3f>& color) {
    const bool isBlack = color && color->r == 0.0F && color->g == 0.0F && color->b == 0.0F;
    return color && !isBlack ? *color : qel::QelColor3f(1.0F, 1.0F, 1.0F);
}

/// What may stand before the name of an image.
struct MapOption {
    std::string_view name;
    std::size_t mostValues = 0;
    bool areNumbers = false;
};

constexpr std::array<MapOption, 12> kMapOptions{{
    {"-blendu", 1, false},
    {"-blendv", 1, false},
    {"-boost", 1, true},
    {"-bm", 1, true},
    {"-cc", 1, false},
    {"-clamp", 1, false},
    {"-imfchan", 1, false},
    {"-mm", 2, true},
    {"-o", 3, true},
    {"-s", 3, true},
    {"-t", 3, true},
    {"-texres", 1, true},
}};

}  // namespace

bool ObjMaterials::readLibrary(std::string_view name) {
    if (const auto known = libraries.find(name); known != libraries.end()) {
        return known->second;
    }
    if (libraries.size() == kMostLibraries) {
        return false;
    }
    std::optional<std::string> text = siblingBytes(file, name, kLargestLibrary);
    if (!text) {
        std::filesystem::path likeTheModel = file.filename();
        text = siblingBytes(file, utf8(likeTheModel.replace_extension("mtl")), kLargestLibrary);
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
    Material* material = nullptr;
    while (lines.next()) {
        splitWords(lines.line(), words);
        if (words.size() < 2) {
            continue;
        }
        if (words[0] == "newmtl") {
            material = &materials[std::string(behindFirstWord(lines.line()))];
        } else if (words[0] == "Kd" && material != nullptr) {
            if (const auto found = colorIn(words)) {
                material->look.color = found;
            }
        } else if (words[0] == "map_Kd" && material != nullptr) {
            readMap(lines.line(), words, *material);
        }
    }
}

void ObjMaterials::readMap(std::string_view line, const std::vector<std::string_view>& words,
                           Material& material) {
    TexturePlacement scaled;
    material.wrapping = Wrapping::Repeat;
    std::size_t next = 1;
    std::string_view rest = behindFirstWord(line);
    const auto pass = [&] {
        rest = behindFirstWord(rest);
        return words[next++];
    };
    while (next + 1 < words.size()) {
        const auto* const option =
            std::find_if(kMapOptions.begin(), kMapOptions.end(),
                         [&](const MapOption& each) { return each.name == words[next]; });
        if (option == kMapOptions.end()) {
            break;
        }
        pass();
        for (std::size_t i = 0; i < option->mostValues && next + 1 < words.size(); ++i) {
            const std::optional<double> number = numberIn(words[next]);
            if (option->areNumbers && !number) {
                break;
            }
            const std::string_view value = pass();
            if (option->name == "-clamp" && value == "on") {
                material.wrapping = Wrapping::Clamp;
            } else if (option->name == "-s" && i < 2) {
                (i == 0 ? scaled.uFromU : scaled.vFromV) = *number;
            } else if (option->name == "-o" && i < 2) {
                (i == 0 ? scaled.u0 : scaled.v0) = *number;
            }
        }
    }
    material.map = rest;
    material.look.placement = scaled.then(TexturePlacement::upwards());
}

const ObjLook& ObjMaterials::lookOf(std::string_view name, const std::string& place, Warnings& warnings) {
    static const ObjLook none;
    const auto found = materials.find(name);
    if (found == materials.end()) {
        warnings.add(place, "there is no material " + inQuotes(name));
        return none;
    }
    auto& [look, map, wrapping] = found->second;
    if (!map.empty()) {
        try {
            if (auto image = images.fileNamed(std::exchange(map, {}))) {
                look.texture = std::make_shared<const Texture>(Texture{std::move(image), wrapping, wrapping});
                look.color = colorUnder(look.color);
            }
        } catch (const ReadError& error) {
            warnings.add(place, error.what());
        }
    }
    return look;
}

}  // namespace qelview
