#include "Scene.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "AllCores.h"
#include "PointBoxes.h"

namespace qelview {

namespace {

using Parts = std::vector<SpatialPart>;

/// Calls `visit` for each array of positions that are joined by lines.
template <class SceneType, class Visitor>
void visitLines(SceneType& scene, const Visitor& visit) {
    for (auto& polyline : scene.polylines) {
        std::for_each(polyline.parts.begin(), polyline.parts.end(), visit);
    }
    for (auto& polygon : scene.polygons) {
        std::for_each(polygon.rings.begin(), polygon.rings.end(), visit);
    }
    for (auto& ring : scene.rings) {
        visit(ring.points);
    }
    for (auto& curve : scene.curves) {
        visit(curve.points);
    }
}

/// Calls `visit` for each array of positions that may be large, and its parts.
template <class SceneType, class Visitor>
void visitArrays(SceneType& scene, const Visitor& visit) {
    for (auto& mesh : scene.meshes) {
        visit(mesh.positions, mesh.parts);
    }
    for (auto& cloud : scene.clouds) {
        visit(cloud.positions, cloud.parts);
    }
    static constexpr Parts kNoParts;
    visitLines(scene, [&visit](auto& points) { visit(points, kNoParts); });
}

/// Calls `visit` for each position that stands alone.
template <class SceneType, class Visitor>
void visitOthers(SceneType& scene, const Visitor& visit) {
    for (auto& segment : scene.segments) {
        visit(segment.from);
        visit(segment.to);
    }
    for (auto& point : scene.points) {
        visit(point.position);
    }
}

/// Calls `change` for each position, on all cores for those of arrays.
template <class Change>
void changePositions(Scene& scene, const Change& change) {
    visitArrays(scene, [&change](Points& positions, const Parts&) {
        forEachOnAllCores(positions.size(), [&](std::size_t i) { change(positions[i]); });
    });
    visitOthers(scene, change);
    for (Ball& ball : scene.balls) {
        change(ball.center);
    }
    for (Marker& marker : scene.markers) {
        change(marker.at);
        change(marker.to);
        const auto& [xmin, xmax, ymin, ymax, zmin, zmax] = marker.box;
        Points corners{{xmin, ymin, zmin}, {xmax, ymax, zmax}};
        std::for_each(corners.begin(), corners.end(), change);
        marker.box = boxOf(corners);
    }
    for (Label& label : scene.labels) {
        change(label.at);
    }
}

template <class Part>
void moveInto(std::vector<Part>& target, std::vector<Part>& source) {
    target.insert(target.end(), std::make_move_iterator(source.begin()),
                  std::make_move_iterator(source.end()));
}

}  // namespace

bool Scene::isEmpty() const {
    bool isEmpty = balls.empty();
    visitArrays(
        *this, [&isEmpty](const Points& positions, const Parts&) { isEmpty = isEmpty && positions.empty(); });
    visitOthers(*this, [&isEmpty](const qel::XPnt3d&) { isEmpty = false; });
    return isEmpty;
}

qel::Enve3d Scene::bounds() const {
    qel::Enve3d box;
    box.setInvalid();
    visitArrays(*this, [&box](const Points& positions, const Parts&) {
        if (const qel::Enve3d own = boxOf(positions); own.isValid()) {
            box.SetBox({own.xmin, own.ymin, own.zmin});
            box.SetBox({own.xmax, own.ymax, own.zmax});
        }
    });
    visitOthers(*this, [&box](const qel::XPnt3d& position) { box.SetBox(position); });
    for (const Ball& ball : balls) {
        const qel::XPnt3d reach(ball.radius, ball.radius, ball.radius);
        box.SetBox(ball.center - reach);
        box.SetBox(ball.center + reach);
    }
    return box;
}

Points Scene::outline() const {
    Points found;
    visitArrays(*this, [&found](const Points& positions, const Parts& parts) {
        appendOutline(found, positions, parts);
    });
    visitOthers(*this, [&found](const qel::XPnt3d& position) { found.push_back(position); });
    for (const Ball& ball : balls) {
        for (const double reach : {-ball.radius, ball.radius}) {
            found.push_back(ball.center + qel::XPnt3d(reach, 0.0, 0.0));
            found.push_back(ball.center + qel::XPnt3d(0.0, reach, 0.0));
            found.push_back(ball.center + qel::XPnt3d(0.0, 0.0, reach));
        }
    }
    for (const Marker& marker : markers) {
        if (marker.shape == MarkerShape::Circle) {
            for (const double reach : {-marker.size, marker.size}) {
                found.emplace_back(marker.at.x + reach, marker.at.y, 0.0);
                found.emplace_back(marker.at.x, marker.at.y + reach, 0.0);
            }
        }
    }
    for (const Label& label : labels) {
        found.push_back(label.at);
    }
    return found;
}

void Scene::moveToOrigin() {
    const qel::Enve3d box = bounds();
    if (!box.isValid()) {
        return;
    }
    const qel::XPnt3d middle = box.MidPoint();
    changePositions(*this, [&middle](qel::XPnt3d& position) { position -= middle; });
    origin += middle;
}

void Scene::turn(UpAxis wanted) {
    if (up == wanted) {
        return;
    }
    const auto turned = [&](qel::XPnt3d& vector) { vector = fromUpright(upright(vector, up), wanted); };
    changePositions(*this, turned);
    for (TriangleMesh& mesh : meshes) {
        for (qel::XPnt3f& normal : mesh.normals) {
            normal = qel::XPnt3f(fromUpright(upright(qel::XPnt3d(normal), up), wanted));
        }
    }
    up = wanted;
}

void Scene::append(Scene&& other) {
    other.turn(up);
    isUpKnown = isUpKnown || other.isUpKnown;
    moveInto(meshes, other.meshes);
    moveInto(clouds, other.clouds);
    moveInto(polylines, other.polylines);
    moveInto(polygons, other.polygons);
    moveInto(rings, other.rings);
    moveInto(curves, other.curves);
    moveInto(segments, other.segments);
    moveInto(balls, other.balls);
    moveInto(points, other.points);
    moveInto(markers, other.markers);
    moveInto(labels, other.labels);
    moveInto(warnings, other.warnings);
    other = Scene();
}

std::size_t Scene::triangleCount() const {
    std::size_t sum = 0;
    for (const TriangleMesh& mesh : meshes) {
        sum += (mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size()) / 3;
    }
    return sum;
}

std::size_t Scene::cloudPointCount() const {
    std::size_t sum = 0;
    for (const PointCloud& cloud : clouds) {
        sum += cloud.positions.size();
    }
    return sum;
}

std::size_t Scene::lineVertexCount() const {
    std::size_t sum = 0;
    visitLines(*this, [&sum](const Points& line) { sum += line.size(); });
    return sum;
}

}  // namespace qelview
