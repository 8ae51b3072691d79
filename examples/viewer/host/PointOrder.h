#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "IQelTrackBall.h"
#include "PartsInView.h"
#include "SceneParts.h"

namespace qelview {

/// What leads from model points to pixels, as OpenGL holds it: matrices column by column, viewport x, y,
/// width, height.
struct PixelView {
    std::array<double, 16> modelview{};
    std::array<double, 16> projection{};
    std::array<std::int32_t, 4> viewport{};
};

/// @param camera as OpenGL holds it.
[[nodiscard]] PixelView pixelViewOf(IQelTrackBall& camera);

/// Window depths of the viewport, row by row from the lowest; empty where nothing can hide anything.
using DepthImage = std::vector<float>;

/// Symbols draw clouds without a depth test. Drawing the points in this order, and these alone, gives the
/// same picture as a depth test would: from the farthest to the nearest, without those that surfaces hide or
/// that lie outside the view.
/// @param ranges the points that are looked at.
/// @param order receives the numbers of the points; its storage is used again.
void orderVisiblePoints(const Points& positions, const PixelView& view, const DepthImage& depths,
                        const std::vector<DrawnRange>& ranges, std::vector<std::uint32_t>& order);

/// The nearest to the eye of the points whose images lie close to a place. Clouds leave no depth to pick by.
/// @param order what `orderVisiblePoints` gave for the same view.
/// @param x, y in pixels from the lower left of the view.
/// @param reach half the side of the square around the place, in pixels.
/// @return the number of the point; nothing if none is there.
[[nodiscard]] std::optional<std::uint32_t> visiblePointAt(const Points& positions,
                                                          const std::vector<std::uint32_t>& order,
                                                          const PixelView& view, double x, double y,
                                                          double reach);

}  // namespace qelview
