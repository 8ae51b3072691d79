#include "SceneSummary.h"

#include <algorithm>
#include <cmath>

namespace qelview {

namespace {

/// With a comma after each three digits.
std::string grouped(unsigned long long number) {
    std::string digits = std::to_string(number);
    for (std::size_t end = digits.size(); end > 3; end -= 3) {
        digits.insert(end - 3, 1, ',');
    }
    return digits;
}

void addCount(std::string& text, std::size_t count, const char* what) {
    if (count > 0) {
        text.append(text.empty() ? "" : ", ").append(grouped(count)).append(" ").append(what);
    }
}

std::string rounded(double value) {
    std::string digits = grouped(static_cast<unsigned long long>(std::llround(std::abs(value))));
    return value <= -0.5 ? "-" + digits : digits;
}

}  // namespace

std::string summaryOf(const Scene& scene) {
    std::string text;
    addCount(text, scene.triangleCount(), "triangles");
    addCount(text, scene.cloudPointCount() + scene.points.size(), "points");
    addCount(text, scene.lineVertexCount(), "line vertices");
    const qel::XPnt3d& origin = scene.origin;
    if (std::max({std::abs(origin.x), std::abs(origin.y), std::abs(origin.z)}) >= 0.5) {
        text.append("; around");
        for (const double coordinate : {origin.x, origin.y, origin.z}) {
            text.append(" ").append(rounded(coordinate));
        }
    }
    if (const std::size_t count = scene.warnings.size(); count > 0) {
        text.append("; ").append(std::to_string(count));
        text.append(count == 1 ? " warning (W)" : " warnings (W)");
    }
    return text;
}

}  // namespace qelview
