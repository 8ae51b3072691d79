#include <cmath>

#include "CQelScreenDisplay.h"
#include "Enve2d.h"
#include "GlStateCopy.h"
#include "detail/QelTruncate.h"

namespace {

/// An extent without a size would scale the view to infinity.
bool hasSize(const qel::Enve2d* extent) {
    return extent != nullptr && extent->isValid() && std::isfinite(extent->width()) &&
           std::isfinite(extent->hight()) && extent->width() > 0.0 && extent->hight() > 0.0;
}

/// Where a bitmap that holds an extent of the view shows that view.
struct Viewport {
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height;

    Viewport(const qel::Enve2d& extent, std::uint32_t bitmapWidth, std::uint32_t bitmapHeight,
             double viewWidth, double viewHeight)
        : x(qel::truncateToInt((0.0 - extent.xmin) / extent.width() * bitmapWidth)),
          y(qel::truncateToInt((0.0 - extent.ymin) / extent.hight() * bitmapHeight)),
          width(qel::truncateToInt(viewWidth / extent.width() * bitmapWidth)),
          height(qel::truncateToInt(viewHeight / extent.hight() * bitmapHeight)) {}

    /// INT32_MIN stands for every value that does not fit.
    [[nodiscard]] bool fitsIntegers() const noexcept {
        return x != INT32_MIN && y != INT32_MIN && width != INT32_MIN && height != INT32_MIN;
    }
};

}  // namespace

std::int32_t CQelScreenDisplay::beginCapture(std::uint32_t width, std::uint32_t height, qel::Enve2d* extent,
                                             QString fileName) {
    if (!hasSize(extent) || !ScreenCapture::fitsFile(width, height)) {
        return -1;
    }
    const Viewport viewport(*extent, width, height, static_cast<double>(trackBall->getWidth()),
                            static_cast<double>(trackBall->getHeight()));
    if (!viewport.fitsIntegers()) {
        return -1;
    }
    const ContextBinding before = ContextBinding::current();
    makeCurrent();
    if (!ScreenCapture::fitsDriver(width, height)) {
        before.makeCurrent();
        return -1;
    }
    previousContext.rememberUnless(before, capture.renderContext());
    endCapture();
    GlStateCopy windowState;
    windowState.take();
    viewIsCaptures = true;
    if (!capture.begin(qel::handleFromNumber<HDC>(deviceContext), width, height, fileName)) {
        viewIsCaptures = false;
        makeCurrent();
        return -1;
    }
    makeCurrent();
    // The host draws with the state that it knows from its window.
    windowState.put();
    GLint ignored[4] = {};
    glGetIntegerv(GL_VIEWPORT, ignored);
    trackBall->setViewport(viewport.x, viewport.y, viewport.width, viewport.height);
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
    // The camera may have moved meanwhile, and its cached matrices belong to the capture.
    trackBall->updateView();
}
