#pragma once

#include <array>
#include <nlohmann/json.hpp>
#include <string>

#include "XPnt3d.h"

namespace qelview {

/// The transform of a node of a glTF scene: an affine map of points.
class GltfPlacement {
  public:
    /// Of a node: its matrix, or its translation, rotation and scale.
    /// @throws ReadError naming `place` if those are not the numbers that they should be.
    [[nodiscard]] static GltfPlacement ofNode(const std::string& place, const nlohmann::json& node);

    /// First the inner one, then this one.
    [[nodiscard]] GltfPlacement operator*(const GltfPlacement& inner) const;
    [[nodiscard]] qel::XPnt3d point(const qel::XPnt3d& point) const { return vector(point) + origin; }
    /// A normal of a surface, of any length.
    [[nodiscard]] qel::XPnt3d normal(const qel::XPnt3d& direction) const;

  private:
    [[nodiscard]] qel::XPnt3d vector(const qel::XPnt3d& direction) const;

    /// Where the unit vectors and the origin go.
    std::array<qel::XPnt3d, 3> axes{{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
    qel::XPnt3d origin;
};

}  // namespace qelview
