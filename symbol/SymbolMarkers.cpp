#include <array>
#include <cmath>

#include "CQelSimpSymbol.h"
#include "QelGl.h"
#include "QelStatus.h"
#include "QelTmpGlStateCtrl.h"
#include "StyleGuards.h"
#include "detail/EmitVertex.h"

namespace {

/// Half a unit square's diagonal, to four digits: the distance of a segment's frame.
constexpr double kDiagonal = 0.7071;

// Five vertices although the loop closes by itself: existing hosts rely on it.
void emitRectLoop(const qel::Enve2d& rect, double z) {
    glBegin(GL_LINE_LOOP);
    glVertex3d(rect.xmin, rect.ymin, z);
    glVertex3d(rect.xmax, rect.ymin, z);
    glVertex3d(rect.xmax, rect.ymax, z);
    glVertex3d(rect.xmin, rect.ymax, z);
    glVertex3d(rect.xmin, rect.ymin, z);
    glEnd();
}

void emitUprightEdge(double x, double y, const qel::Enve3d& box) {
    glBegin(GL_LINE_LOOP);
    glVertex3d(x, y, box.zmin);
    glVertex3d(x, y, box.zmax);
    glEnd();
}

void emitLineAlongZ(const qel::XPnt3d& center, double halfLength) {
    glVertex3d(center.x, center.y, center.z - halfLength);
    glVertex3d(center.x, center.y, center.z + halfLength);
}

/// The circle of radius 1. It is not closed: it runs slightly past a full turn, so that its ends overlap.
class UnitCircle {
  public:
    struct Direction {
        double sine;
        double cosine;
    };

    UnitCircle() {
        float angle = 0.0F;
        for (Direction& direction : directions) {
            const auto radians = static_cast<double>(angle);
            direction = {std::sin(radians), std::cos(radians)};
            // In single precision, with its rounding.
            angle += kStepRadians;
        }
    }

    [[nodiscard]] auto begin() const { return directions.begin(); }
    [[nodiscard]] auto end() const { return directions.end(); }

  private:
    static constexpr float kStepRadians = 0.3F;
    /// The last one is at 6.3 radians.
    static constexpr std::size_t kVertices = 22;

    std::array<Direction, kVertices> directions{};
};

// True if a sequence has a count but no memory: there is nothing to draw, and reading would crash.
bool lacksMemory(const void* points, std::int32_t count) {
    return points == nullptr && count > 0;
}

struct LineStyle {
    double width;
    qel::QelColor3f color;
    bool lighting;
    bool depthTest;
};

void drawStippledPoints(std::uint32_t primitive, const qel::ref_ptr<IQelArray<qel::XPnt3d>>& array,
                        const LineStyle& style, std::uint16_t pattern) {
    if (!array) {
        return;
    }
    const std::int32_t count = array->count();
    const qel::XPnt3d* const points = array->data();
    if (lacksMemory(points, count)) {
        return;
    }
    const StyleGuards guards(style.color, GL_LINE_WIDTH, static_cast<float>(style.width), style.lighting,
                             style.depthTest);
    // Only the pattern: the caller decides whether lines are stippled.
    glLineStipple(1, pattern);
    glBegin(primitive);
    for (std::int32_t index = 0; index < count; ++index) {
        qel::emitVertex(points[index]);
    }
    glEnd();
}

}  // namespace

std::int32_t CQelSimpSymbol::drawStippledLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width,
                                              qel::QelColor3f given, bool lighting, bool depthTest,
                                              std::uint16_t pattern) {
    const StyleGuards guards(given, GL_LINE_WIDTH, static_cast<float>(width), lighting, depthTest);
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, pattern);
    glBegin(GL_LINES);
    qel::emitVertex(from);
    qel::emitVertex(to);
    glEnd();
    glDisable(GL_LINE_STIPPLE);
    return 0;
}

std::int32_t CQelSimpSymbol::drawStippledPolyline(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                                  qel::QelColor3f given, bool lighting, bool depthTest,
                                                  std::uint16_t pattern) {
    drawStippledPoints(GL_LINE_STRIP, points, {width, given, lighting, depthTest}, pattern);
    return 0;
}

