#include "CQelScreenDisplay.h"
#include "QelDisplay64t.h"

namespace {

/// The marker that distinguishes a frame ended by `endFrame` from one ended by `finishFrame`.
constexpr double kMarkerPosition = 10.0;
constexpr double kMarkerHalfLength = 2.0;
constexpr float kMarkerWidth = 2.0F;

void drawMarker() {
    const qel::ref_ptr<IQelSymbol> symbol = qel::getPubSymbol();
    if (symbol) {
        symbol->drawCross({kMarkerPosition, kMarkerPosition, 0.0}, kMarkerHalfLength, kMarkerWidth,
                          qel::QelColor3f(1.0F, 0.0F, 0.0F), false, false);
    }
}

}  // namespace

std::int32_t CQelScreenDisplay::makeCurrent() {
    if (!viewIsCaptures) {
        binding().makeCurrent();
    } else if (capture.isDrawing()) {
        capture.makeCurrent();
    } else {
        returnToWindow();
    }
    return 0;
}

std::int32_t CQelScreenDisplay::swapBuffers() {
    // The window keeps showing its own frame while a capture is drawn.
    if (!capture.isDrawing()) {
        SwapBuffers(qel::handleFromNumber<HDC>(deviceContext));
    }
    return 0;
}

std::int32_t CQelScreenDisplay::present() {
    return swapBuffers();
}

std::int32_t CQelScreenDisplay::presentView() {
    return swapBuffers();
}

void CQelScreenDisplay::clearToBackColor() {
    glClearColor(backColor.r, backColor.g, backColor.b, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

std::int32_t CQelScreenDisplay::beginFrame(std::int32_t mode) {
    makeCurrent();
    trackBall->isBusy();
    frameMode = mode;
    if (mode != 0) {
        swapBuffers();
    } else {
        glDrawBuffer(GL_BACK);
        clearToBackColor();
    }
    setupLights();
    // Not a single value on every driver: there is room for what one may write. It may leave an error flag,
    // which the next bracket clears.
    GLint ignored[16] = {};
    glGetIntegerv(GL_LIGHT0, ignored);
    return 0;
}

std::int32_t CQelScreenDisplay::beginDraw() {
    makeCurrent();
    if (drawDepth == 0) {
        windowContext.selectDrawBuffer(false);
    }
    ++drawDepth;
    return 1;
}

std::int32_t CQelScreenDisplay::endDraw() {
    --drawDepth;
    if (drawDepth == 0) {
        windowContext.selectDrawBuffer(false);
    }
    return drawDepth;
}

std::int32_t CQelScreenDisplay::endFrame() {
    --drawDepth;
    if (drawDepth == 0 && !capture.isDrawing()) {
        glDrawBuffer(GL_BACK);
        glGetError();
        drawMarker();
        swapBuffers();
    }
    trackBall->updateView();
    return drawDepth;
}

std::int32_t CQelScreenDisplay::setOrtho2D() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(0.0, static_cast<double>(trackBall->getWidth()), 0.0,
               static_cast<double>(trackBall->getHeight()));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    return 0;
}

std::int32_t CQelScreenDisplay::updateView() {
    trackBall->updateView();
    return 0;
}

// The left eye keeps the camera: the distance between the eyes applies to the right eye only.
std::int32_t CQelScreenDisplay::selectStereoBuffer(bool left) {
    if (!stereo) {
        return 0;
    }
    if (left) {
        glDrawBuffer(GL_BACK_LEFT);
    } else {
        glDrawBuffer(GL_BACK_RIGHT);
        trackBall->applyStereoModelview(static_cast<double>(stereoSeparation));
    }
    return 0;
}
