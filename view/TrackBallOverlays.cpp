#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "XPnt3f.h"
#include "detail/EmitVertex.h"

namespace {

constexpr int kSegmentsOfARing = 80;
constexpr float kRadiansPerSegment = 0.07853982F;
constexpr std::size_t kLongestLabel = 256;

/// Cosine and sine of each point of a ring, the full turn included.
class RingAngles {
  public:
    struct Angle {
        float cosine;
        float sine;
    };

    RingAngles() {
        for (std::size_t segment = 0; segment < angles.size(); ++segment) {
            const float radians = static_cast<float>(segment) * kRadiansPerSegment;
            angles[segment] = {std::cos(radians), std::sin(radians)};
        }
    }

    [[nodiscard]] const Angle& operator[](int segment) const {
        return angles[static_cast<std::size_t>(segment)];
    }

  private:
    std::array<Angle, kSegmentsOfARing + 1> angles{};
};

const RingAngles& ringAngles() {
    static const RingAngles angles;
    return angles;
}

/// Points of a circle, computed in single precision around a centre in double precision.
struct Ring {
    const RingAngles& angles;
    qel::XPnt3d center;
    qel::XPnt3f first;
    qel::XPnt3f second;

    Ring(const qel::XPnt3d& middle, const qel::XPnt3d& firstAxis, const qel::XPnt3d& secondAxis,
         double radius)
        : angles(ringAngles()), center(middle), first(firstAxis * radius), second(secondAxis * radius) {}

    [[nodiscard]] qel::XPnt3d pointAt(int segment) const {
        return center + qel::XPnt3d(first * angles[segment].cosine + second * angles[segment].sine);
    }
};

}  // namespace

std::int32_t CQelTrackBall::drawTrackBall() {
    if (drag.button != qel::DragRotate || ownerDetached) {
        return 1;
    }
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    drawRings(sphereRadius);
    const double radius = static_cast<double>(sphereRadius);
    glLineWidth(1.0F);
    glBegin(GL_LINES);
    for (const qel::XPnt3d& tip : {drag.sphereStartView, drag.sphereCurrentView}) {
        glColor3f(1.0F, 1.0F, 1.0F);
        qel::emitVertex(rotationCenter);
        qel::emitVertex(tip * radius + rotationCenter);
    }
    glEnd();
    return 1;
}

void CQelTrackBall::drawRings(float radius) {
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const double r = static_cast<double>(radius);
    const qel::XPnt3d towardsEye = eye - target;
    qel::XPnt3d right = qel::cross(towardsEye, up);
    right.normalize();
    glLineWidth(1.0F);
    glColor3f(1.0F, 1.0F, 1.0F);
    const Ring facing(rotationCenter, right, up, r);
    glBegin(GL_LINES);
    qel::XPnt3d previous = rotationCenter + right * r;
    for (int segment = 1; segment <= kSegmentsOfARing; ++segment) {
        const qel::XPnt3d next = facing.pointAt(segment);
        qel::emitVertex(previous);
        qel::emitVertex(next);
        previous = next;
    }
    glEnd();
    qel::XPnt3d across =
        qel::cross(drag.sphereStartView, qel::cross(drag.sphereStartView, drag.sphereCurrentView));
    across.normalize();
    const Ring dragRing(rotationCenter, drag.sphereStartView, across, r);
    glBegin(GL_LINES);
    previous = rotationCenter + drag.sphereStartView * r;
    for (int segment = 1; segment <= kSegmentsOfARing; ++segment) {
        const qel::XPnt3d next = dragRing.pointAt(segment);
        // Solid on the eye's side of the centre, dashed behind it.
        if (qel::dot(previous - rotationCenter, towardsEye) >= 0.0 || segment % 2 == 0) {
            qel::emitVertex(previous);
            qel::emitVertex(next);
        }
        previous = next;
    }
    glEnd();
}

void CQelTrackBall::printText(const char* text) {
    if (display != nullptr) {
        display->printText("%s", text);
    }
}

std::int32_t CQelTrackBall::drawLabel(double x, double y, double z, double dx, double dy, const char* format,
                                      ...) {
    if (ownerDetached || !qel::areFinite(x, y, z, dx, dy)) {
        return -1;
    }
    const qel::XPnt3d window = project(x, y, z);
    if (!(window.z >= 0.0 && window.z <= 1.0)) {
        return -1;
    }
    // The raster position passes the projection below, which spans the view, and the viewport.
    const Place start = inView(window.x + dx, window.y + dy);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(0.0, static_cast<double>(viewWidth), 0.0, static_cast<double>(viewHeight));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    if (format == nullptr) {
        return -1;
    }
    char text[kLongestLabel] = {};
    va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    glRasterPos2f(static_cast<float>(start.x), static_cast<float>(start.y));
    printText(text);
    updateView();
    return 0;
}
