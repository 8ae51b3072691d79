#include "HostScene.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "AllCores.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Thinning.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kPlainColor{0.75F, 0.75F, 0.78F};
constexpr std::uint16_t kDashes = 0x0F0F;

template <class Element>
qel::ref_ptr<qel::HostArray<Element>> makeArray(std::vector<Element> elements) {
    if (elements.empty()) {
        return {};
    }
    return new qel::HostArray<Element>(std::move(elements));
}

/// The elements of an array, which is made when it is first asked for.
template <class Element>
std::vector<Element>& elementsOf(HostElements<Element>& array) {
    if (!array) {
        array = new qel::HostArray<Element>({});
    }
    return array->content();
}

/// One element of an array for each part of a scene.
template <class Element, class Source, class Convert>
qel::ref_ptr<qel::HostArray<Element>> convertAll(const std::vector<Source>& source, const Convert& convert) {
    std::vector<Element> elements(source.size());
    forEachOnAllCores(source.size(), [&](std::size_t i) { elements[i] = convert(source[i]); });
    return makeArray(std::move(elements));
}

qel::ArrayVertex toVertex(const qel::XPnt3d& point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z), {}};
}

qel::ArrayNormal3b toByteNormal(const qel::XPnt3f& normal) {
    const auto byte = [](float part) { return static_cast<std::int8_t>(std::lround(part * 127.0F)); };
    return {byte(normal.x), byte(normal.y), byte(normal.z)};
}

/// Clouds take signed bytes: half of a byte's value is the same intensity.
qel::ArrayColor3b toSignedColor(const qel::QelColor3b& color) {
    const auto half = [](std::uint8_t channel) { return static_cast<std::int8_t>(channel / 2); };
    return {half(color.r), half(color.g), half(color.b)};
}

/// The depths of the surfaces drawn so far.
DepthImage readDepths(const PixelView& view) {
    const auto [x, y, width, height] = view.viewport;
    DepthImage depths(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, y, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    return depths;
}

}  // namespace

HostScene::HostScene(Scene scene) : markers(std::move(scene.markers)) {
    for (TriangleMesh& mesh : scene.meshes) {
        addMesh(std::exchange(mesh, {}));
    }
    for (PointCloud& cloud : scene.clouds) {
        addCloud(std::exchange(cloud, {}));
    }
    addGeometries(scene);
}

void HostScene::addMesh(TriangleMesh&& mesh) {
    Mesh added;
    added.parts = std::move(mesh.parts);
    const bool isIndexed = !mesh.indices.empty();
    added.indices = makeArray(std::move(mesh.indices));
    added.vertices = convertAll<qel::ArrayVertex>(mesh.positions, toVertex);
    mesh.positions = Points();
    // Each of the two mesh operations takes its own kind of normals.
    if (isIndexed) {
        added.normals = convertAll<qel::ArrayNormal4f>(mesh.normals, [](const qel::XPnt3f& normal) {
            return qel::ArrayNormal4f{normal.x, normal.y, normal.z, 0.0F};
        });
    } else {
        added.byteNormals = convertAll<qel::ArrayNormal3b>(mesh.normals, toByteNormal);
    }
    added.colors = convertAll<qel::ArrayColor4f>(mesh.colors, [](const qel::QelColor3f& color) {
        return qel::ArrayColor4f{color.r, color.g, color.b, 1.0F};
    });
    added.texCoords = makeArray(std::move(mesh.texCoords));
    added.texture = std::move(mesh.texture);
    added.color = mesh.color;
    added.shadeModel = mesh.faceted ? GL_FLAT : GL_SMOOTH;
    meshes.push_back(std::move(added));
}

void HostScene::addCloud(PointCloud&& cloud) {
    Cloud added;
    added.parts = std::move(cloud.parts);
    added.vertices = convertAll<qel::ArrayVertex>(cloud.positions, toVertex);
    added.positions = std::move(cloud.positions);
    added.colors = convertAll<qel::ArrayColor3b>(cloud.colors, toSignedColor);
    added.color = cloud.color;
    added.size = cloud.size;
    clouds.push_back(std::move(added));
}