std::int32_t CQelSimpSymbol::drawStippledLoop(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                              qel::QelColor3f given, bool lighting, bool depthTest,
                                              std::uint16_t pattern) {
    drawStippledPoints(GL_LINE_LOOP, points, {width, given, lighting, depthTest}, pattern);
    return 0;
}

std::int32_t CQelSimpSymbol::drawLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width,
                                      qel::QelColor3f given, bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, static_cast<float>(width), lighting, depthTest);
    glBegin(GL_LINES);
    qel::emitVertex(from);
    qel::emitVertex(to);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawCross(const qel::XPnt3d& center, double halfLength, float width,
                                       qel::QelColor3f given, bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, width, lighting, depthTest);
    glBegin(GL_LINES);
    glVertex3d(center.x - halfLength, center.y, center.z);
    glVertex3d(center.x + halfLength, center.y, center.z);
    glVertex3d(center.x, center.y - halfLength, center.z);
    glVertex3d(center.x, center.y + halfLength, center.z);
    emitLineAlongZ(center, halfLength);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawDiagonalCross(const qel::XPnt3d& center, double halfLength, float width,
                                               qel::QelColor3f given, bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, width, lighting, depthTest);
    const double reach = halfLength * kDiagonal;
    glBegin(GL_LINES);
    glVertex3d(center.x - reach, center.y - reach, center.z);
    glVertex3d(center.x + reach, center.y + reach, center.z);
    glVertex3d(center.x - reach, center.y + reach, center.z);
    glVertex3d(center.x + reach, center.y - reach, center.z);
    emitLineAlongZ(center, halfLength);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawSquare(const qel::XPnt3d& center, double halfSide, double width,
                                        qel::QelColor3f given, bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, static_cast<float>(width), lighting, depthTest);
    glBegin(GL_LINE_LOOP);
    glVertex3d(center.x - halfSide, center.y - halfSide, center.z);
    glVertex3d(center.x + halfSide, center.y - halfSide, center.z);
    glVertex3d(center.x + halfSide, center.y + halfSide, center.z);
    glVertex3d(center.x - halfSide, center.y + halfSide, center.z);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawRect2d(const qel::Enve2d& rect, double width, qel::QelColor3f given,
                                        bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, static_cast<float>(width), lighting, depthTest);
    emitRectLoop(rect, 0.0);
    return 0;
}

std::int32_t CQelSimpSymbol::drawEnvelopeOutline(const qel::Enve3d& box, double width, qel::QelColor3f given,
                                                 bool lighting, bool depthTest) {
    return drawRect2d(box.getEnve2d(), width, given, lighting, depthTest);
}

std::int32_t CQelSimpSymbol::drawBox(const qel::Enve3d& box, double width, qel::QelColor3f given,
                                     bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, static_cast<float>(width), lighting, depthTest);
    const qel::Enve2d rect = box.getEnve2d();
    emitRectLoop(rect, box.zmin);
    emitRectLoop(rect, box.zmax);
    emitUprightEdge(box.xmin, box.ymin, box);
    emitUprightEdge(box.xmax, box.ymin, box);
    emitUprightEdge(box.xmax, box.ymax, box);
    emitUprightEdge(box.xmin, box.ymax, box);
    return 0;
}

