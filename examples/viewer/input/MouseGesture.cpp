#include "MouseGesture.h"

namespace qelview {

namespace {

DragTool toolOf(MouseButton button, const LeftButton& left) {
    if (button != MouseButton::Left) {
        return button == MouseButton::Middle ? DragTool::Pan : DragTool::Zoom;
    }
    return left.drawsRectangle ? DragTool::Rectangle
           : left.pans         ? DragTool::Pan
           : left.movesSection ? DragTool::Section
                               : DragTool::Rotate;
}

}  // namespace

bool MouseGesture::press(MouseButton button, const LeftButton& left, const PixelPlace& place) {
    if (held) {
        return false;
    }
    held = button;
    driven = toolOf(button, left);
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
