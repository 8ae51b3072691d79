#include "Tangle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>
#include <vector>

namespace qelview {

namespace {

struct Place {
    double x = 0.0;
    double y = 0.0;
    // The analysis takes the zero that the comparison is made of for a pointer.
    auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// From left to right.
struct Edge {
    Place from;
    Place to;
    // The analysis takes the zero that the comparison is made of for a pointer.
    auto operator<=>(const Edge&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// Positive to the left of the edge, negative to its right.
double sideOf(const Edge& edge, const Place& place) {
    return (edge.to.x - edge.from.x) * (place.y - edge.from.y) -
           (edge.to.y - edge.from.y) * (place.x - edge.from.x);
}

/// True if they cross other than at their ends.
bool areCrossing(const Edge& a, const Edge& b) {
    return sideOf(a, b.from) * sideOf(a, b.to) < 0.0 && sideOf(b, a.from) * sideOf(b, a.to) < 0.0;
}

std::vector<Edge> edgesOf(std::span<const Points> contours, const qel::XPnt3d& normal) {
    // Drops the longest axis of the normal, as GLU does.
    const std::array<double, 3> sizes{std::abs(normal.x), std::abs(normal.y), std::abs(normal.z)};
    const auto longest = std::max_element(sizes.begin(), sizes.end()) - sizes.begin();
    const auto flat = [longest](const qel::XPnt3d& point) {
        return longest == 0   ? Place{point.y, point.z}
               : longest == 1 ? Place{point.z, point.x}
                              : Place{point.x, point.y};
    };
    std::vector<Edge> edges;
    for (const Points& contour : contours) {
        for (std::size_t i = 0; i < contour.size(); ++i) {
            Edge edge{flat(contour[i]), flat(contour[(i + 1) % contour.size()])};
            if (edge.to.x < edge.from.x) {
                std::swap(edge.from, edge.to);
            }
            edges.push_back(edge);
        }
    }
    return edges;
}

}  // namespace

bool pay(TangleBudget& budget, std::span<const Points> contours, const qel::XPnt3d& normal) {
    std::vector<Edge> edges = edgesOf(contours, normal);
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a < b; });
    // Coincident edges have common crossings.
    const auto isRepeated = [&edges](std::size_t i) { return i > 0 && edges[i] == edges[i - 1]; };
    for (std::size_t i = 0; i < edges.size(); ++i) {
        for (std::size_t k = i + 1; k < edges.size() && edges[k].from.x <= edges[i].to.x; ++k) {
            if (budget.pairs == 0 || budget.crossings == 0) {
                return false;
            }
            --budget.pairs;
            if (!isRepeated(i) && !isRepeated(k) && areCrossing(edges[i], edges[k])) {
                --budget.crossings;
            }
        }
    }
    return true;
}

}  // namespace qelview
