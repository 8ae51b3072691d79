#include <algorithm>

#include "HeightLegend.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"
#include "TextPlaces.h"

/// What meshes and clouds are coloured by, and the legend of the heights.

namespace qelview {

namespace {

constexpr qel::QelColor3f kTextColor{0.95F, 0.96F, 0.98F};
constexpr double kBarWidth = 16.0;
constexpr double kTallestBar = 260.0;

void drawRamp(double left, double bottom, double height) {
    constexpr int kBands = 64;
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    const QelTmpGlStateCtrl color(colorOfHeight(0.0));
    glBegin(GL_QUAD_STRIP);
    for (int band = 0; band <= kBands; ++band) {
        const double share = static_cast<double>(band) / kBands;
        const qel::QelColor3f shade = colorOfHeight(share);
        glColor3f(shade.r, shade.g, shade.b);
        glVertex2d(left, bottom + share * height);
        glVertex2d(left + kBarWidth, bottom + share * height);
    }
    glEnd();
}

}  // namespace

bool Stage::setColouring(Colouring wanted) {
    if (!content.heightRange.isValid() || content.heightRange.up != content.up) {
        content.heightRange = content.drawn.heights(content.up);
    }
    if (content.heightRange.isValid()) {
        content.drawn.setColouring(wanted, content.heightRange);
    }
    return content.heightRange.isValid();
}

void Stage::drawLegend() {
    if (content.drawn.colouring() != Colouring::Height) {
        return;
    }
    constexpr double kBesideBar = 8.0;
    constexpr double kHalfLetter = 6.0;
    const double bottom = kStripHeight + 2.0 * kLineHeight + kMargin;
    const double room = layoutHeight() - bottom - kMargin - 5.0 * kLineHeight;
    const double height = std::clamp(room, kLineHeight, kTallestBar);
    beginLayout();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    drawRamp(kMargin, bottom, height);
    const QelTmpGlStateCtrl color(kTextColor);
    const qel::XPnt3d origin = upright(content.origin, content.up);
    double nextFree = 0.0;
    for (const LegendTick& tick : legendTicks(content.heightRange, origin.z)) {
        const double y = bottom + tick.share * height;
        // A low window has no room for all of them.
        if (y >= nextFree) {
            printAt(kMargin + kBarWidth + kBesideBar, y - kHalfLetter, tick.text);
            nextFree = y + kLineHeight;
        }
    }
}

}  // namespace qelview
