#include "Knot.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

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

}  // namespace

TriangleMesh makeKnot() {
    TriangleMesh knot;
    knot.name = "knot";
    for (std::size_t step = 0; step < kSteps; ++step) {
        const double share = static_cast<double>(step) / static_cast<double>(kSteps);
        const qel::XPnt3d middle = onKnot(share * kTurn);
        qel::XPnt3d along = onKnot(share * kTurn + 1e-4) - onKnot(share * kTurn - 1e-4);
        along.normalize();
        qel::XPnt3d across = qel::cross(along, middle - kKnotCenter);
        across.normalize();
        const qel::XPnt3d outward = qel::cross(across, along);
        for (std::size_t side = 0; side < kSides; ++side) {
            const double angle = kTurn * static_cast<double>(side) / static_cast<double>(kSides);
            const qel::XPnt3d normal = outward * std::cos(angle) + across * std::sin(angle);
            knot.positions.push_back(middle + normal * kTubeRadius);
            knot.normals.emplace_back(normal);
            knot.colors.push_back(colorAlong(share));
        }
    }
    for (std::size_t step = 0; step < kSteps; ++step) {
        const std::size_t next = (step + 1) % kSteps;
        for (std::size_t side = 0; side < kSides; ++side) {
            const std::size_t beside = (side + 1) % kSides;
            const auto number = [](std::size_t ring, std::size_t place) {
                return static_cast<std::uint32_t>(ring * kSides + place);
            };
            knot.indices.insert(knot.indices.end(),
                                {number(step, side), number(step, beside), number(next, beside),
                                 number(step, side), number(next, beside), number(next, side)});
        }
    }
    return knot;
}

qel::Enve3d boxOf(const TriangleMesh& mesh) {
    qel::Enve3d box;
    box.setInvalid();
    for (const qel::XPnt3d& position : mesh.positions) {
        box.SetBox(position);
    }
    return box;
}

}  // namespace qelview
