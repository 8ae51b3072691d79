#include <windowsx.h>

#include "MouseMessages.h"
#include "ViewerWindow.h"

/// The mouse of the viewer window.

namespace qelview {

namespace {

qel::Drag dragOf(DragTool tool) {
    switch (tool) {
        case DragTool::Pan:
            return qel::DragPan;
        case DragTool::Rotate:
            return qel::DragRotate;
        case DragTool::Zoom:
            return qel::DragZoom;
        default:
            return qel::DragNone;
    }
}

}  // namespace

bool ViewerWindow::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDBLCLK:
            rotateAbout(placeOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            moveMouse(placeOf(lParam));
            return true;
        case WM_MOUSELEAVE:
            stage->annotations().mouse.reset();
            redraw(Stale::Overlay);
            return true;
        case WM_CAPTURECHANGED:
            cancelGesture();
            return true;
        case WM_MOUSEWHEEL:
            zoom(wParam, lParam);
            return true;
        default:
            return handleButton(message, wParam, lParam);
    }
}

bool ViewerWindow::handleButton(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const ButtonMessages& each : kButtonMessages) {
        if (message == each.down || message == each.twice) {
            press(each.button, wParam, lParam);
            return true;
        }
        if (message == each.up) {
            release(each.button);
            return true;
        }
    }
    return false;
}

void ViewerWindow::press(MouseButton button, WPARAM wParam, LPARAM position) {
    const PixelPlace place = placeOf(position);
    // The drag starts from the picture that the user saw at the press.
    refresh();
    const LeftButton left{choosesRectangle, (wParam & MK_SHIFT) != 0,
                          (wParam & MK_CONTROL) != 0 && stage->section() != SectionAxis::None};
    if (!gesture.press(button, left, place)) {
        return;
    }
    stage->annotations().notice.clear();
    motion.clear();
    stage->rememberCamera();
    SetCapture(window.get());
    stage->camera().onButtonDown(dragOf(gesture.tool()), place.x, place.y);
}

void ViewerWindow::moveMouse(const PixelPlace& place) {
    stage->annotations().mouse = place;
    if (!gesture.isActive()) {
        TRACKMOUSEEVENT tracking{sizeof tracking, TME_LEAVE, window.get(), 0};
        TrackMouseEvent(&tracking);
        redraw(Stale::Overlay);
        return;
    }
    const PixelPlace before = gesture.box().to;
    if (!gesture.move(place)) {
        return;
    }
    if (gesture.tool() == DragTool::Rectangle) {
        redraw(Stale::Overlay);
        return;
    }
    if (gesture.tool() == DragTool::Section) {
        stage->dragSection(before, place);
        saySection();
    } else {
        stage->camera().onMouseMove(place.x, place.y);
    }
    moved();
}

void ViewerWindow::release(MouseButton button) {
    // Smaller rectangles are accidental.
    constexpr int kSmallestRectangle = 4;
    const PixelBox box = gesture.box();
    const bool wasChoosing = gesture.tool() == DragTool::Rectangle;
    const std::optional<DragTool> tool = gesture.release(button);
    if (!tool) {
        return;
    }
    stage->camera().onButtonUp();
    ReleaseCapture();
    if (wasChoosing) {
        if (box.width() >= kSmallestRectangle && box.height() >= kSmallestRectangle) {
            stage->zoomInto(box);
            chooseRectangle(false);
        }
    } else if (*tool == DragTool::Nothing && button == MouseButton::Left) {
        markPoint(box.from);
    }
    rest();
    redraw(Stale::AllViews);
}

void ViewerWindow::cancelGesture() {
    // Releasing the capture sends this too, but the gesture has ended by then.
    if (gesture.isActive()) {
        gesture.cancel();
        stage->camera().onButtonUp();
        rest();
        redraw(Stale::Frame);
    }
}

void ViewerWindow::rotateAbout(const PixelPlace& place) {
    refresh();
    if (!gesture.isActive()) {
        stage->rotateAbout(place);
        say("Rotation centre set");
    }
}

void ViewerWindow::zoom(WPARAM wParam, LPARAM position) {
    if (gesture.isActive()) {
        return;
    }
    // Only the wheel message has screen coordinates.
    POINT onScreen{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ScreenToClient(window.get(), &onScreen);
    const PixelPlace place = placeOf(MAKELPARAM(onScreen.x, onScreen.y));
    const double notches = static_cast<double>(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA;
    if ((GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) != 0 && stage->section() != SectionAxis::None) {
        constexpr double kShareOfANotch = 0.01;
        stage->moveSection(kShareOfANotch * notches);
        saySection();
        return;
    }
    refresh();
    if (!isMoving) {
        stage->rememberCamera();
    }
    stage->zoom(notches, place);
    moved();
}

std::optional<PixelBox> ViewerWindow::drawnRectangle() const {
    const bool isDrawn = gesture.isDrag() && gesture.tool() == DragTool::Rectangle;
    return isDrawn ? std::optional(gesture.box()) : std::nullopt;
}

PixelPlace ViewerWindow::placeOf(LPARAM position) {
    const PixelPlace place{GET_X_LPARAM(position),
                           clientSizeOf(window.get()).height - 1 - GET_Y_LPARAM(position)};
    chooseView(place);
    return quartet ? quartet->inActive(place) : place;
}

}  // namespace qelview
