#include "GltfTextures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

#include "GltfUri.h"
#include "JsonText.h"
#include "ReadError.h"

namespace qelview {

namespace {

using nlohmann::json;

constexpr std::uint64_t kClampToEdge = 33071;
constexpr std::uint64_t kMirroredRepeat = 33648;
constexpr std::uint64_t kRepeat = 10497;
constexpr std::uint64_t kNearest = 9728;
constexpr std::uint64_t kLinear = 9729;

/// What a material says about its texture, or null.
const json& textureInfoOf(const json& material) {
    const json& gloss = memberOf(memberOf(material, "extensions"), "KHR_materials_pbrSpecularGlossiness");
    const json& diffuse = memberOf(gloss, "diffuseTexture");
    return diffuse.is_null() ? memberOf(memberOf(material, "pbrMetallicRoughness"), "baseColorTexture")
                             : diffuse;
}

/// Scaled, then turned, then moved. Coordinates run downwards in the image, so that they turn the other way
/// round.
TexturePlacement placementOf(const std::string& place, const json& transform) {
    std::array<double, 2> scale{1.0, 1.0};
    std::array<double, 2> offset{0.0, 0.0};
    readNumbers(place, transform, "scale", scale);
    readNumbers(place, transform, "offset", offset);
    const json& rotation = memberOf(transform, "rotation");
    const double angleRadians = rotation.is_number() ? rotation.get<double>() : 0.0;
    const double cosine = std::cos(angleRadians);
    const double sine = std::sin(angleRadians);
    return {cosine * scale[0], sine * scale[1], offset[0], -sine * scale[0], cosine * scale[1], offset[1]};
}

/// Pixels of a lower alpha are holes. Mixing with what lies behind is not shown.
float cutoffOf(const json& material) {
    constexpr float kUsual = 0.5F;
    const json& mode = memberOf(material, "alphaMode");
    if (mode == "BLEND") {
        return kUsual;
    }
    const json& cutoff = memberOf(material, "alphaCutoff");
    return mode != "MASK" ? 0.0F : cutoff.is_number() ? cutoff.get<float>() : kUsual;
}

}  // namespace

void GltfTextures::dress(TriangleMesh& mesh, const std::string& place, const json& material,
                         const json& attributes) {
    const json& info = textureInfoOf(material);
    if (info.is_null()) {
        return;
    }
    const json& transform = memberOf(memberOf(info, "extensions"), "KHR_texture_transform");
    TexturePlacement placement = placementOf(place, transform);
    Texture texture = textureOf(place, memberOf(info, "index"), placement);
    if (!texture.image) {
        return;
    }
    texture.alphaCutoff = cutoffOf(material);
    const std::uint64_t set = wholeOf(place, info, "texCoord", 0);
    const std::string name = "TEXCOORD_" + std::to_string(wholeOf(place, transform, "texCoord", set));
    const GltfNumbers numbers = file.numbers(place, memberOf(attributes, name.c_str()), 2, 2);
    if (numbers.count() != mesh.positions.size()) {
        refuse(place, "its attribute " + inQuotes(name) + " and its positions differ in length");
    }
    mesh.texCoords.reserve(numbers.count());
    for (std::size_t i = 0; i < numbers.values.size(); i += 2) {
        mesh.texCoords.push_back(placement.placed(numbers.values[i], numbers.values[i + 1]));
    }
    mesh.texture = std::make_shared<const Texture>(std::move(texture));
}

Texture GltfTextures::textureOf(const std::string& place, const json& index, TexturePlacement& placement) {
    const json& its = file.element(place, "textures", index);
    const json& number = memberOf(its, "sampler");
    const json& sampler = number.is_null() ? number : file.element(place, "samplers", number);
    const std::uint64_t wrapU = wholeOf(place, sampler, "wrapS", kRepeat);
    const std::uint64_t wrapV = wholeOf(place, sampler, "wrapT", kRepeat);
    Texture texture;
    texture.image = imageOf(place, memberOf(its, "source"));
    texture.acrossU = wrapU == kClampToEdge ? Wrapping::Clamp : Wrapping::Repeat;
    texture.acrossV = wrapV == kClampToEdge ? Wrapping::Clamp : Wrapping::Repeat;
    texture.hasSharpPixels = wholeOf(place, sampler, "magFilter", kLinear) == kNearest;
    const bool isMirroredU = wrapU == kMirroredRepeat;
    const bool isMirroredV = wrapV == kMirroredRepeat;
    if (texture.image && (isMirroredU || isMirroredV)) {
        texture.image = mirrored(texture.image, isMirroredU, isMirroredV);
        placement = placement.then({isMirroredU ? 0.5 : 1.0, 0.0, 0.0, 0.0, isMirroredV ? 0.5 : 1.0, 0.0});
    }
    return texture;
}

GltfTextures::Image GltfTextures::imageOf(const std::string& place, const json& number) {
    const json& image = file.element(place, "images", number);
    const auto [found, isNew] = known.try_emplace(number.get<std::uint64_t>());
    if (isNew) {
        found->second = readImage("image " + number.dump(), image);
    }
    return found->second;
}

GltfTextures::Image GltfTextures::readImage(const std::string& place, const json& image) {
    const json& uri = memberOf(image, "uri");
    if (!uri.is_string()) {
        const json& view = file.element(place, "bufferViews", memberOf(image, "bufferView"));
        return images.decoded(place, file.viewOf(place, view));
    }
    const std::string& text = uri.get_ref<const std::string&>();
    const std::optional<std::string> data = dataOf(place, text);
    return data ? images.decoded(place, *data) : images.fileNamed(percentDecode(text));
}

GltfTextures::Image GltfTextures::mirrored(const Image& image, bool acrossU, bool acrossV) {
    Image& found = mirrorImages[{image, acrossU, acrossV}];
    if (found) {
        return found;
    }
    TextureImage larger;
    larger.width = acrossU ? image->width * 2 : image->width;
    larger.height = acrossV ? image->height * 2 : image->height;
    larger.channels = image->channels;
    images.takePixels(static_cast<std::uint64_t>(larger.width) * static_cast<std::uint64_t>(larger.height));
    for (int row = 0; row < larger.height; ++row) {
        const int from = row < image->height ? row : larger.height - 1 - row;
        const std::uint8_t* const begin = image->pixel(0, from);
        larger.pixels.insert(larger.pixels.end(), begin,
                             begin + std::ptrdiff_t{image->width} * image->channels);
        for (int column = acrossU ? image->width : 0; column-- > 0;) {
            const std::uint8_t* const pixel = image->pixel(column, from);
            larger.pixels.insert(larger.pixels.end(), pixel, pixel + image->channels);
        }
    }
    return found = std::make_shared<const TextureImage>(std::move(larger));
}

}  // namespace qelview
