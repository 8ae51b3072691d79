#include "PlyVertices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <string_view>
#include <utility>

#include "MeshLook.h"
#include "MeshNormals.h"
#include "TextLines.h"
#include "TexturePlacement.h"

namespace qelview {

namespace {

/// Sets a member of the elements from `first` on; of none if they are not kept.
template <class Element, class Member, class Shown>
void setMembers(std::vector<Element>& elements, Member Element::*member, std::size_t first,
                std::span<const double> values, const Shown& shown) {
    const std::size_t count = elements.empty() ? 0 : values.size();
    for (std::size_t i = 0; i < count; ++i) {
        elements[first + i].*member = shown(values[i]);
    }
}

}  // namespace

PlyMeaning meaningOf(const PlyElement& element, const PlyProperty& property) {
    struct Names {
        std::string_view element;
        PlyUse use;
        /// By the axes.
        std::array<std::string_view, 3> properties;
    };
    static constexpr std::array<Names, 15> kNames{{
        {"vertex", PlyUse::Position, {"x", "y", "z"}},
        {"vertex", PlyUse::Normal, {"nx", "ny", "nz"}},
        {"vertex", PlyUse::Color, {"red", "green", "blue"}},
        {"vertex", PlyUse::Color, {"r", "g", "b"}},
        {"vertex", PlyUse::Color, {"diffuse_red", "diffuse_green", "diffuse_blue"}},
        {"vertex", PlyUse::TexCoord, {"s", "t"}},
        {"vertex", PlyUse::TexCoord, {"u", "v"}},
        {"vertex", PlyUse::TexCoord, {"texture_u", "texture_v"}},
        {"material", PlyUse::MaterialColor, {"diffuse_red", "diffuse_green", "diffuse_blue"}},
        {"face", PlyUse::Corners, {"vertex_indices"}},
        {"face", PlyUse::Corners, {"vertex_index"}},
        {"face", PlyUse::CornerTexCoords, {"texcoord"}},
        {"face", PlyUse::Image, {"texnumber"}},
        {"tristrips", PlyUse::Strips, {"vertex_indices"}},
        {"tristrips", PlyUse::Strips, {"vertex_index"}},
    }};
    for (const auto& [elementName, use, properties] : kNames) {
        const auto axis = std::find(properties.begin(), properties.end(), property.name) - properties.begin();
        const bool isList = use == PlyUse::Corners || use == PlyUse::CornerTexCoords || use == PlyUse::Strips;
        if (elementName == element.name && axis < std::ssize(properties) &&
            isList == property.countType.has_value()) {
            return {use, static_cast<std::size_t>(axis)};
        }
    }
    return {};
}

bool uses(const PlyElement& element, PlyUse use) {
    return std::any_of(element.properties.begin(), element.properties.end(),
                       [&](const PlyProperty& property) { return meaningOf(element, property).use == use; });
}

PlyVertices::PlyVertices(const PlyElement& element, std::size_t count, bool areOfFaces, bool areTextured) {
    const bool haveColors = !areTextured && uses(element, PlyUse::Color);
    mesh.positions.resize(count);
    mesh.normals.resize(areOfFaces && uses(element, PlyUse::Normal) ? count : 0);
    mesh.texCoords.resize(areTextured ? count : 0);
    mesh.colors.resize(haveColors && areOfFaces ? count : 0, {0.0F, 0.0F, 0.0F});
    colorsOfPoints.resize(haveColors && !areOfFaces ? count : 0, {0, 0, 0});
}

std::size_t PlyVertices::setColumn(const PlyMeaning& meaning, ScalarType type, std::size_t first,
                                   std::span<const double> values) {
    constexpr std::array kCoordinates{&qel::XPnt3d::x, &qel::XPnt3d::y, &qel::XPnt3d::z};
    constexpr std::array kDirections{&qel::XPnt3f::x, &qel::XPnt3f::y, &qel::XPnt3f::z};
    constexpr std::array kBytes{&qel::QelColor3b::r, &qel::QelColor3b::g, &qel::QelColor3b::b};
    constexpr std::array kTexCoords{&qel::ArrayTexCoord2f::u, &qel::ArrayTexCoord2f::v};
    if (meaning.use == PlyUse::Position) {
        const auto unsound = std::find_if_not(
            values.begin(), values.end(), [](double value) { return std::abs(value) <= kLargestCoordinate; });
        values = {values.begin(), unsound};
        setMembers(mesh.positions, kCoordinates.at(meaning.axis), first, values, std::identity());
    } else if (meaning.use == PlyUse::Normal) {
        setMembers(mesh.normals, kDirections.at(meaning.axis), first, values, [](double value) {
            constexpr double kLongest = 1e18;
            return static_cast<float>(std::clamp(value, -kLongest, kLongest));
        });
    } else if (meaning.use == PlyUse::Color) {
        const auto shown = [share = 1.0 / readingOf(type).maxValue](double value) {
            return shownShare(value * share);
        };
        setMembers(mesh.colors, kChannels.at(meaning.axis), first, values, shown);
        setMembers(colorsOfPoints, kBytes.at(meaning.axis), first, values,
                   [&](double value) { return byteOf(shown(value)); });
    } else if (meaning.use == PlyUse::TexCoord) {
        const auto axis = kTexCoords.at(meaning.axis);
        setMembers(mesh.texCoords, axis, first, values,
                   [&](double value) { return TexturePlacement::upwards().placed(value, value).*axis; });
    }
    return values.size();
}

TriangleMesh PlyVertices::takeMesh() {
    for (qel::XPnt3f& normal : mesh.normals) {
        normal = unitNormal(qel::XPnt3d(normal));
    }
    return std::move(mesh);
}

PointCloud PlyVertices::takeCloud() {
    PointCloud cloud;
    cloud.positions = std::move(mesh.positions);
    cloud.colors = std::move(colorsOfPoints);
    return cloud;
}

}  // namespace qelview