void HostScene::addGeometries(const Scene& scene) {
    const auto add = [this](IQelGeometry* geometry, const LineStyle& style) {
        geometries.push_back({geometry, style});
    };
    for (const Polyline& polyline : scene.polylines) {
        add(new qel::HostPolyline(polyline.parts), polyline.style);
    }
    for (const Polygon& polygon : scene.polygons) {
        add(new qel::HostPolygon(polygon.rings), polygon.style);
    }
    for (const Ring& ring : scene.rings) {
        add(new qel::HostRing(ring.points), ring.style);
    }
    for (const Curve& curve : scene.curves) {
        add(new qel::HostCurve(curve.points), curve.style);
    }
    for (const Segment& segment : scene.segments) {
        add(new qel::HostSegment(segment.from, segment.to), segment.style);
    }
    for (const Ball& ball : scene.balls) {
        add(new qel::HostBall(ball.center, ball.radius), ball.style);
    }
    for (const SurveyPoint& point : scene.points) {
        add(new qel::HostPoint(point.position), {});
    }
}

template <class Part>
auto HostScene::shownColors(const Part& part) const {
    switch (shownColouring) {
        case Colouring::Height:
            return part.heightColors;
        case Colouring::Plain:
            return decltype(part.colors)();
        default:
            return part.colors;
    }
}

void HostScene::draw(IQelSymbol& symbol, const PixelView& view, HostView& kept, const DrawingDetail& detail) {
    drawMeshes(symbol, kept, detail);
    drawClouds(symbol, view, kept, detail);
    for (const Geometry& drawn : geometries) {
        drawGeometry(symbol, drawn, detail.pixelScale);
    }
    for (const Marker& marker : markers) {
        drawMarker(symbol, marker, detail.pixelScale);
    }
}

void HostScene::findRanges(const std::vector<SpatialPart>& parts, std::size_t count,
                           const DrawingDetail& detail) {
    if (detail.camera == nullptr || parts.empty()) {
        ranges.assign(1, {0, count, detail.thinning});
    } else {
        findPartsInView(*detail.camera, parts, detail.thinning, ranges);
    }
}

void HostScene::drawMeshes(IQelSymbol& symbol, HostView& kept, const DrawingDetail& detail) {
    kept.meshes.resize(meshes.size());
    // Moves surfaces back a little, so that lines on them are not hidden in part.
    glPolygonOffset(1.0F, 1.0F);
    const QelTmpGlStateCtrl offset(GL_POLYGON_OFFSET_FILL, true);
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        const Mesh& mesh = meshes[i];
        if (!mesh.vertices) {
            continue;
        }
        const int corners = mesh.indices ? mesh.indices->count() : mesh.vertices->count();
        const std::size_t triangles = static_cast<std::size_t>(corners) / 3;
        findRanges(mesh.parts, triangles, detail);
        if (ranges.empty()) {
            continue;
        }
        const Array<qel::ArrayIndex>& drawn = cornersInRanges(mesh, triangles, kept.meshes[i]);
        if (mesh.texture && shownColouring == Colouring::Own) {
            drawTextured(symbol, mesh, drawn, kept.textures);
        } else {
            drawMesh(symbol, mesh, drawn, 0);
        }
    }
}

void HostScene::drawClouds(IQelSymbol& symbol, const PixelView& view, HostView& kept,
                           const DrawingDetail& detail) {
    if (clouds.empty()) {
        return;
    }
    kept.clouds.resize(clouds.size());
    const DepthImage depths = meshes.empty() ? DepthImage() : readDepths(view);
    for (std::size_t i = 0; i < clouds.size(); ++i) {
        const Cloud& cloud = clouds[i];
        std::vector<qel::ArrayIndex>& order = elementsOf(kept.clouds[i]);
        findRanges(cloud.parts, cloud.positions.size(), detail);
        orderVisiblePoints(cloud.positions, view, depths, ranges, order);
        if (detail.section) {
            // Clipping hides these points; picking must not find them.
            std::erase_if(order, [&](qel::ArrayIndex number) {
                return detail.section->beyond(cloud.positions[number]) > 0.0;
            });
        }
        const qel::QelColor3f& color = shownColouring == Colouring::Plain ? kPlainColor : cloud.color;
        symbol.drawPointCloud(cloud.vertices, kept.clouds[i], shownColors(cloud),
                              cloud.size * detail.pixelScale, color);
    }
}

