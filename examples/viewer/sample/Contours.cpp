#include "Contours.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <utility>

namespace qelview {

namespace {

/// An edge of the grid by the numbers of its two ends, the smaller first.
using Edge = std::pair<std::size_t, std::size_t>;

/// Joins pieces from edge to edge into lines.
class Tracer {
  public:
    Tracer(const HeightGrid& heights, double height) : grid(heights), level(height) {}

    /// A triangle that the level crosses adds a piece between two of its edges.
    void addTriangle(const std::array<std::size_t, 3>& corners) {
        std::vector<Edge> crossed;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const std::size_t a = corners.at(i);
            const std::size_t b = corners.at((i + 1) % corners.size());
            if (isAbove(a) != isAbove(b)) {
                crossed.emplace_back(std::minmax(a, b));
            }
        }
        if (crossed.size() == 2) {
            neighbours[crossed[0]].push_back(crossed[1]);
            neighbours[crossed[1]].push_back(crossed[0]);
        }
    }

    std::vector<Points> lines() {
        std::vector<Points> found;
        for (const auto& [first, pieces] : neighbours) {
            if (!pieces.empty()) {
                std::deque<Edge> line{first};
                follow(first, [&line](const Edge& next) { line.push_back(next); });
                follow(first, [&line](const Edge& next) { line.push_front(next); });
                Points& points = found.emplace_back();
                for (const Edge& edge : line) {
                    const qel::XPnt3d& from = grid.points[edge.first];
                    const qel::XPnt3d& to = grid.points[edge.second];
                    points.push_back(from + (to - from) * ((level - from.z) / (to.z - from.z)));
                }
            }
        }
        return found;
    }

  private:
    [[nodiscard]] bool isAbove(std::size_t point) const { return grid.points[point].z > level; }

    /// Follows the pieces from an edge to the end and removes them.
    template <class Add>
    void follow(Edge at, const Add& add) {
        while (!neighbours[at].empty()) {
            const Edge next = neighbours[at].back();
            neighbours[at].pop_back();
            std::erase(neighbours[next], at);
            add(next);
            at = next;
        }
    }

    const HeightGrid& grid;
    double level;
    std::map<Edge, std::vector<Edge>> neighbours;
};

}  // namespace

std::vector<std::uint32_t> gridTriangles(std::size_t points, std::size_t columns) {
    std::vector<std::uint32_t> corners;
    for (std::size_t i = 0; i + columns + 1 < points; ++i) {
        if ((i + 1) % columns != 0) {
            const auto low = static_cast<std::uint32_t>(i);
            const auto high = static_cast<std::uint32_t>(i + columns);
            corners.insert(corners.end(), {low, low + 1, high + 1, low, high + 1, high});
        }
    }
    return corners;
}

std::vector<Points> contourLines(const HeightGrid& grid, double level) {
    Tracer tracer(grid, level);
    const std::vector<std::uint32_t> corners = gridTriangles(grid.points.size(), grid.columns);
    for (std::size_t i = 0; i < corners.size(); i += 3) {
        tracer.addTriangle({corners[i], corners[i + 1], corners[i + 2]});
    }
    return tracer.lines();
}

}  // namespace qelview
