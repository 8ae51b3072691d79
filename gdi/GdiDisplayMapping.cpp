#include "CGDIScrDisplay.h"

std::int32_t CGDIScrDisplay::setFullExtent(const qel::Enve2d& extent) {
    fullExtent = extent;
    return 0;
}

std::int32_t CGDIScrDisplay::zoomToFull() {
    setViewExtent(fullExtent);
    return 0;
}

std::int32_t CGDIScrDisplay::setViewExtent(const qel::Enve2d& extent) {
    qel::Enve2d fitted = extent;
    fitExtent(fitted);
    viewExtent = fitted;
    return 0;
}

qel::Enve2d CGDIScrDisplay::getViewExtent() {
    return viewExtent;
}

double CGDIScrDisplay::computeScale(qel::Enve2d extent) {
    if (extent.Width() == 0.0 || extent.Hight() == 0.0 || pixelWidth == 0 || pixelHeight == 0) {
        return 0.0;
    }
    const double scaleX = extent.Width() / pixelWidth;
    const double scaleY = extent.Hight() / pixelHeight;
    return scaleX > scaleY ? scaleX : scaleY;
}

std::int32_t CGDIScrDisplay::fitExtent(qel::Enve2d& extent) {
    scale = computeScale(extent);
    const qel::XPnt2d center = extent.MidPoint();
    const double halfWidth = pixelWidth * scale * 0.5;
    const double halfHeight = pixelHeight * scale * 0.5;
    extent =
        qel::Enve2d(center.x - halfWidth, center.y - halfHeight, center.x + halfWidth, center.y + halfHeight);
    return 0;
}

qel::PixelPoint CGDIScrDisplay::worldToScreen(const qel::XPnt2d& point) {
    return pixelOf(point.x, point.y);
}

qel::PixelPoint CGDIScrDisplay::worldToScreen3d(const qel::XPnt3d& point) {
    return worldToScreen(point.to2d());
}

qel::XPnt2d CGDIScrDisplay::screenToWorld(std::int32_t x, std::int32_t y) {
    const double rowFromBelow = static_cast<double>(pixelHeight) - y - 1.0;
    return {x * scale + viewExtent.xmin, rowFromBelow * scale + viewExtent.ymin};
}

qel::XPnt2d CGDIScrDisplay::screenToWorldPoint(const qel::PixelPoint& pixel) {
    return screenToWorld(pixel.x, pixel.y);
}
