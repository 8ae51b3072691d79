#include "CGDIScrDisplay.h"
#include "QelHandle.h"

namespace {

// A window may have one device context for all its life, and another display may draw on it by now: that
// display's tool stays selected.
void selectBack(HDC deviceContext, UINT kind, HGDIOBJ own, HGDIOBJ old) {
    if (own != nullptr && GetCurrentObject(deviceContext, kind) == own) {
        SelectObject(deviceContext, old);
    }
}

}  // namespace

// Releases everything taken from GDI: a host that opens and closes views for weeks must not run out of
// handles.
CGDIScrDisplay::~CGDIScrDisplay() {
    selectBack(deviceContext, OBJ_PEN, pen, oldPen);
    selectBack(deviceContext, OBJ_BRUSH, brush, oldBrush);
    deleteTools();
    if (deviceContext != nullptr) {
        ReleaseDC(qel::handleFromNumber<HWND>(windowHandle), deviceContext);
    }
}

std::int32_t CGDIScrDisplay::getDC() {
    return qel::handleNumber(deviceContext);
}

std::int32_t CGDIScrDisplay::attachWindow(std::int32_t window) {
    if (window == 0) {
        return -1;
    }
    windowHandle = window;
    // A selected tool cannot be deleted, and this may be in the middle of a bracket: a window may keep the
    // same device context all its life.
    if (pen != nullptr || brush != nullptr) {
        endDraw();
    }
    if (deviceContext != nullptr) {
        DeleteDC(deviceContext);
    }
    const HWND hwnd = qel::handleFromNumber<HWND>(window);
    deviceContext = GetDC(hwnd);
    // The saved tools belong to the previous device context.
    oldPen = nullptr;
    oldBrush = nullptr;
    RECT outer{};
    GetWindowRect(hwnd, &outer);
    pixelHeight = outer.bottom - outer.top;
    pixelWidth = outer.right - outer.left;
    return 0;
}

std::int32_t CGDIScrDisplay::getWindow() {
    return windowHandle;
}

std::int32_t CGDIScrDisplay::setPixelSize(std::int32_t width, std::int32_t height) {
    pixelWidth = width;
    pixelHeight = height;
    return 0;
}

std::int32_t CGDIScrDisplay::reservedSlot7() {
    return 1;
}

std::int32_t CGDIScrDisplay::reservedSlot8() {
    return 1;
}

std::int32_t CGDIScrDisplay::reservedSlot9() {
    return 1;
}

std::int32_t CGDIScrDisplay::reservedSlot10() {
    return -1;
}

std::int32_t CGDIScrDisplay::reservedSlot11() {
    return -1;
}

std::int32_t CGDIScrDisplay::reservedSlot12() {
    return -1;
}

std::int32_t CGDIScrDisplay::reservedSlot13() {
    return -1;
}

std::int32_t CGDIScrDisplay::reservedSlot26() {
    return -1;
}

std::int32_t CGDIScrDisplay::reservedSlot34() {
    return -1;
}
