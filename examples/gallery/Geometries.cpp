#include <cmath>
#include <numbers>
#include <vector>

#include "Pictures.h"
#include "QelGl.h"
#include "QelHostKit.h"

/// Geometries of a host; their classes are those of the host kit.

namespace gallery {

namespace {

using qel::HostBall;
using qel::HostCurve;
using qel::HostPoint;
using qel::HostPolygon;
using qel::HostPolyline;
using qel::HostRing;
using qel::HostSegment;

std::vector<qel::XPnt3d> spiral(double turns) {
    std::vector<qel::XPnt3d> points;
    const int steps = static_cast<int>(turns * 50.0);
    for (int step = 0; step <= steps; ++step) {
        const double at = step / 50.0;
        const double angle = 2.0 * std::numbers::pi * at;
        points.emplace_back(8.0 * std::cos(angle), 8.0 * std::sin(angle), 8.0 * at / turns);
    }
    return points;
}

void pointGeometry(Easel& easel) {
    for (int step = -32; step <= 32; ++step) {
        const double at = step / 4.0;
        const qel::ref_ptr<IQelGeometry> point(new HostPoint({at, -at, 3.0 + 2.0 * std::sin(at)}));
        easel.symbol.drawGeometry(point.get());
    }
}

void polyline(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> lines(new HostPolyline(
        {{{-8, -6, 0}, {-2, -6, 0}, {-2, 6, 0}, {-8, 6, 4}}, {{2, -6, 0}, {8, 0, 4}, {2, 6, 0}}}));
    easel.symbol.setColor({255, 200, 90});
    easel.symbol.setLineWidth(2.0F);
    easel.symbol.drawGeometry(lines.get());
}

void polygon(Easel& easel) {
    // Rings close only if they repeat their first point: the inner one here does not.
    const qel::ref_ptr<IQelGeometry> parcel(
        new HostPolygon({{{-8, -6, 0}, {8, -6, 0}, {8, 6, 0}, {-8, 6, 0}, {-8, -6, 0}},
                         {{-4, -3, 0}, {4, -3, 0}, {4, 3, 0}, {-4, 3, 0}}}));
    easel.symbol.setColor({110, 200, 255});
    easel.symbol.setLineWidth(2.0F);
    easel.symbol.drawGeometry(parcel.get());
}

void ring(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> closed(new HostRing({{-8, -6, 0}, {8, -6, 3}, {8, 6, 0}, {-8, 6, 3}}));
    easel.symbol.setColor({130, 230, 140});
    easel.symbol.setLineWidth(2.0F);
    easel.symbol.drawGeometry(closed.get());
}

void curve(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> rising(new HostCurve(spiral(3.0)));
    easel.symbol.setColor({255, 130, 110});
    easel.symbol.setLineWidth(2.0F);
    easel.symbol.drawGeometry(rising.get());
}

void otherCurve(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> turn(new HostCurve(spiral(0.75), qel::GeometryKind::OtherCurve));
    easel.symbol.setColor({255, 130, 110});
    easel.symbol.setLineWidth(2.0F);
    easel.symbol.drawGeometry(turn.get());
}

void lineSegment(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> segment(new HostSegment({-8, 4, 0}, {8, -4, 8}));
    glColor3f(1.0F, 0.85F, 0.35F);  // a segment takes the current colour and width
    glLineWidth(3.0F);
    easel.symbol.drawGeometry(segment.get());
}

void ball(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> sphere(new HostBall({0, 0, 3}, 6.0));
    glColor3f(0.4F, 0.75F, 1.0F);  // so does a ball
    easel.symbol.drawGeometry(sphere.get());
}

void drawGeometryWith(Easel& easel) {
    const qel::ref_ptr<IQelGeometry> rising(new HostCurve(spiral(2.0)));
    const qel::ref_ptr<IQelGeometry> segment(new HostSegment({-8, 8, 0}, {8, -8, 0}));
    easel.symbol.drawGeometryWith(rising.get(), 5.0, {130, 230, 140});  // the colour counts, not the width
    easel.symbol.drawGeometryWith(segment.get(), 5.0, {255, 200, 90});  // both count
}

constexpr Picture kPictures[] = {
    {"pointGeometry", "Points (kind 1): always green, two pixels wide.", &pointGeometry},
    {"polyline", "A polyline (kind 2) of two parts.", &polyline},
    {"polygon", "A polygon (kind 3): its rings as open strips.", &polygon},
    {"ring", "A ring (kind 5), closed by the symbol.", &ring},
    {"curve", "A curve (kind 6).", &curve},
    {"otherCurve", "A curve of the other kind (20), drawn like any curve.", &otherCurve},
    {"lineSegment", "A line segment (kind 7).", &lineSegment},
    {"ball", "A ball (kind 24): a wire sphere of 20 slices and 20 stacks.", &ball},
    {"drawGeometryWith", "Geometries with a style of the call's own.", &drawGeometryWith},
};

}  // namespace

Pictures geometries() {
    return kPictures;
}

}  // namespace gallery
