#include "MapFrame.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "MapClip.h"
#include "RoundNumbers.h"
#include "TextRoom.h"

namespace qelview {

namespace {

/// Distance of the clipping rectangle outside the pane, so that clipped edges are not visible.
constexpr double kMarginPx = 48.0;
constexpr std::size_t kMostFramedPoints = 1500;
/// Smallest distance of the grid lines, in pixels.
constexpr double kGridPx = 110.0;

qel::Enve2d widened(const MapView& view) {
    qel::Enve2d area = view.extent();
    const double margin = kMarginPx * view.unitsPerPixel();
    area.xmin -= margin;
    area.xmax += margin;
    area.ymin -= margin;
    area.ymax += margin;
    return area;
}

/// Corners at pixel centres, without duplicates.
Line2d snapped(const Line2d& line, const MapView& view) {
    Line2d corners;
    double lastColumn = 0.0;
    double lastRow = 0.0;
    for (const qel::XPnt2d& point : line) {
        const qel::XPnt2d pixel = view.pixelOf(point);
        const double column = std::round(pixel.x);
        const double row = std::round(pixel.y);
        if (corners.empty() || column != lastColumn || row != lastRow) {
            corners.push_back(view.worldAt(column, row));
            lastColumn = column;
            lastRow = row;
        }
    }
    return corners;
}

void addParts(std::vector<Line2d>& target, const Line2d& line, const qel::Enve2d& area, const MapView& view) {
    for (const Line2d& part : clipLine(line, area)) {
        Line2d corners = snapped(part, view);
        // Smaller than a pixel: not visible.
        if (corners.size() > 1) {
            target.push_back(std::move(corners));
        }
    }
}

void addArea(MapFrame& frame, const Rings2d& rings, const qel::Enve2d& area, const MapView& view) {
    constexpr std::size_t kFewestCorners = 3;
    Rings2d visible;
    for (const Line2d& ring : rings) {
        if (boundsOf(ring).isIntersect(area)) {
            Line2d corners = snapped(clipRing(ring, area), view);
            if (corners.size() >= kFewestCorners) {
                visible.push_back(std::move(corners));
            }
            addParts(frame.outlines, ring, area, view);
        }
    }
    if (!visible.empty()) {
        frame.areas.push_back(std::move(visible));
    }
}

std::vector<double> multiplesWithin(double from, double to, double step) {
    // More than fit in a pane.
    constexpr double kMost = 1000.0;
    const double first = std::ceil(from / step);
    const auto count = static_cast<int>(std::clamp(std::floor(to / step) - first + 1.0, 0.0, kMost));
    std::vector<double> multiples;
    multiples.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        multiples.push_back((first + i) * step);
    }
    return multiples;
}

void addNet(MapFrame& frame, const MapView& view, bool isGlobe) {
    const double step = roundAtLeast(kGridPx * view.unitsPerPixel());
    qel::Enve2d area = widened(view);
    if (isGlobe) {
        area = {std::max(area.xmin, -180.0), std::max(area.ymin, -90.0), std::min(area.xmax, 180.0),
                std::min(area.ymax, 90.0)};
    }
    for (const double x : multiplesWithin(area.xmin, area.xmax, step)) {
        frame.grid.push_back(snapped({{x, area.ymin}, {x, area.ymax}}, view));
    }
    for (const double y : multiplesWithin(area.ymin, area.ymax, step)) {
        frame.grid.push_back(snapped({{area.xmin, y}, {area.xmax, y}}, view));
    }
}

void addNames(MapFrame& frame, const MapData& map, const MapView& view) {
    TextRoom room;
    for (const Name2d& name : map.names) {
        const qel::XPnt2d at = view.pixelOf(name.at);
        const qel::Enve2d box = TextRoom::around(at.x, at.y, name.text);
        const bool isInside =
            box.xmin >= 0.0 && box.ymin >= 0.0 && box.xmax < view.width() && box.ymax < view.height();
        if (isInside && room.take(at.x, at.y, name.text)) {
            frame.names.push_back(name);
        }
    }
}

}  // namespace

MapFrame makeFrame(const MapData& map, const MapView& view) {
    MapFrame frame;
    const qel::Enve2d area = widened(view);
    addNet(frame, view, map.isGeographic);
    for (const Rings2d& polygon : map.polygons) {
        addArea(frame, polygon, area, view);
    }
    for (const Line2d& line : map.lines) {
        addParts(frame.lines, line, area, view);
    }
    Line2d seen;
    std::copy_if(map.points.begin(), map.points.end(), std::back_inserter(seen),
                 [&](const qel::XPnt2d& point) { return contains(area, point); });
    frame.isCrowded = seen.size() > kMostFramedPoints;
    frame.points = snapped(seen, view);
    addNames(frame, map, view);
    return frame;
}

}  // namespace qelview
