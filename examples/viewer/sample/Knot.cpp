#include "Knot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numbers>

#include "Contours.h"

namespace qelview {

namespace {

constexpr std::size_t kSteps = 200;
constexpr std::size_t kSides = 22;
constexpr double kScale = 0.62;
constexpr double kTubeRadius = 0.36;
constexpr double kTurn = 2.0 * std::numbers::pi;

/// The trefoil, standing upright.
qel::XPnt3d onKnot(double angle) {
    const double reach = 2.0 + std::cos(3.0 * angle);
    return kKnotCenter +
           qel::XPnt3d(reach * std::cos(2.0 * angle), std::sin(3.0 * angle), reach * std::sin(2.0 * angle)) *
               kScale;
}

/// From teal over sand to coral and back.
qel::QelColor3f colorAlong(double share) {
    const auto wave = static_cast<float>(0.5 - 0.5 * std::cos(kTurn * share));
    const auto middle = static_cast<float>(std::sin(kTurn * share));
    return {0.18F + 0.77F * wave, 0.66F - 0.22F * wave + 0.08F * middle, 0.66F - 0.32F * wave};
}

/// Strands that wind around the tube, with dark joints between them. Its edges continue each other.
std::shared_ptr<const TextureImage> makeStrands() {
    constexpr int kAlong = 1024;
    constexpr int kAround = 64;
    constexpr double kStrandsAlong = 48.0;
    constexpr double kStrandsAround = 3.0;
    constexpr double kJointBrightness = 0.35;
    TextureImage image;
    image.width = kAlong;
    image.height = kAround;
    for (int row = 0; row < kAround; ++row) {
        for (int column = 0; column < kAlong; ++column) {
            const double along = (column + 0.5) / kAlong;
            const double around = (row + 0.5) / kAround;
            const double strand = kStrandsAlong * along + kStrandsAround * around;
            const double hump = std::sin(std::numbers::pi * (strand - std::floor(strand)));
            const auto brightness =
                static_cast<float>(kJointBrightness + (1.0 - kJointBrightness) * std::sqrt(hump));
            const qel::QelColor3f color = colorAlong(along);
            for (const float share : {color.r, color.g, color.b}) {
                image.pixels.push_back(
                    static_cast<std::uint8_t>(std::min(share * brightness, 1.0F) * 255.0F));
            }
        }
    }
    return std::make_shared<const TextureImage>(std::move(image));
}

}  // namespace

TriangleMesh makeKnot() {
    TriangleMesh knot;
    knot.name = "knot";
    knot.color = {1.0F, 1.0F, 1.0F};
    knot.texture = std::make_shared<const Texture>(Texture{makeStrands()});
    // Where the tube closes, vertices are there twice: at the beginning of the image and at its end.
    for (std::size_t step = 0; step <= kSteps; ++step) {
        const double share = static_cast<double>(step) / static_cast<double>(kSteps);
        const qel::XPnt3d middle = onKnot(share * kTurn);
        qel::XPnt3d along = onKnot(share * kTurn + 1e-4) - onKnot(share * kTurn - 1e-4);
        along.normalize();
        qel::XPnt3d across = qel::cross(along, middle - kKnotCenter);
        across.normalize();
        const qel::XPnt3d outward = qel::cross(across, along);
        for (std::size_t side = 0; side <= kSides; ++side) {
            const double shareAround = static_cast<double>(side) / static_cast<double>(kSides);
            const double angle = kTurn * shareAround;
            const qel::XPnt3d normal = outward * std::cos(angle) + across * std::sin(angle);
            knot.positions.push_back(middle + normal * kTubeRadius);
            knot.normals.emplace_back(normal);
            knot.texCoords.push_back({static_cast<float>(share), static_cast<float>(shareAround)});
        }
    }
    knot.indices = gridTriangles(knot.positions.size(), kSides + 1);
    return knot;
}

}  // namespace qelview
