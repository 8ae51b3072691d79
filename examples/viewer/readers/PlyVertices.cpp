#include "PlyVertices.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "MeshLook.h"
#include "MeshNormals.h"
#include "TextLines.h"
#include "TexturePlacement.h"

namespace qelview {

PlyMeaning meaningOf(const PlyElement& element, const PlyProperty& property) {
    struct Name {
        std::string_view element;
        std::string_view property;
        PlyMeaning meaning;
    };
    static constexpr std::array<Name, 30> kNames{{
        {"vertex", "x", {PlyUse::Position, 0}},
        {"vertex", "y", {PlyUse::Position, 1}},
        {"vertex", "z", {PlyUse::Position, 2}},
        {"vertex", "nx", {PlyUse::Normal, 0}},
        {"vertex", "ny", {PlyUse::Normal, 1}},
        {"vertex", "nz", {PlyUse::Normal, 2}},
        {"vertex", "red", {PlyUse::Color, 0}},
        {"vertex", "green", {PlyUse::Color, 1}},
        {"vertex", "blue", {PlyUse::Color, 2}},
        {"vertex", "r", {PlyUse::Color, 0}},
        {"vertex", "g", {PlyUse::Color, 1}},
        {"vertex", "b", {PlyUse::Color, 2}},
        {"vertex", "s", {PlyUse::TexCoord, 0}},
        {"vertex", "t", {PlyUse::TexCoord, 1}},
        {"vertex", "u", {PlyUse::TexCoord, 0}},
        {"vertex", "v", {PlyUse::TexCoord, 1}},
        {"vertex", "texture_u", {PlyUse::TexCoord, 0}},
        {"vertex", "texture_v", {PlyUse::TexCoord, 1}},
        {"vertex", "diffuse_red", {PlyUse::Color, 0}},
        {"vertex", "diffuse_green", {PlyUse::Color, 1}},
        {"vertex", "diffuse_blue", {PlyUse::Color, 2}},
        {"material", "diffuse_red", {PlyUse::MaterialColor, 0}},
        {"material", "diffuse_green", {PlyUse::MaterialColor, 1}},
        {"material", "diffuse_blue", {PlyUse::MaterialColor, 2}},
        {"face", "vertex_indices", {PlyUse::Corners, 0}},
        {"face", "vertex_index", {PlyUse::Corners, 0}},
        {"face", "texcoord", {PlyUse::CornerTexCoords, 0}},
        {"face", "texnumber", {PlyUse::Image, 0}},
        {"tristrips", "vertex_indices", {PlyUse::Strips, 0}},
        {"tristrips", "vertex_index", {PlyUse::Strips, 0}},
    }};
    const auto* const found = std::find_if(kNames.begin(), kNames.end(), [&](const Name& name) {
        return name.element == element.name && name.property == property.name;
    });
    if (found == kNames.end()) {
        return {};
    }
    const PlyUse use = found->meaning.use;
    const bool isList = use == PlyUse::Corners || use == PlyUse::CornerTexCoords || use == PlyUse::Strips;
    return isList == property.countType.has_value() ? found->meaning : PlyMeaning();
}

bool uses(const PlyElement& element, PlyUse use) {
    return std::any_of(element.properties.begin(), element.properties.end(),
                       [&](const PlyProperty& property) { return meaningOf(element, property).use == use; });
}

PlyVertices::PlyVertices(const PlyElement& element, bool areOfFaces, bool areTextured)
    : haveFaces(areOfFaces),
      haveNormals(areOfFaces && uses(element, PlyUse::Normal)),
      haveTexCoords(areTextured),
      haveColors(!areTextured && uses(element, PlyUse::Color)) {}

void PlyVertices::reserve(std::size_t count) {
    mesh.positions.reserve(count);
    if (haveNormals) {
        mesh.normals.reserve(count);
    }
    if (haveTexCoords) {
        mesh.texCoords.reserve(count);
    }
    if (haveColors && haveFaces) {
        mesh.colors.reserve(count);
    } else if (haveColors) {
        colorsOfPoints.reserve(count);
    }
}

void PlyVertices::resize(std::size_t count) {
    mesh.positions.resize(count);
    if (haveNormals) {
        mesh.normals.resize(count);
    }
    if (haveTexCoords) {
        mesh.texCoords.resize(count);
    }
    if (haveColors && haveFaces) {
        mesh.colors.resize(count, qel::QelColor3f(0.0F, 0.0F, 0.0F));
    } else if (haveColors) {
        colorsOfPoints.resize(count, qel::QelColor3b(0, 0, 0));
    }
}

std::size_t PlyVertices::setColumn(const PlyMeaning& meaning, ScalarType type, std::size_t first,
                                   const double* values, std::size_t count) {
    const double whole = maxValueOf(type);
    switch (meaning.use) {
        case PlyUse::Position: {
            constexpr std::array<double qel::XPnt3d::*, 3> kAxes{&qel::XPnt3d::x, &qel::XPnt3d::y,
                                                                 &qel::XPnt3d::z};
            double qel::XPnt3d::*const axis = kAxes.at(meaning.axis);
            for (std::size_t i = 0; i < count; ++i) {
                if (!(std::abs(values[i]) <= kLargestCoordinate)) {
                    return i;
                }
                mesh.positions[first + i].*axis = values[i];
            }
            break;
        }
        case PlyUse::Normal: {
            constexpr std::array<float qel::XPnt3f::*, 3> kAxes{&qel::XPnt3f::x, &qel::XPnt3f::y,
                                                                &qel::XPnt3f::z};
            constexpr double kLongest = 1e18;
            float qel::XPnt3f::*const axis = kAxes.at(meaning.axis);
            for (std::size_t i = 0; haveNormals && i < count; ++i) {
                mesh.normals[first + i].*axis =
                    static_cast<float>(std::clamp(values[i], -kLongest, kLongest));
            }
            break;
        }
        case PlyUse::Color:
            if (haveColors) {
                setColors(meaning.axis, whole, first, values, count);
            }
            break;
        case PlyUse::TexCoord:
            if (haveTexCoords) {
                setTexCoords(meaning.axis, first, values, count);
            }
            break;
        default:
            break;
    }
    return count;
}

void PlyVertices::setTexCoords(std::size_t axis, std::size_t first, const double* values, std::size_t count) {
    const TexturePlacement placement = TexturePlacement::upwards();
    for (std::size_t i = 0; i < count; ++i) {
        qel::ArrayTexCoord2f& texCoord = mesh.texCoords[first + i];
        if (axis == 0) {
            texCoord.u = placement.placed(values[i], 0.0).u;
        } else {
            texCoord.v = placement.placed(0.0, values[i]).v;
        }
    }
}

void PlyVertices::setColors(std::size_t channel, double whole, std::size_t first, const double* values,
                            std::size_t count) {
    constexpr std::array<float qel::QelColor3f::*, 3> kShares{&qel::QelColor3f::r, &qel::QelColor3f::g,
                                                              &qel::QelColor3f::b};
    constexpr std::array<std::uint8_t qel::QelColor3b::*, 3> kBytes{&qel::QelColor3b::r, &qel::QelColor3b::g,
                                                                    &qel::QelColor3b::b};
    const double share = 1.0 / whole;
    for (std::size_t i = 0; i < count; ++i) {
        const float shown = shownShare(values[i] * share);
        if (haveFaces) {
            mesh.colors[first + i].*kShares.at(channel) = shown;
        } else {
            colorsOfPoints[first + i].*kBytes.at(channel) =
                static_cast<std::uint8_t>(std::lround(shown * 255.0F));
        }
    }
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
