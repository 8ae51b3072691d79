#include "Pictures.h"
#include "QelGl.h"

namespace gallery {

namespace {

/// Something to draw over.
void drawModel(Easel& easel) {
    easel.symbol.drawBox({-6, 6, -4, 4, 0, 7}, 2.0, {0.4F, 0.65F, 1.0F}, false, true);
}

void axes(Easel& easel) {
    drawModel(easel);
    easel.camera.drawAxes();  // finishFrame draws it, unless setShowOverlay2(false)
}

void longAxes(Easel& easel) {
    drawModel(easel);
    easel.camera.setOverlayOption(true);
    easel.camera.drawAxes();
}

void trackBallRings(Easel& easel) {
    drawModel(easel);
    easel.camera.onButtonDown(qel::DragRotate, 130, 120);
    easel.camera.onMouseMove(190, 135);
    easel.display.beginFrame(0);  // the camera has turned: the model again
    drawModel(easel);
    easel.camera.drawTrackBall();  // finishFrame draws it during a rotation, unless setShowOverlay1(false)
    easel.camera.onButtonUp();
}

void drawFrame(Easel& easel) {
    drawModel(easel);
    easel.camera.drawFrame(6, 4, 7, {1, 1, 0}, {-1, 1, 0}, 90.0F, false);
}

void drawLabel(Easel& easel) {
    drawModel(easel);
    const qel::XPnt3d corner(6, -4, 7);
    easel.symbol.drawPoint(corner.x, corner.y, corner.z, 6.0F, {1.0F, 0.85F, 0.35F}, false, false);
    glColor3f(1.0F, 0.85F, 0.35F);
    easel.camera.drawLabel(corner.x, corner.y, corner.z, 8, 4, "corner %d", 3);
}

void printText(Easel& easel) {
    easel.display.setOrtho2D();  // pixels, y upwards
    glColor3f(0.8F, 0.9F, 1.0F);
    glRasterPos2f(20.0F, 200.0F);
    easel.display.printText("Scale 1:%d", 500);
    glRasterPos2f(20.0F, 20.0F);
    easel.display.printText("lower-left corner");
    easel.display.updateView();
    drawModel(easel);
}

void rubberBand(Easel& easel) {
    drawModel(easel);
    easel.display.endDraw();
    easel.display.finishFrame();   // keeps the picture
    easel.display.restoreCache();  // brings it back, in pixel coordinates
    easel.symbol.drawRect2d({90, 60, 250, 190}, 1.0, {1.0F, 0.85F, 0.35F}, false, false);
}

void endFrameCross(Easel& easel) {
    easel.camera.zoomToExtent({-14, 14, -14, 14, 0, 5}, false);
    easel.display.beginFrame(0);
    drawModel(easel);
    // What endFrame draws before it swaps: the mark of a frame that was ended in the short way.
    const qel::ref_ptr<IQelSymbol> shared = qel::getPubSymbol();
    shared->drawCross({10, 10, 0}, 2.0, 2.0F, {1.0F, 0.0F, 0.0F}, false, false);
}

constexpr Picture kPictures[] = {
    {"axes", "The axes tripod turns with the model.", &axes},
    {"longAxes", "With the overlay option, long axes through the model's origin too.", &longAxes},
    {"trackBallRings", "The rings of a rotation, with the radius of its start and of its end.",
     &trackBallRings},
    {"drawFrame", "A labelled frame at a model point.", &drawFrame},
    {"drawLabel", "Text beside a model point.", &drawLabel},
    {"printText", "Text at a place in pixels.", &printText},
    {"rubberBand", "Temporary graphics over the kept frame.", &rubberBand},
    {"endFrameCross", "The red cross of `endFrame`.", &endFrameCross},
};

}  // namespace

Pictures overlays() {
    return kPictures;
}

}  // namespace gallery
