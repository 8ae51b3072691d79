#include "MapWindow.h"

#include <windowsx.h>

#include <cmath>

#include "GdiMapPane.h"
#include "MapRelief.h"
#include "MapTexts.h"
#include "QelDisplay64t.h"

namespace qelview {

namespace {

/// Zoom factor per wheel notch.
constexpr double kZoomOfANotch = 1.25;
constexpr float kReliefZoomOfANotch = 0.1F;
constexpr std::array<const char*, MapWindow::kPanes> kPaneNames{"GDI", "OpenGL", "3D"};

POINT pointOf(LPARAM position) {
    return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
}

qel::Drag dragOf(UINT message) {
    return message == WM_LBUTTONDOWN   ? qel::DragRotate
           : message == WM_MBUTTONDOWN ? qel::DragPan
                                       : qel::DragZoom;
}

}  // namespace

MapWindow::MapWindow(const Scene& shownScene) : scene(shownScene), map(mapOf(shownScene)) {}

MapWindow::~MapWindow() {
    // The displays release their windows before the windows are destroyed.
    relief.reset();
    gl.reset();
    gdi.reset();
    for (OwnedWindow& pane : panes) {
        pane.reset();
    }
}

bool MapWindow::open(const ClientSize& size, bool isForPictures) {
    const DWORD style = (isForPictures ? WS_POPUP : WS_OVERLAPPEDWINDOW) | WS_CLIPCHILDREN;
    const UINT dotsPerInch = isForPictures ? UINT{USER_DEFAULT_SCREEN_DPI} : GetDpiForSystem();
    const auto scaled = [dotsPerInch](int pixels) {
        return MulDiv(pixels, static_cast<int>(dotsPerInch), USER_DEFAULT_SCREEN_DPI);
    };
    const auto [width, height] =
        frameSizeAround({scaled(size.width), scaled(size.height)}, style, dotsPerInch);
    const int where = isForPictures ? 0 : CW_USEDEFAULT;
    const std::wstring caption = toWide(map.title + " - qelview");
    const wchar_t* const name = registerWindowClass(L"QelViewMap", dispatch);
    HINSTANCE const program = GetModuleHandleW(nullptr);
    window.reset(CreateWindowExW(isForPictures ? WS_EX_NOACTIVATE : 0, name, caption.c_str(), style, where,
                                 where, width, height, nullptr, nullptr, program, nullptr));
    if (!window) {
        return false;
    }
    const ClientSize client = clientSizeOf(window.get());
    for (OwnedWindow& pane : panes) {
        pane.reset(CreateWindowExW(0, name, L"", WS_CHILD, 0, 0, client.width, client.height, window.get(),
                                   nullptr, program, nullptr));
        SetWindowLongPtrW(pane.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    gdi = std::make_unique<GdiMapPane>(paneWindow(Pane::Gdi));
    gl = GlMapPane::open(paneWindow(Pane::Gl));
    relief = gl == nullptr ? nullptr : Stage::open(paneWindow(Pane::Relief), reliefOf(scene));
    if (relief == nullptr) {
        return false;
    }
    SetWindowLongPtrW(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    setScale(dotsPerInch);
    resize();
    fit();
    mouse = {client.width / 2, client.height / 2};
    choose(Pane::Gdi);
    ShowWindow(window.get(), isForPictures ? SW_SHOWNOACTIVATE : SW_SHOW);
    return true;
}

void MapWindow::run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void MapWindow::fit() {
    mapView.fit(map.bounds);
    // From the south and above, like a map on a table.
    constexpr unsigned kFromTheSouth = 3;
    constexpr double kRise = 1.1;
    relief->setView(kFromTheSouth);
    const qel::XPnt3d target = relief->camera().getTarget();
    const double distance = qel::dist(relief->camera().getEye(), target);
    relief->camera().setCamera(target + qel::XPnt3d(0.0, -distance, kRise * distance), target,
                               {0.0, 0.0, 1.0});
    relief->fit();
}

void MapWindow::choose(Pane pane) {
    current = pane;
    for (std::size_t i = 0; i < kPanes; ++i) {
        ShowWindow(panes.at(i).get(), i == static_cast<std::size_t>(pane) ? SW_SHOWNA : SW_HIDE);
    }
    redraw();
}

void MapWindow::resize() {
    const ClientSize size = clientSizeOf(window.get());
    for (const OwnedWindow& pane : panes) {
        SetWindowPos(pane.get(), nullptr, 0, 0, size.width, size.height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    mapView.resize(size.width, size.height);
    relief->resize(size);
}

void MapWindow::setScale(unsigned dotsPerInch) {
    const double scale = static_cast<double>(dotsPerInch) / USER_DEFAULT_SCREEN_DPI;
    mapView.setScale(scale);
    relief->setScale(scale);
}

LRESULT CALLBACK MapWindow::dispatch(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<MapWindow*>(GetWindowLongPtrW(receiver, GWLP_USERDATA));
    if (self != nullptr && self->relief && self->handleMessage(receiver, message, wParam, lParam)) {
        return 0;
    }
    return DefWindowProcW(receiver, message, wParam, lParam);
}

bool MapWindow::handleMessage(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            if (receiver == window.get() && wParam != SIZE_MINIMIZED) {
                resize();
                redraw();
            }
            return true;
        case WM_DPICHANGED:
            setScale(LOWORD(wParam));
            placeWindow(window.get(), *reinterpret_cast<const RECT*>(lParam));
            redraw();
            return true;
        case WM_PAINT:
            paint(receiver);
            return true;
        case WM_ERASEBKGND:
            // The frame covers everything; erasing first would flicker.
            return receiver != window.get();
        case WM_KEYDOWN:
            return handleKey(wParam);
        case WM_CLOSE:
            PostQuitMessage(0);
            return true;
        default:
            return handleMouse(message, wParam, lParam);
    }
}

bool MapWindow::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDOWN:
            press(message, pointOf(lParam));
            return true;
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        case WM_RBUTTONUP:
            release();
            return true;
        case WM_CAPTURECHANGED:
            // The mouse capture was lost during a drag. Releasing it sends this too, after the drag.
            if (isDragging) {
                release();
            }
            return true;
        case WM_MOUSEMOVE:
            move(pointOf(lParam));
            return true;
        case WM_MOUSEWHEEL: {
            // Only the wheel message has screen coordinates.
            POINT place = pointOf(lParam);
            ScreenToClient(window.get(), &place);
            zoom(wParam, place);
            return true;
        }
        default:
            return false;
    }
}

bool MapWindow::handleKey(WPARAM key) {
    if (key >= '1' && key < '1' + kPanes) {
        choose(static_cast<Pane>(key - '1'));
    } else if (key == 'F') {
        fit();
    } else if (key == VK_ESCAPE) {
        PostQuitMessage(0);
    } else {
        return false;
    }
    redraw();
    return true;
}

void MapWindow::press(UINT message, const POINT& place) {
    SetFocus(window.get());
    SetCapture(window.get());
    isDragging = true;
    mouse = place;
    if (current == Pane::Relief) {
        relief->camera().onButtonDown(dragOf(message), place.x, mapView.height() - 1 - place.y);
    }
}

void MapWindow::move(const POINT& place) {
    if (current == Pane::Relief) {
        if (isDragging) {
            relief->camera().onMouseMove(place.x, mapView.height() - 1 - place.y);
            redraw();
        }
        return;
    }
    if (isDragging) {
        mapView.pan(place.x - mouse.x, place.y - mouse.y);
    }
    mouse = place;
    redraw();
}

void MapWindow::release() {
    isDragging = false;
    ReleaseCapture();
    relief->camera().onButtonUp();
    redraw();
}

void MapWindow::zoom(WPARAM wParam, const POINT& place) {
    const double notches = static_cast<double>(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA;
    if (current == Pane::Relief) {
        relief->camera().zoomAt(static_cast<float>(notches) * kReliefZoomOfANotch, place.x,
                                mapView.height() - 1 - place.y);
    } else {
        mapView.zoomAt(place.x, place.y, std::pow(kZoomOfANotch, notches));
    }
    redraw();
}

MapPane& MapWindow::plane() {
    return current == Pane::Gdi ? *gdi : static_cast<MapPane&>(*gl);
}

MapFrame MapWindow::frame(bool withTexts) const {
    MapFrame shown = makeFrame(map, mapView);
    if (withTexts) {
        addTexts(shown, mapView, map.title + "  (" + kPaneNames.at(static_cast<std::size_t>(current)) + ")",
                 textOf(mapView.worldAt(mouse.x, mouse.y), mapView, map.isGeographic),
                 scaleBarOf(mapView, map.isGeographic));
    }
    return shown;
}

void MapWindow::paint(HWND receiver) {
    PAINTSTRUCT painting;
    BeginPaint(receiver, &painting);
    if (receiver == paneWindow(current)) {
        if (current == Pane::Relief) {
            relief->show();
        } else {
            plane().show(frame(true), mapView);
        }
    }
    EndPaint(receiver, &painting);
}

PixelImage MapWindow::picture(bool withTexts) {
    if (current == Pane::Relief) {
        return relief->picture();
    }
    return plane().picture(frame(withTexts), mapView);
}

void MapWindow::redraw() {
    InvalidateRect(paneWindow(current), nullptr, FALSE);
}

}  // namespace qelview
