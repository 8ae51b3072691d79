#include <memory>
#include <vector>

#include "AllBenches.h"
#include "ByHand.h"
#include "Models.h"
#include "Rig.h"

/// Geometries of a host through `drawGeometry`: many calls with few points each.

namespace qel::bench {

namespace {

constexpr std::int32_t kPolylines = 20'000;
constexpr std::int32_t kBalls = 1'000;
constexpr std::int32_t kFew = 3;
constexpr std::int32_t kPointsOfALine = 50;
constexpr int kViewPx = 64;
constexpr double kBallRadius = 0.02;
/// The colour and the width that a symbol starts with.
constexpr float kRed = 250.0F / 255.0F;
constexpr float kGreen = 250.0F / 255.0F;
constexpr float kBlue = 254.0F / 255.0F;

template <class Geometry>
struct GeometryScene {
    Rig rig{kViewPx, kViewPx};
    std::vector<ref_ptr<Geometry>> geometries;
};

template <class Geometry>
using SharedScene = std::shared_ptr<GeometryScene<Geometry>>;

/// The loop around a call for one geometry, which takes the geometries in turn: short samples of both forms
/// can follow each other that way, and what disturbs the machine meanwhile touches both.
template <class Geometry, class Draw>
Form inTurn(const SharedScene<Geometry>& scene, Draw draw) {
    return [scene, draw, next = std::size_t{0}](std::int64_t times) mutable {
        for (std::int64_t i = 0; i < times; ++i) {
            draw(*scene, *scene->geometries[next]);
            next = next + 1 < scene->geometries.size() ? next + 1 : 0;
        }
    };
}

/// Both forms of a scene, of which `bare` draws one geometry.
template <class Geometry, class Bare>
Forms formsOf(const SharedScene<Geometry>& scene, Bare bare) {
    Forms forms;
    forms.module = inTurn(scene, [](const GeometryScene<Geometry>& drawn, Geometry& geometry) {
        drawn.rig.symbol().drawGeometry(&geometry);
    });
    forms.bare =
        inTurn(scene, [bare](const GeometryScene<Geometry>&, Geometry& geometry) { bare(geometry); });
    forms.settle = Rig::finish;
    return forms;
}

void drawStripByHand(HostPointArray& points) {
    glColor3f(kRed, kGreen, kBlue);
    glLineWidth(1.0F);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_DOUBLE, sizeof(XPnt3d), points.points());
    glDrawArrays(GL_LINE_STRIP, 0, points.count());
    glDisableClientState(GL_VERTEX_ARRAY);
}

/// So many lines of a kind.
template <class Line>
Forms lineForms(Size size) {
    const auto scene = std::make_shared<GeometryScene<Line>>();
    const std::int32_t count = size == Size::Full ? kPolylines : kFew;
    for (std::int32_t i = 0; i < count; ++i) {
        scene->geometries.push_back(ref_ptr<Line>(new Line(wave(i, count, kPointsOfALine))));
    }
    return formsOf(scene, [](const Line& line) { drawStripByHand(line.lent()); });
}

void drawBallByHand(HostBall& ball) {
    const XPnt3d center = ball.center();
    GLUquadric* const quadric = gluNewQuadric();
    glPushMatrix();
    gluQuadricDrawStyle(quadric, GLU_SILHOUETTE);
    glTranslatef(static_cast<float>(center.x), static_cast<float>(center.y), static_cast<float>(center.z));
    gluSphere(quadric, ball.radius(), 20, 20);
    glTranslatef(static_cast<float>(-center.x), static_cast<float>(-center.y), static_cast<float>(-center.z));
    gluDeleteQuadric(quadric);
    glPopMatrix();
}

Forms ballForms(Size size) {
    const auto scene = std::make_shared<GeometryScene<HostBall>>();
    for (const XPnt3d& center : wave(0, 1, size == Size::Full ? kBalls : kFew)) {
        scene->geometries.push_back(ref_ptr<HostBall>(new HostBall(center, kBallRadius)));
    }
    return formsOf(scene, [](HostBall& ball) { drawBallByHand(ball); });
}

}  // namespace

void addGeometryBenches(Operations& all) {
    all.push_back({"drawGeometry, 20,000 polylines of 50 points", "polyline", Kind::Polyline,
                   lineForms<LendingPolyline>});
    all.push_back(
        {"drawGeometry, 20,000 curves of 50 points", "curve", Kind::Polyline, lineForms<LendingCurve>});
    all.push_back(
        {"drawGeometry, 20,000 polygons of 50 points", "polygon", Kind::Polygon, lineForms<LendingPolygon>});
    all.push_back({"drawGeometry, 1,000 balls", "ball", Kind::Ball, ballForms});
}

}  // namespace qel::bench
