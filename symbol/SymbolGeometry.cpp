#include "CQelLineSeg.h"
#include "CQelSimpSymbol.h"
#include "ClientArrays.h"
#include "IQelBall.h"
#include "IQelCurve.h"
#include "IQelGeometry.h"
#include "IQelPoint.h"
#include "IQelPolygon.h"
#include "IQelPolyline.h"
#include "IQelRing.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "detail/EmitVertex.h"
#include "detail/QelTruncate.h"

namespace {

// Empty if the object does not implement the interface of its kind code: a host's mistake then loses that
// geometry instead of crashing.
template <class Interface>
qel::ref_ptr<Interface> heldAs(IQelGeometry* geometry) {
    return dynamic_cast<Interface*>(geometry);
}

void drawLineSeg(const CQelLineSeg* segment) {
    if (segment == nullptr) {
        return;
    }
    glBegin(GL_LINE_STRIP);
    qel::emitVertex(segment->start);
    qel::emitVertex(segment->end);
    glEnd();
}

void drawBall(IQelBall& ball) {
    constexpr GLint kSlices = 20;
    constexpr GLint kStacks = 20;

    const qel::XPnt3d center = ball.center();
    const double radius = ball.radius();
    GLUquadric* const quadric = gluNewQuadric();
    // GLU returns null if out of memory, and its other functions do not check.
    if (quadric == nullptr) {
        return;
    }
    glPushMatrix();
    gluQuadricDrawStyle(quadric, GLU_SILHOUETTE);
    const auto x = static_cast<float>(center.x);
    const auto y = static_cast<float>(center.y);
    const auto z = static_cast<float>(center.z);
    glTranslatef(x, y, z);
    gluSphere(quadric, radius, kSlices, kStacks);
    glTranslatef(-x, -y, -z);
    gluDeleteQuadric(quadric);
    glPopMatrix();
}

qel::QelColor3f unitColor(qel::QelColor3b bytes) {
    const auto unit = [](std::uint8_t component) { return static_cast<float>(component) / 255.0F; };
    return {unit(bytes.r), unit(bytes.g), unit(bytes.b)};
}

// A saved component truncated to a byte. OpenGL reports components from 0 to 1, so the result is 1 for full
// intensity and 0 below; the guards restore the real colour right after.
GLbyte truncatedComponent(double component) {
    return static_cast<GLbyte>(qel::truncateToInt(component));
}

}  // namespace

std::int32_t CQelSimpSymbol::drawGeometry(IQelGeometry* geometry) {
    if (geometry == nullptr) {
        return 0;
    }
    const auto kind = static_cast<qel::GeometryKind>(geometry->geometryType());
    switch (kind) {
        case qel::GeometryKind::Point:
            // Green whatever the symbol's colour: existing hosts rely on it.
            if (const auto point = heldAs<IQelPoint>(geometry)) {
                drawPoint(point->position.x, point->position.y, point->position.z, 2.0F,
                          qel::QelColor3f(0.0F, 1.0F, 0.0F), false, false);
            }
            break;
        case qel::GeometryKind::Ring:
            if (const auto ring = heldAs<IQelRing>(geometry)) {
                drawRingLoop(*ring);
            }
            break;
        case qel::GeometryKind::Curve:
        case qel::GeometryKind::OtherCurve:
            if (const auto curve = heldAs<IQelCurve>(geometry)) {
                drawLineStripArray(*curve, color.toColor3b());
            }
            break;
        case qel::GeometryKind::Ball:
            if (const auto ball = heldAs<IQelBall>(geometry)) {
                drawBall(*ball);
            }
            break;
        default:
            drawPartedOrSegment(geometry, kind);
            break;
    }
    return 0;
}

std::int32_t CQelSimpSymbol::drawGeometryWith(IQelGeometry* geometry, double width, qel::QelColor3b given) {
    if (geometry == nullptr) {
        return 0;
    }
    double savedLineWidth = 0.0;
    double savedColor[4] = {};
    glGetDoublev(GL_LINE_WIDTH, &savedLineWidth);
    glGetDoublev(GL_CURRENT_COLOR, savedColor);
    const QelTmpGlStateCtrl colorGuard(unitColor(given));
    const QelTmpGlStateCtrl widthGuard(GL_LINE_WIDTH, static_cast<float>(width));

    const auto kind = static_cast<qel::GeometryKind>(geometry->geometryType());
    if (kind == qel::GeometryKind::Ring || kind == qel::GeometryKind::Curve) {
        if (const auto curve = heldAs<IQelCurve>(geometry)) {
            drawLineStripArray(*curve, given);
        }
    } else {
        drawPartedOrSegment(geometry, kind);
    }

    glLineWidth(static_cast<float>(savedLineWidth));
    glColor4b(truncatedComponent(savedColor[0]), truncatedComponent(savedColor[1]),
              truncatedComponent(savedColor[2]), truncatedComponent(savedColor[3]));
    return 0;
}

void CQelSimpSymbol::drawPartedOrSegment(IQelGeometry* geometry, qel::GeometryKind kind) const {
    if (kind == qel::GeometryKind::Polyline) {
        if (const auto polyline = heldAs<IQelPolyline>(geometry)) {
            drawPolylineParts(*polyline);
        }
    } else if (kind == qel::GeometryKind::Polygon) {
        if (const auto polygon = heldAs<IQelPolygon>(geometry)) {
            drawPolygonRings(*polygon);
        }
    } else if (kind == qel::GeometryKind::LineSegment) {
        drawLineSeg(dynamic_cast<const CQelLineSeg*>(geometry));
    }
}

void CQelSimpSymbol::drawCurvePoints(std::uint32_t primitive, IQelCurve& curve, qel::QelColor3b given) const {
    const qel::ref_ptr<IQelPointArray> array = curve.pointArray();
    if (!array) {
        return;
    }
    curve.prepareDraw();
    const qel::XPnt3d* const points = array->points();
    const std::int32_t count = array->count();
    // OpenGL would read through a null pointer, and would refuse a negative count with an error for the host.
    if (count < 0 || (count > 0 && points == nullptr)) {
        return;
    }
    const qel::QelColor3f unit = unitColor(given);
    glColor3f(unit.r, unit.g, unit.b);
    glLineWidth(static_cast<float>(lineWidth));
    const ClientArrays arrays(GL_DOUBLE, static_cast<GLsizei>(sizeof(qel::XPnt3d)), points);
    glDrawArrays(primitive, 0, count);
}

void CQelSimpSymbol::drawLineStripArray(IQelCurve& curve, qel::QelColor3b given) const {
    drawCurvePoints(GL_LINE_STRIP, curve, given);
}

void CQelSimpSymbol::drawRingLoop(IQelCurve& ring) const {
    drawCurvePoints(GL_LINE_LOOP, ring, color.toColor3b());
}

void CQelSimpSymbol::drawPolylineParts(IQelPolyline& polyline) const {
    const std::int32_t count = polyline.partCount();
    for (std::int32_t index = 0; index < count; ++index) {
        // A missing part is skipped, so that the others show.
        if (IQelCurve* const part = polyline.part(index)) {
            drawLineStripArray(*part, color.toColor3b());
        }
    }
}

void CQelSimpSymbol::drawPolygonRings(IQelPolygon& polygon) const {
    const std::int32_t count = polygon.ringCount();
    for (std::int32_t index = 0; index < count; ++index) {
        if (IQelCurve* const ring = polygon.ring(index)) {
            drawLineStripArray(*ring, color.toColor3b());
        }
    }
}
