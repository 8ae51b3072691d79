#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "Commands.h"
#include "CoordinateText.h"
#include "Enve2d.h"
#include "FramePixels.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"
#include "TextPlaces.h"
#include "ViewName.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kPanelTextColor{0.62F, 0.68F, 0.76F};
constexpr qel::QelColor3f kNoticeColor{1.0F, 0.85F, 0.25F};
constexpr qel::QelColor3f kPlateColor{0.07F, 0.085F, 0.105F};
constexpr qel::QelColor3f kPlateEdgeColor{0.30F, 0.34F, 0.40F};
constexpr qel::QelColor3f kRectangleColor{1.0F, 0.85F, 0.25F};
constexpr std::uint16_t kFrameDashes = 0xF0F0;

/// Below a line of text, so that descenders stay on the plate.
constexpr double kUnderLine = 8.0;

}  // namespace

void Stage::show() {
    drawFrame();
    display->finishFrame();
}

PixelImage Stage::picture() {
    // The buffer swap leaves nothing to read. The copy of the frame has all but the overlays that finishing draws.
    show();
    display->makeCurrent();
    display->restoreCache();
    camera().updateView();
    camera().drawTrackBall();
    display->endDraw();
    return readBack();
}

void Stage::showOverlay(const std::optional<PixelBox>& rectangle) {
    drawOverlay(rectangle);
    display->present();
}

PixelImage Stage::overlayPicture(const std::optional<PixelBox>& rectangle) {
    drawOverlay(rectangle);
    return readBack();
}

void Stage::drawOverlay(const std::optional<PixelBox>& rectangle) {
    display->makeCurrent();
    display->restoreCache();
    camera().updateView();
    findPointUnderMouse();
    beginLayout();
    drawStrip();
    if (rectangle) {
        drawRectangle(*rectangle);
    }
    camera().updateView();
    display->endDraw();
}

void Stage::showImage(const PixelImage& image) {
    display->beginFrame(0);
    display->beginDraw();
    display->setOrtho2D();
    drawPixels(image);
    display->endDraw();
    display->present();
}

PixelImage Stage::readBack() {
    glReadBuffer(GL_BACK);
    return readPixels(static_cast<int>(camera().getWidth()), static_cast<int>(camera().getHeight()));
}

qel::XPnt3d Stage::pointAt(const PixelPlace& place) {
    // A driver may forget the depth with the exchange of the buffers; the kept copy has it.
    display->makeCurrent();
    display->restoreCache();
    display->endDraw();
    camera().updateView();
    return drawnAt(place);
}

qel::XPnt3d Stage::drawnAt(const PixelPlace& place) {
    const double x = place.x + 0.5;
    const double y = place.y + 0.5;
    const std::optional<qel::XPnt3d> ofACloud = content.drawn.cloudPointAt(pixelViewOf(camera()), kept, x, y);
    return ofACloud ? *ofACloud : camera().getModelPntAt(x, y);
}

std::string Stage::textOf(const qel::XPnt3d& point) const {
    return coordinateText(point, content.origin, content.extent.getDiagonal());
}

void Stage::findPointUnderMouse() {
    const bool isAsked = notes.hasStrip && notes.mouse.has_value();
    underMouse = isAsked ? drawnAt(*notes.mouse) : qel::XPnt3d::invalid();
}

void Stage::drawStrip() {
    std::string text = viewName(upright(camera().getEye() - camera().getTarget(), content.up)) +
                       (camera().isOrtho() ? ", orthographic" : ", perspective") +
                       (content.up == UpAxis::Y ? ", Y up" : "");
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    if (notes.hasStrip) {
        // Opaque, so that it can be drawn anew over a frame that has it already.
        drawPlate(-1.0, -1.0, layoutWidth() + 1.0, kStripHeight);
        if (notes.frameMilliseconds) {
            // Tenths are enough to tell a smooth view from a slow one.
            text += "   " + fixed(*notes.frameMilliseconds, 1) + " ms";
        }
        if (underMouse.isValid()) {
            text += "   " + textOf(underMouse);
        }
    }
    const QelTmpGlStateCtrl color(kPanelTextColor);
    printAt(kMargin, kMargin - (notes.hasStrip ? kUnderLine * 0.5 : 0.0), text);
}

void Stage::drawNotice() {
    if (notes.notice.empty()) {
        return;
    }
    beginLayout();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl color(kNoticeColor);
    printAt(kMargin, kMargin + kStripHeight, notes.notice);
}

void Stage::drawPanel() {
    constexpr double kInputColumn = 20.0;
    constexpr double kMeaningColumn = 160.0;
    constexpr double kWidthOfHelp = 600.0;
    constexpr double kSmallestLine = 9.0;
    constexpr double kShareOfLetters = 0.85;
    const bool isHelp = notes.panel == Panel::Help;
    const std::size_t lines = isHelp ? kHelpLines.size() : content.warnings.size();
    if (notes.panel == Panel::None || lines == 0) {
        return;
    }
    beginLayout();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const double top = layoutHeight() - kMargin - 3.0 * kLineHeight;
    const double right = isHelp ? kMargin + kWidthOfHelp : layoutWidth() - kMargin;
    // All of it, in a low window too.
    const double lineHeight = std::clamp((top - kStripHeight - kUnderLine) / static_cast<double>(lines + 1),
                                         kSmallestLine, kLineHeight);
    const double letters = std::min(kLetterHeight, kShareOfLetters * lineHeight);
    drawPlate(kMargin, top - static_cast<double>(lines + 1) * lineHeight, right, top);
    const QelTmpGlStateCtrl color(kPanelTextColor);
    double y = top - lineHeight - kUnderLine * 0.5;
    for (std::size_t i = 0; i < lines; ++i) {
        if (isHelp) {
            printAt(kMargin + kInputColumn, y, std::string(kHelpLines.at(i).input), letters);
            printAt(kMargin + kMeaningColumn, y, std::string(kHelpLines.at(i).meaning), letters);
        } else {
            printAt(kMargin + kInputColumn, y, content.warnings[i], letters);
        }
        y -= lineHeight;
    }
}

void Stage::drawPlate(double left, double bottom, double right, double top) {
    symbol->drawFilledRect2d({left, bottom, right, top}, 1.0F, kPlateEdgeColor, kPlateColor, false, false);
}

void Stage::drawRectangle(const PixelBox& rectangle) {
    const auto [from, to] = rectangle;
    const std::array<PixelPlace, 5> corners{{from, {to.x, from.y}, to, {from.x, to.y}, from}};
    const auto place = [this](const PixelPlace& at) { return inLayout({at.x + 0.5, at.y + 0.5, 0.0}); };
    for (std::size_t i = 1; i < corners.size(); ++i) {
        symbol->drawStippledLine(place(corners[i - 1]), place(corners[i]), 1.0, kRectangleColor, false, false,
                                 kFrameDashes);
    }
}

}  // namespace qelview
