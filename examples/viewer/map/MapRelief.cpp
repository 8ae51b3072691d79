#include "MapRelief.h"

#include "MapTriangles.h"

namespace qelview {

Scene reliefOf(const Scene& map) {
    Scene scene = map;
    TriangleMesh ground;
    ground.name = "ground";
    ground.color = {0.30F, 0.36F, 0.33F};
    ground.faceted = true;
    for (const Polygon& polygon : map.polygons) {
        if (polygon.rings.empty() || polygon.rings.front().empty()) {
            continue;
        }
        // In the plane of the polygon's first point: areas of maps are level.
        const double level = polygon.rings.front().front().z;
        for (const qel::XPnt3d& corner : trianglesOf(polygon.rings)) {
            ground.positions.emplace_back(corner.x, corner.y, level);
        }
    }
    if (!ground.positions.empty()) {
        ground.normals.assign(ground.positions.size(), {0.0F, 0.0F, 1.0F});
        scene.meshes.push_back(std::move(ground));
    }
    return scene;
}

}  // namespace qelview
