#include "MapRelief.h"

#include <algorithm>
#include <iterator>

#include "MapFrame.h"
#include "MapTriangles.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kGround{0.30F, 0.36F, 0.33F};

Rings2d flat(const Polygon& polygon) {
    Rings2d rings;
    for (const Points& ring : polygon.rings) {
        Line2d& line = rings.emplace_back();
        std::transform(ring.begin(), ring.end(), std::back_inserter(line),
                       [](const qel::XPnt3d& point) { return qel::XPnt2d(point.x, point.y); });
    }
    return rings;
}

/// Labels that would not cover each other on a small map.
void keepReadableLabels(Scene& scene) {
    constexpr int kWidth = 700;
    constexpr int kHeight = 360;
    const MapData map = mapOf(scene);
    MapView view;
    view.resize(kWidth, kHeight);
    view.fit(map.bounds);
    const std::vector<Name2d> kept = makeFrame(map, view).names;
    std::erase_if(scene.labels, [&](const Label& label) {
        const qel::XPnt3d place = label.at + scene.origin;
        return std::none_of(kept.begin(), kept.end(), [&](const Name2d& name) {
            return name.text == label.text && name.at.x == place.x && name.at.y == place.y;
        });
    });
}

}  // namespace

Scene reliefOf(const Scene& map) {
    Scene scene = map;
    TriangleMesh ground;
    ground.name = "ground";
    ground.color = kGround;
    ground.faceted = true;
    for (const Polygon& polygon : map.polygons) {
        if (polygon.rings.empty() || polygon.rings.front().empty()) {
            continue;
        }
        // In the plane of the polygon's beginning: maps have their areas on one level.
        const double level = polygon.rings.front().front().z;
        for (const qel::XPnt2d& corner : trianglesOf(flat(polygon))) {
            ground.positions.emplace_back(corner.x, corner.y, level);
        }
    }
    if (!ground.positions.empty()) {
        ground.normals.assign(ground.positions.size(), {0.0F, 0.0F, 1.0F});
        scene.meshes.push_back(std::move(ground));
    }
    keepReadableLabels(scene);
    return scene;
}

}  // namespace qelview
