#include "PointBoxes.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "AllCores.h"
#include "Reach.h"

namespace qelview {

namespace {

/// A pass over this many points takes no noticeable time.
constexpr std::size_t kFew = 200'000;
constexpr std::size_t kBoxesOfASide = 32;

Reach reachOf(const Points& points) {
    const std::vector<Piece> pieces = piecesOf(points.size());
    std::vector<Reach> reaches(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        Reach reach;
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            reach.include(points[i]);
        }
        reaches[number] = reach;
    });
    for (std::size_t number = 1; number < reaches.size(); ++number) {
        reaches.front().include(reaches[number]);
    }
    return reaches.front();
}

/// A regular grid of small boxes in a large one.
class Grid {
  public:
    explicit Grid(const Reach& reach) : low(reach.low) {
        const auto perUnit = [](double size) {
            return size > 0.0 ? static_cast<double>(kBoxesOfASide) / size : 0.0;
        };
        const qel::XPnt3d size = reach.high - reach.low;
        boxesPerUnit = qel::XPnt3d{perUnit(size.x), perUnit(size.y), perUnit(size.z)};
    }
    [[nodiscard]] std::size_t numberOf(const qel::XPnt3d& point) const {
        const auto place = [](double distance, double perUnit) {
            return std::min(static_cast<std::size_t>(distance * perUnit), kBoxesOfASide - 1);
        };
        return (place(point.z - low.z, boxesPerUnit.z) * kBoxesOfASide +
                place(point.y - low.y, boxesPerUnit.y)) *
                   kBoxesOfASide +
               place(point.x - low.x, boxesPerUnit.x);
    }

  private:
    qel::XPnt3d low;
    qel::XPnt3d boxesPerUnit;
};

void appendCorners(Points& outline, const Reach& reach) {
    for (const double x : {reach.low.x, reach.high.x}) {
        for (const double y : {reach.low.y, reach.high.y}) {
            outline.emplace_back(x, y, reach.low.z);
            outline.emplace_back(x, y, reach.high.z);
        }
    }
}

}  // namespace

qel::Enve3d boxOf(const Points& points) {
    return reachOf(points).box();
}

void appendOutline(Points& outline, const Points& points) {
    if (points.size() <= kFew) {
        outline.insert(outline.end(), points.begin(), points.end());
        return;
    }
    const Grid grid(reachOf(points));
    const std::vector<Piece> pieces = piecesOf(points.size());
    std::vector<std::vector<Reach>> boxes(pieces.size());
    onAllCores(pieces, [&](std::size_t number) {
        std::vector<Reach>& own = boxes[number];
        own.resize(kBoxesOfASide * kBoxesOfASide * kBoxesOfASide);
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            own[grid.numberOf(points[i])].include(points[i]);
        }
    });
    for (std::size_t box = 0; box < boxes.front().size(); ++box) {
        for (std::size_t number = 1; number < boxes.size(); ++number) {
            boxes.front()[box].include(boxes[number][box]);
        }
        if (!boxes.front()[box].isEmpty()) {
            appendCorners(outline, boxes.front()[box]);
        }
    }
}

}  // namespace qelview
