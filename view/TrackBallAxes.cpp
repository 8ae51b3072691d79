#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "detail/EmitVertex.h"

namespace {

/// Inset of the tripod from the upper-right corner, in pixels.
constexpr float kTripodInset = 40.0F;
constexpr double kTripodShareInOrtho = 0.05;
constexpr double kTripodShareInPerspective = 0.04;
/// The unit of a local frame's `size`: 1/400 of half the view's height.
constexpr double kFrameUnit = 0.0025;
/// Beyond full intensity; OpenGL clamps it.
constexpr float kBeyondFull = 255.0F;

void line(const qel::XPnt3d& from, const qel::XPnt3d& to) {
    qel::emitVertex(from);
    qel::emitVertex(to);
}

void rasterAt(const qel::XPnt3d& point) {
    glRasterPos3f(static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z));
}

}  // namespace

void CQelTrackBall::drawDirections(const qel::XPnt3d& origin, const qel::XPnt3d& x, const qel::XPnt3d& y,
                                   const qel::XPnt3d& z) {
    glBegin(GL_LINES);
    glColor3f(0.0F, 0.0F, 1.0F);
    line(origin, origin + z);
    glColor3f(0.0F, 1.0F, 0.0F);
    line(origin, origin + y);
    glColor3f(1.0F, 0.0F, 0.0F);
    line(origin, origin + x);
    glEnd();
}

void CQelTrackBall::drawDirectionLetters(const qel::XPnt3d& xTip, const qel::XPnt3d& yTip,
                                         const qel::XPnt3d& zTip) {
    glColor3f(0.0F, 0.0F, kBeyondFull);
    rasterAt(zTip);
    printText("Z");
    glColor3f(0.0F, kBeyondFull, 0.0F);
    rasterAt(yTip);
    printText("Y");
    glColor3f(kBeyondFull, 0.0F, 0.0F);
    rasterAt(xTip);
    printText("X");
}

void CQelTrackBall::drawLongAxes(double length) {
    if (overlayOption) {
        glLineWidth(1.0F);
        drawDirections({}, {length, 0.0, 0.0}, {0.0, length, 0.0}, {0.0, 0.0, length});
    }
}

std::int32_t CQelTrackBall::drawAxes() {
    if (ownerDetached) {
        return 0;
    }
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl color(qel::QelColor3f(1.0F, 1.0F, 1.0F));
    const double anchorX = static_cast<double>(viewWidth - kTripodInset);
    const double anchorY = static_cast<double>(viewHeight - kTripodInset);
    const double depth = ortho ? 0.5 : projectPnt(target).z;
    const qel::XPnt3d anchor = unProjectOfView(anchorX, anchorY, depth);
    const double reach = ortho ? orthoBox.right : qel::dist(anchor, eye) * tanHalfFieldOfView();
    const double length = reach * (ortho ? kTripodShareInOrtho : kTripodShareInPerspective);
    glLineWidth(2.0F);
    glTranslated(anchor.x, anchor.y, anchor.z);
    // Only here: in perspective the cached matrix stays that of the view, which updateView reloads below.
    if (ortho) {
        held.modelviewDirty = true;
    }
    const qel::XPnt3d xTip(length, 0.0, 0.0);
    const qel::XPnt3d yTip(0.0, length, 0.0);
    const qel::XPnt3d zTip(0.0, 0.0, length);
    drawDirections({}, xTip, yTip, zTip);
    drawDirectionLetters(xTip, yTip, zTip);
    updateView();
    glEnable(GL_DEPTH_TEST);
    drawLongAxes(reach);
    return 0;
}

std::int32_t CQelTrackBall::drawFrame(double x, double y, double z, const qel::XPnt3d& xDir,
                                      const qel::XPnt3d& yDir, float size, bool depthTest) {
    if (ownerDetached || !qel::areFinite(x, y, z, size) || !qel::isFinite(xDir) || !qel::isFinite(yDir)) {
        return 0;
    }
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl depth(GL_DEPTH_TEST, depthTest);
    const QelTmpGlStateCtrl color(qel::QelColor3f(1.0F, 1.0F, 1.0F));
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    const qel::XPnt3d point(x, y, z);
    qel::XPnt3d xAxis = xDir;
    xAxis.normalize();
    qel::XPnt3d yAxis = yDir;
    yAxis.normalize();
    qel::XPnt3d zAxis = qel::cross(xDir, yDir);
    zAxis.normalize();
    const double reach = ortho ? orthoBox.right : qel::dist(point, eye) * tanHalfFieldOfView();
    const double length =
        ortho ? reach * kTripodShareInOrtho : reach * kFrameUnit * static_cast<double>(size);
    glLineWidth(2.0F);
    xAxis *= length;
    yAxis *= length;
    zAxis *= length;
    drawDirections(point, xAxis, yAxis, zAxis);
    drawDirectionLetters(point + xAxis, point + yAxis, point + zAxis);
    updateView();
    drawLongAxes(reach);
    return 0;
}
