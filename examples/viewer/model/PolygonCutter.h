#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// The winding rule: which areas contours enclose.
enum class Filling : std::uint8_t {
    /// An odd number of times: an area that is enclosed twice is a hole.
    Odd,
    /// Any number of times.
    NonZero,
};

/// Triangulates areas of any shape.
class PolygonCutter {
  public:
    /// A corner that is not a point of the contours: where edges cross or points coincide.
    struct Crossing {
        qel::XPnt3d position;
        /// The points that it lies between, and their weights; a point of weight 0 has no meaning.
        std::array<std::uint32_t, 4> points{};
        std::array<float, 4> shares{};
    };
    struct Triangles {
        /// Three a triangle, counterclockwise around the normal. Numbers of points in the order in which the
        /// contours were given; behind the last one those of the crossings follow.
        std::vector<std::uint32_t> corners;
        std::vector<Crossing> crossings;
        bool isTooTangled = false;
    };

    explicit PolygonCutter(Filling filling);
    ~PolygonCutter();
    PolygonCutter(const PolygonCutter&) = delete;
    PolygonCutter& operator=(const PolygonCutter&) = delete;

    /// Triangulates the area that closed contours enclose.
    /// @param normal of the plane that the contours lie in, more or less; of any length but 0.
    /// @return valid until the next call; empty if nothing is enclosed, or the contours run through each
    /// other so often that this cutter has no budget left for them.
    const Triangles& cut(std::span<const Points> contours, const qel::XPnt3d& normal);

  private:
    class Work;
    std::unique_ptr<Work> work;
};

}  // namespace qelview
