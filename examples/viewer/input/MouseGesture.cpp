#include "MouseGesture.h"

#include <cstdlib>

namespace qelview {

namespace {

DragTool toolOf(MouseButton button, bool withShift, bool drawsRectangle) {
    switch (button) {
        case MouseButton::Middle:
            return DragTool::Pan;
        case MouseButton::Right:
            return DragTool::Zoom;
        default:
            break;
    }
    if (drawsRectangle) {
        return DragTool::Rectangle;
    }
    return withShift ? DragTool::Pan : DragTool::Rotate;
}

}  // namespace

int PixelBox::width() const {
    return std::abs(to.x - from.x);
}

int PixelBox::height() const {
    return std::abs(to.y - from.y);
}

bool MouseGesture::press(MouseButton button, bool withShift, bool drawsRectangle, const PixelPlace& place) {
    if (held) {
        return false;
    }
    held = button;
    driven = toolOf(button, withShift, drawsRectangle);
    isDragged = false;
    path = {place, place};
    return true;
}

bool MouseGesture::move(const PixelPlace& place) {
    if (!held) {
        return false;
    }
    path.to = place;
    isDragged = isDragged || path.width() > kClickReach || path.height() > kClickReach;
    return isDragged;
}

std::optional<DragTool> MouseGesture::release(MouseButton button) {
    if (held != button) {
        return std::nullopt;
    }
    held.reset();
    return isDragged ? driven : DragTool::Nothing;
}

}  // namespace qelview