std::int32_t CQelSimpSymbol::drawFilledRect2d(const qel::Enve2d& rect, float width, qel::QelColor3f outline,
                                              qel::QelColor3f fill, bool lighting, bool depthTest) {
    const QelTmpGlStateCtrl widthGuard(GL_LINE_WIDTH, width);
    const QelTmpGlStateCtrl lightingGuard(GL_LIGHTING, lighting);
    const QelTmpGlStateCtrl depthTestGuard(GL_DEPTH_TEST, depthTest);
    {
        const QelTmpGlStateCtrl outlineColor(outline);
        emitRectLoop(rect, 0.0);
    }
    const QelTmpGlStateCtrl fillColor(fill);
    glBegin(GL_QUADS);
    glVertex3d(rect.xmin, rect.ymin, 0.0);
    glVertex3d(rect.xmax, rect.ymin, 0.0);
    glVertex3d(rect.xmax, rect.ymax, 0.0);
    glVertex3d(rect.xmin, rect.ymax, 0.0);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawSegmentFrame(const qel::XPnt3d& from, const qel::XPnt3d& to,
                                              double /*unused*/, float width, qel::QelColor3f given,
                                              bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_LINE_WIDTH, width, lighting, depthTest);
    // A vertical segment keeps the zero direction, so the frame shrinks to the segment.
    qel::XPnt3d along = to - from;
    along.z = 0.0;
    along.normalize() *= kDiagonal;
    const qel::XPnt3d across(along.y, -along.x, 0.0);
    glBegin(GL_LINE_LOOP);
    qel::emitVertex(from - along - across);
    qel::emitVertex(from - along + across);
    qel::emitVertex(to + along + across);
    qel::emitVertex(to + along - across);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawCircle(const qel::XPnt3d& center, double radius, float width,
                                        qel::QelColor3f given, bool lighting, bool depthTest) {
    static const UnitCircle unitCircle;

    const StyleGuards guards(given, GL_LINE_WIDTH, width, lighting, depthTest);
    glBegin(GL_LINE_STRIP);
    for (const UnitCircle::Direction& direction : unitCircle) {
        glVertex3f(static_cast<float>(direction.sine * radius + center.x),
                   static_cast<float>(direction.cosine * radius + center.y), 0.0F);
    }
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawPoint(double x, double y, double z, float size, qel::QelColor3f given,
                                       bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_POINT_SIZE, size, lighting, depthTest);
    glBegin(GL_POINTS);
    glVertex3f(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawPointF(float x, float y, float z, float size, qel::QelColor3f given,
                                        bool lighting, bool depthTest) {
    const StyleGuards guards(given, GL_POINT_SIZE, size, lighting, depthTest);
    glBegin(GL_POINTS);
    glVertex3f(x, y, z);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawPoints(const qel::XPnt3d* points, std::int32_t count, double size,
                                        qel::QelColor3f given, bool lighting, bool depthTest) {
    if (lacksMemory(points, count)) {
        return 0;
    }
    const StyleGuards guards(given, GL_POINT_SIZE, static_cast<float>(size), lighting, depthTest);
    glBegin(GL_POINTS);
    for (std::int32_t index = 0; index < count; ++index) {
        qel::emitVertex(points[index]);
    }
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawPointsF(const float* const* points, std::int32_t count, double size,
                                         qel::QelColor3f given, bool lighting, bool depthTest) {
    if (lacksMemory(points, count)) {
        return 0;
    }
    const StyleGuards guards(given, GL_POINT_SIZE, static_cast<float>(size), lighting, depthTest);
    glBegin(GL_POINTS);
    for (std::int32_t index = 0; index < count; ++index) {
        // A missing point is skipped, so that the others show.
        if (const float* const point = points[index]) {
            glVertex3f(point[0], point[1], point[2]);
        }
    }
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawTriangleOutline(const qel::TrianglePoints* triangle) {
    // A triangle with a missing corner is refused like a missing triangle.
    if (triangle == nullptr || triangle->p0 == nullptr || triangle->p1 == nullptr ||
        triangle->p2 == nullptr) {
        return qel::kRefused;
    }
    glBegin(GL_LINES);
    qel::emitVertex(*triangle->p0);
    qel::emitVertex(*triangle->p1);
    qel::emitVertex(*triangle->p1);
    qel::emitVertex(*triangle->p2);
    qel::emitVertex(*triangle->p2);
    qel::emitVertex(*triangle->p0);
    glEnd();
    return 0;
}

std::int32_t CQelSimpSymbol::drawOffsetMark(qel::ref_ptr<qel::QelReferenced> /*object*/,
                                            const qel::XPnt3d& point, double /*unused*/,
                                            const qel::XPnt3d& offset) {
    const qel::XPnt3d end = point + offset;
    const qel::QelColor3f white(1.0F, 1.0F, 1.0F);
    // Twice: existing hosts rely on it.
    drawLine(point, end, 1.0, white, false, false);
    drawLine(point, end, 1.0, white, false, false);
    return 0;
}
