#include "SceneSummary.h"

#include <algorithm>
#include <cmath>

namespace qelview {

namespace {

/// With a comma after each three digits.
std::string grouped(unsigned long long number) {
    std::string digits = std::to_string(number);
    for (std::size_t end = digits.size(); end > 3; end -= 3) {
        digits.insert(end - 3, ",");
    }
    return digits;
}

void addCount(std::string& text, std::size_t count, const char* what) {
    if (count > 0) {
        text += (text.empty() ? "" : ", ") + grouped(count) + " " + what;
    }
}

std::string rounded(double value) {
    return (value <= -0.5 ? "-" : "") +
           grouped(static_cast<unsigned long long>(std::llround(std::abs(value))));
}

}  // namespace

std::string summaryOf(const Scene& scene) {
    std::string text;
    addCount(text, scene.triangleCount(), "triangles");
    addCount(text, scene.cloudPointCount() + scene.points.size(), "points");
    addCount(text, scene.lineVertexCount(), "line vertices");
    const qel::XPnt3d& origin = scene.origin;
    if (std::max({std::abs(origin.x), std::abs(origin.y), std::abs(origin.z)}) >= 0.5) {
        text += "; around " + rounded(origin.x) + " " + rounded(origin.y) + " " + rounded(origin.z);
    }
    if (const std::size_t count = scene.warnings.size(); count > 0) {
        text += "; " + std::to_string(count) + (count == 1 ? " warning" : " warnings") + " (W)";
    }
    return text;
}

}  // namespace qelview
