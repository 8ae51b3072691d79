#pragma once

#include <cmath>

#include "QelArrayElements.h"

namespace qelview {

/// How texture coordinates of a file become those of a scene: an affine map.
struct TexturePlacement {
    double uFromU = 1.0;
    double uFromV = 0.0;
    double u0 = 0.0;
    double vFromU = 0.0;
    double vFromV = 1.0;
    double v0 = 0.0;

    /// For formats whose v points up in the image.
    [[nodiscard]] static TexturePlacement upwards() { return {1.0, 0.0, 0.0, 0.0, -1.0, 1.0}; }

    /// This one first, then another.
    [[nodiscard]] TexturePlacement then(const TexturePlacement& next) const {
        return {next.uFromU * uFromU + next.uFromV * vFromU,   next.uFromU * uFromV + next.uFromV * vFromV,
                next.uFromU * u0 + next.uFromV * v0 + next.u0, next.vFromU * uFromU + next.vFromV * vFromU,
                next.vFromU * uFromV + next.vFromV * vFromV,   next.vFromU * u0 + next.vFromV * v0 + next.v0};
    }
    /// What cannot be drawn becomes 0.
    [[nodiscard]] qel::ArrayTexCoord2f placed(double u, double v) const {
        return {drawable(uFromU * u + uFromV * v + u0), drawable(vFromU * u + vFromV * v + v0)};
    }

  private:
    static float drawable(double coordinate) {
        // A float cannot distinguish pixels there.
        constexpr double kLargest = 1e9;
        return std::abs(coordinate) <= kLargest ? static_cast<float>(coordinate) : 0.0F;
    }
};

}  // namespace qelview
