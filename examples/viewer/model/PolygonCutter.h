#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// Which places contours enclose, by how often they run around a place.
enum class Filling : std::uint8_t {
    /// An odd number of times: an area that is enclosed twice is a hole.
    Odd,
    /// Any number of times.
    NonZero,
};

/// Areas of any shape as triangles.
class PolygonCutter {
  public:
    /// A corner that is none of the contours' points: where edges cross or points meet.
    struct Crossing {
        qel::XPnt3d position;
        /// The points that it lies between, and the share of each; numbers with a share of 0 mean nothing.
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

    /// Cuts the area that closed contours enclose together.
    /// @param normal of the plane that the contours lie in, more or less; of any length but 0.
    /// @return valid until the next call; empty if nothing is enclosed, or the contours run through each
    /// other so often that this cutter has no budget left for them.
    const Triangles& cut(std::span<const Points> contours, const qel::XPnt3d& normal);

  private:
    class Work;
    std::unique_ptr<Work> work;
};

}  // namespace qelview
