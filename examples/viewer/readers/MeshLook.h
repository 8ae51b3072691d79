#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "MeshFaces.h"
#include "Scene.h"
#include "Warnings.h"

namespace qelview {

/// How what mesh files hold is shown, whatever their format.

inline constexpr LineStyle kLinesOfMeshFiles{{150, 200, 255}, 1.5F};

inline constexpr std::array kChannels{&qel::QelColor3f::r, &qel::QelColor3f::g, &qel::QelColor3f::b};

/// A channel of a colour as OpenGL takes it: from 0 to 1, and 0 for what is no number.
[[nodiscard]] inline float shownShare(double channel) {
    return channel >= 0.0 ? static_cast<float>(std::min(channel, 1.0)) : 0.0F;
}

[[nodiscard]] inline qel::QelColor3f shownColor(double red, double green, double blue) {
    return {shownShare(red), shownShare(green), shownShare(blue)};
}

[[nodiscard]] inline std::uint8_t byteOf(float share) {
    return static_cast<std::uint8_t>(std::lround(share * 255.0F));
}

[[nodiscard]] inline qel::QelColor3b colorOfDot(const qel::QelColor3f& color) {
    return {byteOf(color.r), byteOf(color.g), byteOf(color.b)};
}

/// Gives a mesh its faces, and says how many of them cannot be shown.
inline void giveFaces(TriangleMesh& mesh, MeshFaces& faces, Warnings& warnings) {
    if (const std::size_t tangled = faces.moveInto(mesh); tangled > 0) {
        warnings.add("faces", std::to_string(tangled) + " are left out: their edges cross too often");
    }
}

/// Adds a mesh to a scene; one without triangles as the cloud of its vertices.
inline void addMeshOrCloud(Scene& scene, TriangleMesh&& mesh) {
    if (!mesh.indices.empty()) {
        scene.meshes.push_back(std::move(mesh));
        return;
    }
    PointCloud& cloud = scene.clouds.emplace_back();
    cloud.positions = std::move(mesh.positions);
    std::transform(mesh.colors.begin(), mesh.colors.end(), std::back_inserter(cloud.colors), colorOfDot);
}

/// The triangle that a corner of a strip ends, from the third corner on. Every second one is turned round, so
/// that all look the same way.
[[nodiscard]] inline std::array<std::uint32_t, 3> triangleOfStrip(const std::vector<std::uint32_t>& corners,
                                                                  std::size_t last) {
    const std::size_t turned = last % 2;
    return {corners[last - 2 + turned], corners[last - 1 - turned], corners[last]};
}

}  // namespace qelview
