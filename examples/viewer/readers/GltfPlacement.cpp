#include "GltfPlacement.h"

#include <cmath>

#include "GltfFile.h"

namespace qelview {

namespace {

using Quaternion = std::array<double, 4>;

/// The axes turned by a quaternion x, y, z, w of any length but 0.
/// Source: K. Shoemake, Animating Rotation with Quaternion Curves, SIGGRAPH 1985, appendix I.
std::array<qel::XPnt3d, 3> axesTurnedBy(const Quaternion& quaternion) {
    const auto [x, y, z, w] = quaternion;
    const double square = x * x + y * y + z * z + w * w;
    const double s = square > 0.0 ? 2.0 / square : 0.0;
    return {{{1.0 - s * (y * y + z * z), s * (x * y + w * z), s * (x * z - w * y)},
             {s * (x * y - w * z), 1.0 - s * (x * x + z * z), s * (y * z + w * x)},
             {s * (x * z + w * y), s * (y * z - w * x), 1.0 - s * (x * x + y * y)}}};
}

}  // namespace

GltfPlacement GltfPlacement::ofNode(const std::string& place, const nlohmann::json& node) {
    GltfPlacement placement;
    if (node.contains("matrix")) {
        // By columns.
        std::array<double, 16> matrix{};
        readNumbers(place, node, "matrix", matrix);
        for (std::size_t i = 0; i < 3; ++i) {
            placement.axes.at(i) = qel::XPnt3d(matrix.at(4 * i), matrix.at(4 * i + 1), matrix.at(4 * i + 2));
        }
        placement.origin = qel::XPnt3d(matrix[12], matrix[13], matrix[14]);
        return placement;
    }
    std::array<double, 3> translation{};
    Quaternion rotation{0.0, 0.0, 0.0, 1.0};
    std::array<double, 3> scale{1.0, 1.0, 1.0};
    readNumbers(place, node, "translation", translation);
    readNumbers(place, node, "rotation", rotation);
    readNumbers(place, node, "scale", scale);
    placement.axes = axesTurnedBy(rotation);
    for (std::size_t i = 0; i < 3; ++i) {
        placement.axes.at(i) *= scale.at(i);
    }
    placement.origin = qel::XPnt3d(translation[0], translation[1], translation[2]);
    return placement;
}

qel::XPnt3d GltfPlacement::vector(const qel::XPnt3d& direction) const {
    return axes[0] * direction.x + axes[1] * direction.y + axes[2] * direction.z;
}

GltfPlacement GltfPlacement::operator*(const GltfPlacement& inner) const {
    GltfPlacement both;
    for (std::size_t i = 0; i < 3; ++i) {
        both.axes.at(i) = vector(inner.axes.at(i));
    }
    both.origin = point(inner.origin);
    return both;
}

qel::XPnt3d GltfPlacement::normal(const qel::XPnt3d& direction) const {
    // The cofactors are the transposed inverse times the determinant, of which only the sign matters here.
    const qel::XPnt3d across = cross(axes[1], axes[2]);
    const qel::XPnt3d normal =
        across * direction.x + cross(axes[2], axes[0]) * direction.y + cross(axes[0], axes[1]) * direction.z;
    return dot(axes[0], across) < 0.0 ? normal * -1.0 : normal;
}

}  // namespace qelview
