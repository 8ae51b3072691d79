#include <array>
#include <cmath>
#include <numbers>

#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"

/// The tripod and the long axes. The camera draws them with lines and letters of one size: right on screens of
/// 96 dots per inch, too fine in pictures of more.

namespace qelview {

namespace {

struct Axis {
    const char* name;
    qel::XPnt3d direction;
    qel::QelColor3f color;
};

}  // namespace

void Stage::drawAxes() {
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    camera().updateView();
    // The mouse does not find them.
    glDepthMask(GL_FALSE);
    if (unit() == 1.0) {
        camera().drawAxes();
    } else {
        drawTripod();
    }
    glDepthMask(GL_TRUE);
}

void Stage::drawTripod() {
    // As the camera places it.
    constexpr double kInset = 40.0;
    constexpr double kShareInPerspective = 0.04;
    constexpr double kShareInOrtho = 0.05;
    const std::array<Axis, 3> axes{{{"X", {1.0, 0.0, 0.0}, {1.0F, 0.0F, 0.0F}},
                                    {"Y", {0.0, 1.0, 0.0}, {0.0F, 1.0F, 0.0F}},
                                    {"Z", {0.0, 0.0, 1.0}, {0.0F, 0.0F, 1.0F}}}};
    const bool isOrtho = camera().isOrtho();
    const double depth = isOrtho ? 0.5 : camera().projectPnt(camera().getTarget()).z;
    const qel::XPnt3d anchor =
        camera().unProject((layoutWidth() - kInset) * unit(), (layoutHeight() - kInset) * unit(), depth);
    const double halfAngle = camera().getFieldOfView() * std::numbers::pi / 360.0;
    const double reach = isOrtho
                             ? 0.5 * static_cast<double>(camera().getWidth() / camera().getPixelsPerUnit())
                             : qel::dist(anchor, camera().getEye()) * std::tan(halfAngle);
    const double length = reach * (isOrtho ? kShareInOrtho : kShareInPerspective);
    for (const Axis& axis : axes) {
        const qel::XPnt3d tip = anchor + axis.direction * length;
        const qel::XPnt3d place = inLayout(camera().projectPnt(tip));
        symbol->drawLine(anchor, tip, 2.0 * unit(), axis.color, false, false);
        if (camera().getOverlayOption()) {
            symbol->drawLine({}, axis.direction * reach, unit(), axis.color, false, true);
        }
        beginLayout();
        const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
        const QelTmpGlStateCtrl color(axis.color);
        printAt(place.x, place.y, axis.name);
        camera().updateView();
    }
}

}  // namespace qelview
