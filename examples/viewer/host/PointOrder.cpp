#include "PointOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "AllCores.h"

namespace qelview {

namespace {

/// Points whose depths fall into the same slice keep their order; no picture shows the difference.
constexpr std::size_t kSlices = 4096;
/// Points that lie on a surface are not hidden by it, even with 16 bits of depth.
constexpr double kDepthTolerance = 1e-4;

using Matrix = std::array<double, 16>;

Matrix product(const Matrix& left, const Matrix& right) {
    Matrix result{};
    for (std::size_t column = 0; column < 4; ++column) {
        for (std::size_t row = 0; row < 4; ++row) {
            for (std::size_t i = 0; i < 4; ++i) {
                result.at(column * 4 + row) += left.at(i * 4 + row) * right.at(column * 4 + i);
            }
        }
    }
    return result;
}

class DepthOfPoints {
  public:
    DepthOfPoints(const PixelView& pixelView, const DepthImage& depthImage)
        : matrix(product(pixelView.projection, pixelView.modelview)), view(pixelView), depths(depthImage) {}

    /// Window depth from 0 to 1; above 1 for a point that is not to be drawn.
    [[nodiscard]] double operator()(const qel::XPnt3d& point) const {
        constexpr double kNotDrawn = 2.0;
        const double w = row(3, point);
        if (!(w > 0.0)) {
            return kNotDrawn;
        }
        const double x = row(0, point) / w;
        const double y = row(1, point) / w;
        const double z = row(2, point) / w;
        if (std::max({std::abs(x), std::abs(y), std::abs(z)}) > 1.0) {
            return kNotDrawn;
        }
        const double depth = z * 0.5 + 0.5;
        return depth > surfaceDepth(x, y) + kDepthTolerance ? kNotDrawn : depth;
    }

    /// True if a point in front of the eye is drawn within `reach` pixels of (x, y).
    [[nodiscard]] bool isNear(const qel::XPnt3d& point, double x, double y, double reach) const {
        const double w = row(3, point);
        const double column = (row(0, point) / w * 0.5 + 0.5) * view.viewport[2];
        const double line = (row(1, point) / w * 0.5 + 0.5) * view.viewport[3];
        return w > 0.0 && std::abs(column - x) <= reach && std::abs(line - y) <= reach;
    }

  private:
    [[nodiscard]] double row(std::size_t number, const qel::XPnt3d& point) const {
        return matrix[number] * point.x + matrix[number + 4] * point.y + matrix[number + 8] * point.z +
               matrix[number + 12];
    }

    [[nodiscard]] double surfaceDepth(double x, double y) const {
        if (depths.empty()) {
            return 1.0;
        }
        const auto pixel = [](double share, std::int32_t size) {
            return std::min(static_cast<std::int32_t>((share * 0.5 + 0.5) * size), size - 1);
        };
        const auto column = static_cast<std::size_t>(pixel(x, view.viewport[2]));
        const auto line = static_cast<std::size_t>(pixel(y, view.viewport[3]));
        return static_cast<double>(depths[line * static_cast<std::size_t>(view.viewport[2]) + column]);
    }

    Matrix matrix;
    const PixelView& view;
    const DepthImage& depths;
};

/// The depths of the points that are drawn, in slices from the farthest to the nearest.
struct DepthRange {
    float nearest = 2.0F;
    float farthest = 0.0F;

    /// Depths above 1 are not those of points that are drawn.
    void include(float depth) {
        if (depth <= 1.0F) {
            nearest = std::min(nearest, depth);
            farthest = std::max(farthest, depth);
        }
    }
    [[nodiscard]] std::size_t sliceOf(float depth) const {
        const float slicesPerDepth =
            farthest > nearest ? static_cast<float>(kSlices - 1) / (farthest - nearest) : 0.0F;
        return static_cast<std::size_t>((farthest - depth) * slicesPerDepth);
    }
};

/// The points of ranges, numbered from 0 in their order.
class NumberedPoints {
  public:
    explicit NumberedPoints(const std::vector<DrawnRange>& numbered) : ranges(numbered) {
        for (const DrawnRange& range : ranges) {
            firsts.push_back(total);
            total += (range.end - range.begin + range.step - 1) / range.step;
        }
    }

