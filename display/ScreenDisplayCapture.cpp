#include <cmath>

#include "CQelGL.h"
#include "CQelScreenDisplay.h"
#include "CQelTrackBall.h"
#include "Enve2d.h"
#include "GlStateCopy.h"
#include "QelTruncate.h"

namespace {

/// An extent without a size would scale the view to infinity.
bool canBeMapped(const qel::Enve2d* extent) {
    return extent != nullptr && std::isfinite(extent->xmin) && std::isfinite(extent->ymin) &&
           std::isfinite(extent->width()) && std::isfinite(extent->hight()) && extent->width() != 0.0 &&
           extent->hight() != 0.0;
}

}  // namespace

std::int32_t CQelScreenDisplay::beginCapture(std::uint32_t width, std::uint32_t height, qel::Enve2d* extent,
                                             QString fileName) {
    if (!canBeMapped(extent) || !ScreenCapture::fitsFile(width, height)) {
        return -1;
    }
    contextOfHost.rememberUnless(capture.renderContext());
    endCapture();
    makeCurrent();
    GlStateCopy stateOfWindow;
    stateOfWindow.take();
    if (!capture.begin(qel::toHandle<HDC>(deviceContext), width, height, fileName)) {
        makeCurrent();
        return -1;
    }
    viewIsCaptures = true;
    makeCurrent();
    // The host draws with the state it knows from its window.
    stateOfWindow.put();
    const double viewHeightPx = static_cast<double>(trackBall->getHeight());
    const double viewWidthPx = static_cast<double>(trackBall->getWidth());
    GLint ignored[4] = {};
    glGetIntegerv(GL_VIEWPORT, ignored);
    const auto mapX = [&](double pixels) { return qel::truncateToInt(pixels / extent->width() * width); };
    const auto mapY = [&](double pixels) { return qel::truncateToInt(pixels / extent->hight() * height); };
    trackBall->setViewport(mapX(0.0 - extent->xmin), mapY(0.0 - extent->ymin), mapX(viewWidthPx),
                           mapY(viewHeightPx));
    clearToBackColor();
    trackBall->updateView();
    setupLights();
    return 0;
}

std::int32_t CQelScreenDisplay::saveBitmap() {
    if (!capture.isActive() || !capture.write()) {
        return 0;
    }
    endCapture();
    return 0;
}

void CQelScreenDisplay::endCapture() {
    if (!capture.isActive()) {
        return;
    }
    capture.releaseBitmap();
    capture.releaseContext();
    makeCurrent();
}

// Also after a save without a file: the pixels are read, and nothing more can be drawn into the bitmap.
void CQelScreenDisplay::returnToWindow() {
    viewIsCaptures = false;
    capture.finishDrawing();
    makeCurrent();
    trackBall->restoreViewport();
    trackBall->setDisplay(this);
    // The camera may have moved meanwhile, and its cached matrices are those of the capture.
    trackBall->updateView();
}
