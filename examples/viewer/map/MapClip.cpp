#include "MapClip.h"

#include <array>
#include <functional>
#include <utility>

namespace qelview {

namespace {

qel::XPnt2d between(const qel::XPnt2d& from, const qel::XPnt2d& to, double share) {
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

bool isSame(const qel::XPnt2d& one, const qel::XPnt2d& other) {
    return one.x == other.x && one.y == other.y;
}

/// Distance of a point inside an edge of the rectangle; negative outside.
using Depth = double (*)(const qel::Enve2d&, const qel::XPnt2d&);

constexpr std::array<Depth, 4> kDepths{{
    [](const qel::Enve2d& area, const qel::XPnt2d& point) { return point.x - area.xmin; },
    [](const qel::Enve2d& area, const qel::XPnt2d& point) { return area.xmax - point.x; },
    [](const qel::Enve2d& area, const qel::XPnt2d& point) { return point.y - area.ymin; },
    [](const qel::Enve2d& area, const qel::XPnt2d& point) { return area.ymax - point.y; },
}};

/// Where a segment enters and leaves the rectangle, as fractions of its length. Returns false if it stays
/// outside.
bool findInside(const qel::XPnt2d& from, const qel::XPnt2d& to, const qel::Enve2d& area,
                std::pair<double, double>& inside) {
    inside = {0.0, 1.0};
    for (const Depth depth : kDepths) {
        const double begin = depth(area, from);
        const double end = depth(area, to);
        if (begin < 0.0 && end < 0.0) {
            return false;
        }
        if (begin < 0.0) {
            inside.first = std::max(inside.first, begin / (begin - end));
        } else if (end < 0.0) {
            inside.second = std::min(inside.second, begin / (begin - end));
        }
    }
    return inside.first <= inside.second;
}

Line2d cutAtEdge(const Line2d& ring, const qel::Enve2d& area, Depth depth) {
    Line2d kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const qel::XPnt2d& from = ring[i];
        const qel::XPnt2d& to = ring[(i + 1) % ring.size()];
        const double begin = depth(area, from);
        const double end = depth(area, to);
        if (begin >= 0.0) {
            kept.push_back(from);
        }
        if ((begin < 0.0) != (end < 0.0)) {
            kept.push_back(between(from, to, begin / (begin - end)));
        }
    }
    return kept;
}

}  // namespace

qel::Enve2d boundsOf(const Line2d& line) {
    qel::Enve2d bounds;
    bounds.setInvalid();
    for (const qel::XPnt2d& point : line) {
        bounds.SetBox({point.x, point.y, 0.0});
    }
    return bounds;
}

std::vector<Line2d> clipLine(const Line2d& line, const qel::Enve2d& area) {
    std::vector<Line2d> parts;
    const qel::Enve2d bounds = boundsOf(line);
    if (!bounds.isIntersect(area)) {
        return parts;
    }
    if (contains(area, {bounds.xmin, bounds.ymin}) && contains(area, {bounds.xmax, bounds.ymax})) {
        return {line};
    }
    bool isOpen = false;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        std::pair<double, double> inside;
        if (!findInside(line[i], line[i + 1], area, inside)) {
            isOpen = false;
            continue;
        }
        if (!isOpen || inside.first > 0.0) {
            parts.push_back({between(line[i], line[i + 1], inside.first)});
        }
        isOpen = inside.second >= 1.0;
        parts.back().push_back(isOpen ? line[i + 1] : between(line[i], line[i + 1], inside.second));
    }
    return parts;
}

Line2d clipRing(const Line2d& ring, const qel::Enve2d& area) {
    constexpr std::size_t kFewestCorners = 3;
    Line2d kept = ring;
    if (kept.size() > 1 && isSame(kept.front(), kept.back())) {
        kept.pop_back();
    }
    for (const Depth depth : kDepths) {
        kept = cutAtEdge(kept, area, depth);
    }
    return kept.size() < kFewestCorners ? Line2d() : kept;
}

}  // namespace qelview