    [[nodiscard]] std::size_t count() const { return total; }
    /// @param work called with the number of each point of a piece and its place among all points.
    template <class Work>
    void forEach(const Piece& piece, const Work& work) const {
        const auto after = std::upper_bound(firsts.begin(), firsts.end(), piece.begin);
        auto range = static_cast<std::size_t>(after - firsts.begin());
        for (std::size_t number = piece.begin; number < piece.end; ++range) {
            const DrawnRange& of = ranges[range - 1];
            std::size_t point = of.begin + (number - firsts[range - 1]) * of.step;
            for (; point < of.end && number < piece.end; point += of.step, ++number) {
                work(number, point);
            }
        }
    }

  private:
    const std::vector<DrawnRange>& ranges;
    std::vector<std::size_t> firsts;
    std::size_t total = 0;
};

using Slices = std::array<std::uint32_t, kSlices>;

}  // namespace

PixelView pixelViewOf(IQelTrackBall& camera) {
    PixelView view;
    std::copy_n(camera.getModelviewMatrix(), view.modelview.size(), view.modelview.begin());
    std::copy_n(camera.getProjectionMatrix(), view.projection.size(), view.projection.begin());
    std::copy_n(camera.getViewport(), view.viewport.size(), view.viewport.begin());
    return view;
}

void orderVisiblePoints(const Points& positions, const PixelView& view, const DepthImage& depths,
                        const std::vector<DrawnRange>& ranges, std::vector<std::uint32_t>& order) {
    const DepthOfPoints depthOf(view, depths);
    const NumberedPoints points(ranges);
    std::vector<float> depthsOfPoints(points.count());
    const std::vector<Piece> pieces = piecesOf(depthsOfPoints.size());
    std::vector<DepthRange> reaches(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        DepthRange reach;
        points.forEach(pieces[number], [&](std::size_t i, std::size_t point) {
            depthsOfPoints[i] = static_cast<float>(depthOf(positions[point]));
            reach.include(depthsOfPoints[i]);
        });
        reaches[number] = reach;
    });
    std::for_each(reaches.begin() + 1, reaches.end(), [&](const DepthRange& reach) {
        reaches.front().include(reach.nearest);
        reaches.front().include(reach.farthest);
    });
    // Counts of points in each slice of each piece become the places of the first ones.
    std::vector<Slices> next(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            if (depthsOfPoints[i] <= 1.0F) {
                ++next[number][reaches.front().sliceOf(depthsOfPoints[i])];
            }
        }
    });
    std::uint32_t place = 0;
    for (std::size_t slice = 0; slice < kSlices; ++slice) {
        for (Slices& ofPiece : next) {
            place += std::exchange(ofPiece[slice], place);
        }
    }
    order.resize(place);
    onAllCores(pieces, [&](std::size_t number) {
        points.forEach(pieces[number], [&](std::size_t i, std::size_t point) {
            if (depthsOfPoints[i] <= 1.0F) {
                order[next[number][reaches.front().sliceOf(depthsOfPoints[i])]++] =
                    static_cast<std::uint32_t>(point);
            }
        });
    });
}

std::optional<std::uint32_t> visiblePointAt(const Points& positions, const std::vector<std::uint32_t>& order,
                                            const PixelView& view, double x, double y, double reach) {
    const DepthImage noDepths;
    const DepthOfPoints images(view, noDepths);
    const auto found = std::find_if(order.rbegin(), order.rend(), [&](std::uint32_t number) {
        return images.isNear(positions[number], x, y, reach);
    });
    return found == order.rend() ? std::nullopt : std::optional(*found);
}

}  // namespace qelview
