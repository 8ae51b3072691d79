#include "CQelTrackBall.h"
#include "QelGl.h"
#include "detail/QelTruncate.h"

namespace {

/// Window pixels per pixel of the view; 1 while either has no size.
double scaleOf(std::int32_t viewportSide, float viewSide) {
    return viewportSide > 0 && viewSide > 0.0F ? viewportSide / static_cast<double>(viewSide) : 1.0;
}

}  // namespace

std::int32_t CQelTrackBall::setViewport(std::int32_t x, std::int32_t y, std::int32_t width,
                                        std::int32_t height) {
    if (!ownerDetached) {
        glViewport(x, y, width, height);
        held.viewportDirty = true;
    }
    return 0;
}

std::int32_t CQelTrackBall::restoreViewport() {
    return CQelTrackBall::setViewport(0, 0, qel::truncateToInt(static_cast<double>(viewWidth)),
                                      qel::truncateToInt(static_cast<double>(viewHeight)));
}

const std::int32_t* CQelTrackBall::getViewport() {
    updateGlMatrices();
    return held.viewport;
}

CQelTrackBall::Place CQelTrackBall::windowScale() {
    updateGlMatrices();
    return {scaleOf(held.viewport[2], viewWidth), scaleOf(held.viewport[3], viewHeight)};
}

CQelTrackBall::Place CQelTrackBall::inWindow(double x, double y) {
    const Place scale = windowScale();
    return {held.viewport[0] + x * scale.x, held.viewport[1] + y * scale.y};
}

CQelTrackBall::Place CQelTrackBall::inView(double x, double y) {
    const Place scale = windowScale();
    return {(x - held.viewport[0]) / scale.x, (y - held.viewport[1]) / scale.y};
}

qel::XPnt3d CQelTrackBall::unProjectOfView(double x, double y, double depth) {
    const Place window = inWindow(x, y);
    return unProject(window.x, window.y, depth);
}

qel::Enve2d CQelTrackBall::viewInWindow() {
    updateGlMatrices();
    const auto& [x, y, width, height] = held.viewport;
    return {static_cast<double>(x), static_cast<double>(y), static_cast<double>(x) + width,
            static_cast<double>(y) + height};
}
