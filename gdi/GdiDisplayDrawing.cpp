#include "CGDIScrDisplay.h"

std::int32_t CGDIScrDisplay::beginDraw() {
    createTools();
    return 1;
}

std::int32_t CGDIScrDisplay::endDraw() {
    selectOldTools();
    deleteTools();
    return 1;
}

void CGDIScrDisplay::selectOldTools() {
    if (oldPen != nullptr) {
        SelectObject(deviceContext, oldPen);
    }
    if (oldBrush != nullptr) {
        SelectObject(deviceContext, oldBrush);
    }
}

void CGDIScrDisplay::deleteTools() {
    if (pen != nullptr) {
        DeleteObject(pen);
        pen = nullptr;
    }
    if (brush != nullptr) {
        DeleteObject(brush);
        brush = nullptr;
    }
}

std::int32_t CGDIScrDisplay::createTools() {
    selectOldTools();
    deleteTools();
    pen = CreatePen(PS_SOLID, penWidth, penColor);
    brush = CreateHatchBrush(HS_DIAGCROSS, brushColor);
    // If a tool could not be created, the handle of the one it would replace must stay known.
    if (pen != nullptr) {
        oldPen = SelectObject(deviceContext, pen);
    }
    if (brush != nullptr) {
        oldBrush = SelectObject(deviceContext, brush);
    }
    return 0;
}

std::int32_t CGDIScrDisplay::setPenWidth(std::int32_t width) {
    penWidth = width;
    createTools();
    return 0;
}

std::int32_t CGDIScrDisplay::getPenWidth() {
    return penWidth;
}

std::int32_t CGDIScrDisplay::setBrushColor(std::uint32_t color) {
    brushColor = color;
    createTools();
    return 0;
}

std::uint32_t CGDIScrDisplay::getBrushColor() {
    return brushColor;
}

std::int32_t CGDIScrDisplay::setPenColor(std::uint32_t color) {
    penColor = color;
    createTools();
    return 0;
}

std::uint32_t CGDIScrDisplay::getPenColor() {
    return penColor;
}

bool CGDIScrDisplay::canDraw() const {
    return deviceContext != nullptr && pen != nullptr && brush != nullptr;
}

std::int32_t CGDIScrDisplay::drawRect(const qel::Enve2d& rect, bool outlineOnly) {
    if (!canDraw()) {
        return 1;
    }
    const qel::PixelPoint a = pixelOf(rect.xmin, rect.ymin);
    const qel::PixelPoint b = pixelOf(rect.xmax, rect.ymax);
    if (!outlineOnly) {
        const RECT area{a.x, a.y, b.x, b.y};
        FillRect(deviceContext, &area, brush);
    }
    MoveToEx(deviceContext, a.x, a.y, nullptr);
    LineTo(deviceContext, b.x, a.y);
    LineTo(deviceContext, b.x, b.y);
    LineTo(deviceContext, a.x, b.y);
    LineTo(deviceContext, a.x, a.y);
    return 1;
}

std::int32_t CGDIScrDisplay::drawLineSeg(CQelLineSeg segment) {
    if (!canDraw()) {
        return 1;
    }
    const qel::PixelPoint from = pixelOf(segment.start.x, segment.start.y);
    const qel::PixelPoint to = pixelOf(segment.end.x, segment.end.y);
    MoveToEx(deviceContext, from.x, from.y, nullptr);
    LineTo(deviceContext, to.x, to.y);
    return 1;
}