std::optional<qel::XPnt3d> HostScene::cloudPointAt(const PixelView& view, const HostView& kept, double x,
                                                   double y) const {
    // A click rarely hits a single pixel.
    constexpr double kReach = 3.0;
    for (std::size_t i = 0; i < kept.clouds.size(); ++i) {
        const Points& positions = clouds[i].positions;
        const auto number = visiblePointAt(positions, kept.clouds[i]->content(), view, x, y, kReach);
        if (number) {
            return positions[*number];
        }
    }
    return std::nullopt;
}

const HostScene::Array<qel::ArrayIndex>& HostScene::cornersInRanges(const Mesh& mesh, std::size_t triangles,
                                                                    HostView::MeshCorners& kept) const {
    if (ranges.size() == 1 && ranges.front() == DrawnRange{0, triangles, 1}) {
        return mesh.indices;
    }
    std::vector<qel::ArrayIndex>& drawn = elementsOf(kept.drawn);
    if (ranges != kept.ranges) {
        static const std::vector<qel::ArrayIndex> kNone;
        findDrawnCorners(ranges, mesh.indices ? mesh.indices->content() : kNone, drawn);
        kept.ranges = ranges;
    }
    return kept.drawn;
}

void HostScene::drawTextured(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                             HostTextures& textures) const {
    const std::uint32_t name = textures.nameOf(*mesh.texture);
    {
        const QelTmpGlStateCtrl holes(GL_ALPHA_TEST, name != 0 && mesh.texture->alphaCutoff > 0.0F);
        glAlphaFunc(GL_GEQUAL, mesh.texture->alphaCutoff);
        drawMesh(symbol, mesh, indices, name);
    }
    // Texturing is on for all that follows, which shows the texture that is bound.
    glBindTexture(GL_TEXTURE_2D, 0);
}

void HostScene::drawMesh(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                         std::uint32_t texture) const {
    const QelTmpGlStateCtrl color(shownColouring == Colouring::Plain ? kPlainColor : mesh.color);
    const Array<qel::ArrayColor4f> colors = shownColors(mesh);
    const Array<qel::ArrayTexCoord2f> texCoords =
        shownColouring == Colouring::Own ? mesh.texCoords : Array<qel::ArrayTexCoord2f>();
    const qel::MeshStyle style;
    if (mesh.indices) {
        symbol.drawIndexedMesh(mesh.vertices, indices, mesh.normals, colors, texCoords, texture,
                               mesh.shadeModel, GL_FILL, GL_FILL, style);
    } else {
        symbol.drawMesh(mesh.vertices, indices, mesh.byteNormals, colors, texCoords, texture, mesh.shadeModel,
                        GL_FILL, GL_FILL, style);
    }
}

void HostScene::drawGeometry(IQelSymbol& symbol, const Geometry& drawn, float pixelScale) {
    const float width = drawn.style.width * pixelScale;
    symbol.setColor(drawn.style.color);
    symbol.setLineWidth(width);
    const auto kind = static_cast<qel::GeometryKind>(drawn.geometry->geometryType());
    if (kind == qel::GeometryKind::LineSegment || kind == qel::GeometryKind::Ball) {
        // Alone they are drawn with the current colour and width.
        const qel::QelColor4b& color = drawn.style.color;
        glColor3ub(color.r, color.g, color.b);
        glLineWidth(width);
    }
    symbol.drawGeometry(drawn.geometry.get());
}

void HostScene::drawMarker(IQelSymbol& symbol, const Marker& marker, float pixelScale) {
    const float widthF = marker.width * pixelScale;
    const auto width = static_cast<double>(widthF);
    switch (marker.shape) {
        case MarkerShape::Cross:
            symbol.drawCross(marker.at, marker.size, widthF, marker.color, false, true);
            break;
        case MarkerShape::DiagonalCross:
            symbol.drawDiagonalCross(marker.at, marker.size, widthF, marker.color, false, true);
            break;
        case MarkerShape::Square:
            symbol.drawSquare(marker.at, marker.size, width, marker.color, false, true);
            break;
        case MarkerShape::Circle:
            symbol.drawCircle(marker.at, marker.size, widthF, marker.color, false, true);
            break;
        case MarkerShape::Box:
            symbol.drawBox(marker.box, width, marker.color, false, true);
            break;
        case MarkerShape::StippledLine:
            symbol.drawStippledLine(marker.at, marker.to, width, marker.color, false, true, kDashes);
            break;
    }
}

}  // namespace qelview
