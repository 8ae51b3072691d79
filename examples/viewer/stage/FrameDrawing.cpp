#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "QelGl.h"
#include "QelHostKit.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"
#include "TextPlaces.h"
#include "TextRoom.h"
#include "WrappedText.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kTitleColor{0.95F, 0.96F, 0.98F};
constexpr qel::QelColor3f kSummaryColor{0.62F, 0.68F, 0.76F};
constexpr qel::QelColor3f kLabelColor{0.98F, 0.98F, 0.94F};

/// The display lights the scene with a bluish light from the eye. A warm one from above makes the two
/// together white where a surface faces the viewer, so that colours look like themselves. Surfaces are matt.
void placeKeyLight(IQelGL& gl) {
    constexpr std::array<float, 4> kDiffuse{0.84F, 0.46F, 0.22F, 1.0F};
    constexpr std::array<float, 4> kGloss{0.12F, 0.12F, 0.12F, 1.0F};
    constexpr std::array<float, 4> kTowardsLight{-0.32F, 0.42F, 0.85F, 0.0F};
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glLightfv(GL_LIGHT0, GL_POSITION, kTowardsLight.data());
    glPopMatrix();
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kDiffuse.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, kGloss.data());
    gl.enable(GL_LIGHT0);
}

}  // namespace

void Stage::drawFrame() {
    display->makeCurrent();
    qel::fitClippingPlanes(camera(), content.extent);
    // The display places its lights in the coordinates that OpenGL holds: the camera must be loaded before.
    display->updateView();
    display->beginFrame(0);
    display->beginDraw();
    for (const bool isLeftEye : {true, false}) {
        if (isLeftEye || isStereo()) {
            camera().updateView();
            display->selectStereoBuffer(isLeftEye);
            drawContent();
        }
    }
    camera().updateView();
    display->endDraw();
}

void Stage::drawContent() {
    placeKeyLight(*display->getGL());
    display->getGL()->enable(GL_DEPTH_TEST);
    display->getGL()->disable(GL_LIGHTING);
    drawScene();
    findPointUnderMouse();
    drawTexts();
    drawLegend();
    drawMarks();
    drawNotice();
    drawPanel();
    drawAxes();
}

void Stage::drawTexts() {
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    drawLabels();
    drawHeading();
    drawStrip();
}

void Stage::drawLabels() {
    constexpr double kBeside = 7.0;
    // Places are asked for while the camera is loaded; text is drawn in pixels.
    std::vector<qel::XPnt3d> places;
    for (const Label& label : content.labels) {
        const qel::XPnt3d place = camera().projectPnt(label.at);
        places.push_back(isHidden(label.at, place) ? qel::XPnt3d::invalid() : inLayout(place));
    }
    beginLayout();
    const QelTmpGlStateCtrl color(kLabelColor);
    TextRoom room;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::string& text = content.labels[i].text;
        if (places[i].isValid() && room.take(places[i].x, places[i].y, text)) {
            printAt(places[i].x + kBeside, places[i].y + kBeside * 0.5, text);
        }
    }
}

std::vector<Stage::HeadingLine> Stage::heading() {
    // The tripod stands at the right.
    constexpr double kTripodWidth = 60.0;
    const double room = layoutWidth() - kMargin - kTripodWidth;
    const auto fits = [&](const std::string& line) {
        return font.widthOf(line, letterHeight(kLetterHeight)) <= room * unit();
    };
    std::vector<HeadingLine> lines;
    if (!notes.hasHeading) {
        return lines;
    }
    for (const auto& [text, color] :
         {std::pair(&content.title, kTitleColor), std::pair(&content.summary, kSummaryColor)}) {
        for (std::string& line : wrappedText(*text, fits)) {
            lines.push_back({std::move(line), color});
        }
    }
    return lines;
}

void Stage::drawHeading() {
    double y = layoutHeight() - kMargin - kLineHeight * 0.5;
    for (const HeadingLine& line : heading()) {
        const QelTmpGlStateCtrl color(line.color);
        printAt(kMargin, y, line.text);
        y -= kLineHeight;
    }
}

void Stage::beginLayout() {
    // Spans the view, in captures of any size too.
    display->setOrtho2D();
    glScaled(content.scale, content.scale, 1.0);
}

int Stage::letterHeight(double units) const {
    return static_cast<int>(std::lround(units * unit()));
}

void Stage::printAt(double x, double y, const std::string& text, double letters) {
    // A position inside the view is always valid; the text may begin outside.
    glRasterPos2d(1.0, 1.0);
    const auto pixels = [this](double units) {
        return static_cast<int>(std::lround((units - 1.0) * unit()));
    };
    font.print(text, letterHeight(letters), pixels(x), pixels(y));
}

bool Stage::isHidden(const qel::XPnt3d& point, const qel::XPnt3d& place) {
    if (place.z <= 0.0 || place.z >= 1.0 ||
        (content.section.plane && content.section.plane->beyond(point) > 0.0)) {
        return true;
    }
    const qel::XPnt3d inFront = camera().getModelPntAt(place.x, place.y);
    if (!inFront.isValid()) {
        return false;
    }
    // Labels stand close to what they name, and depth is coarse far from the eye.
    const double tolerance = 0.02 * content.extent.getDiagonal();
    const qel::XPnt3d eye = camera().getEye();
    return qel::dist(eye, inFront) + tolerance < qel::dist(eye, point);
}

}  // namespace qelview
