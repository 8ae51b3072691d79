#include "MapData.h"

#include <algorithm>
#include <iterator>

namespace qelview {

namespace {

constexpr qel::Enve2d kGlobe(-180.0, -90.0, 180.0, 90.0);

class Flattening {
  public:
    Flattening(const Scene& of, MapData& into) : scene(of), map(into) { map.bounds.setInvalid(); }

    void run() {
        for (const Polygon& polygon : scene.polygons) {
            Rings2d& rings = map.polygons.emplace_back();
            std::transform(polygon.rings.begin(), polygon.rings.end(), std::back_inserter(rings),
                           [this](const Points& ring) { return closed(flat(ring)); });
        }
        for (const Ring& ring : scene.rings) {
            map.polygons.push_back({closed(flat(ring.points))});
        }
        for (const Polyline& polyline : scene.polylines) {
            std::transform(polyline.parts.begin(), polyline.parts.end(), std::back_inserter(map.lines),
                           [this](const Points& part) { return flat(part); });
        }
        for (const Curve& curve : scene.curves) {
            map.lines.push_back(flat(curve.points));
        }
        for (const Segment& segment : scene.segments) {
            map.lines.push_back(flat({segment.from, segment.to}));
        }
        for (const PointCloud& cloud : scene.clouds) {
            const Line2d flattened = flat(cloud.positions);
            map.points.insert(map.points.end(), flattened.begin(), flattened.end());
        }
        for (const SurveyPoint& point : scene.points) {
            map.points.push_back(seenFromAbove(point.position));
        }
        for (const Label& label : scene.labels) {
            const qel::XPnt3d place = label.at + scene.origin;
            map.names.push_back({{place.x, place.y}, label.text});
        }
    }

  private:
    qel::XPnt2d seenFromAbove(const qel::XPnt3d& point) {
        const qel::XPnt3d place = point + scene.origin;
        map.bounds.SetBox(place);
        return {place.x, place.y};
    }

    Line2d flat(const Points& points) {
        Line2d line;
        line.reserve(points.size());
        std::transform(points.begin(), points.end(), std::back_inserter(line),
                       [this](const qel::XPnt3d& point) { return seenFromAbove(point); });
        return line;
    }

    static Line2d closed(Line2d ring) {
        if (!ring.empty() && (ring.front().x != ring.back().x || ring.front().y != ring.back().y)) {
            ring.push_back(ring.front());
        }
        return ring;
    }

    const Scene& scene;
    MapData& map;
};

}  // namespace

MapData mapOf(const Scene& scene) {
    MapData map;
    map.title = scene.title;
    Flattening(scene, map).run();
    // About a metre: files round the globe's edge, and so does adding the origin that was subtracted.
    constexpr double kRounding = 1e-5;
    const qel::Enve2d& box = map.bounds;
    map.isGeographic = box.isValid() && box.xmin >= kGlobe.xmin - kRounding &&
                       box.xmax <= kGlobe.xmax + kRounding && box.ymin >= kGlobe.ymin - kRounding &&
                       box.ymax <= kGlobe.ymax + kRounding;
    return map;
}

}  // namespace qelview
