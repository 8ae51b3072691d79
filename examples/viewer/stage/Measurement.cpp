#include "Measurement.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "CoordinateText.h"

namespace qelview {

namespace {

constexpr const char* kLineEnd = "\r\n";

/// Of a closed polygon: as long as twice its area, across its plane.
qel::XPnt3d doubleAreaOf(const Points& corners) {
    qel::XPnt3d sum;
    // From the first corner, so that coordinates far from the origin lose no digits.
    for (std::size_t i = 2; i < corners.size(); ++i) {
        sum += qel::cross(corners[i - 1] - corners[0], corners[i] - corners[0]);
    }
    return sum;
}

std::string inFull(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", value);
    return text.data();
}

std::string slopeText(const Measurement& measured) {
    const std::string degrees = fixed(measured.slopeDegrees, 2) + " deg";
    return measured.horizontal > 0.0
               ? degrees + " (" + fixed(100.0 * measured.rise / measured.horizontal, 1) + " %)"
               : degrees;
}

}  // namespace

Measurement measure(const Points& points, UpAxis up) {
    Measurement measured;
    for (std::size_t i = 1; i < points.size(); ++i) {
        measured.step = points[i] - points[i - 1];
        measured.distance = measured.step.norm();
        measured.pathLength += measured.distance;
    }
    const qel::XPnt3d step = upright(measured.step, up);
    measured.horizontal = std::hypot(step.x, step.y);
    measured.rise = step.z;
    measured.slopeDegrees = std::atan2(measured.rise, measured.horizontal) * 180.0 / std::numbers::pi;
    const qel::XPnt3d doubleArea = upright(doubleAreaOf(points), up);
    measured.area = 0.5 * doubleArea.norm();
    measured.areaFromAbove = 0.5 * std::abs(doubleArea.z);
    return measured;
}

std::vector<MeasurementLine> measurementLines(const Points& points, const qel::XPnt3d& origin, UpAxis up,
                                              double size) {
    // Two more than a pixel shows: points of clouds and corners are exact.
    constexpr int kMoreDecimals = 2;
    const int decimals = decimalsFor(size) + kMoreDecimals;
    const auto length = [decimals](double value) { return fixed(value, decimals); };
    const qel::XPnt3d last = points.back() + origin;
    std::vector<MeasurementLine> lines{{"x", length(last.x)}, {"y", length(last.y)}, {"z", length(last.z)}};
    const Measurement measured = measure(points, up);
    if (points.size() > 1) {
        lines.insert(lines.end(), {{"distance", length(measured.distance)},
                                   {"dx", length(measured.step.x)},
                                   {"dy", length(measured.step.y)},
                                   {"dz", length(measured.step.z)},
                                   {"horizontal", length(measured.horizontal)},
                                   {"slope", slopeText(measured)}});
    }
    if (points.size() > 2) {
        lines.insert(lines.end(), {{"path", length(measured.pathLength)},
                                   {"area", length(measured.area)},
                                   {"from above", length(measured.areaFromAbove)}});
    }
    return lines;
}

std::string measurementTable(const Points& points, const qel::XPnt3d& origin, UpAxis up) {
    std::string table = "point\tx\ty\tz\tdx\tdy\tdz\tdistance\thorizontal\tslope (deg)\tpath";
    table += kLineEnd;
    double path = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const qel::XPnt3d at = points[i] + origin;
        std::vector<double> row{at.x, at.y, at.z};
        if (i > 0) {
            const Measurement leg = measure({points[i - 1], points[i]}, up);
            path += leg.distance;
            row.insert(row.end(), {leg.step.x, leg.step.y, leg.step.z, leg.distance, leg.horizontal,
                                   leg.slopeDegrees, path});
        }
        table += std::to_string(i + 1);
        for (const double value : row) {
            table += "\t" + inFull(value);
        }
        table += kLineEnd;
    }
    if (points.size() > 2) {
        const Measurement all = measure(points, up);
        table += "area\t" + inFull(all.area) + kLineEnd + "area from above\t" + inFull(all.areaFromAbove) +
                 kLineEnd;
    }
    return table;
}

}  // namespace qelview
