// The smallest host: a window, a display on it, a tetrahedron that the mouse turns.

#include <windows.h>
#include <windowsx.h>

#include "ModuleFunction.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "QelHostKit.h"

namespace {

const qel::Enve3d kModelExtent{-1, 1, -1, 1, -1, 1};

qel::ref_ptr<IQelDisplay> display;

void draw() {
    static const qel::ref_ptr<IQelSymbol> symbol = MODULE_FUNCTION(newQelSymbol)();
    static const qel::ref_ptr<IQelArray<qel::ArrayVertex>> corners = new qel::HostArray<qel::ArrayVertex>(
        {{1, 1, 1, {}}, {-1, -1, 1, {}}, {-1, 1, -1, {}}, {1, -1, -1, {}}});
    static const qel::ref_ptr<IQelArray<qel::ArrayIndex>> triangles =
        new qel::HostArray<qel::ArrayIndex>({0, 2, 1, 0, 1, 3, 0, 3, 2, 1, 2, 3});
    static const qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors = new qel::HostArray<qel::ArrayColor4f>(
        {{1, 0.4F, 0.3F, 1}, {0.3F, 0.8F, 0.5F, 1}, {0.3F, 0.5F, 1, 1}, {1, 0.9F, 0.4F, 1}});
    display->beginFrame(0);
    display->beginDraw();
    qel::fitClippingPlanes(*display->getTrackBall(), kModelExtent);
    display->updateView();
    symbol->drawIndexedMesh(corners, triangles, {}, colors, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                            {false, true, 1.0F});
    display->endDraw();
    display->finishFrame();
}

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!display) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    IQelTrackBall& camera = *display->getTrackBall();
    // The camera counts y from the lower edge.
    const int x = GET_X_LPARAM(lParam);
    const int y = static_cast<int>(camera.getHeight()) - 1 - GET_Y_LPARAM(lParam);
    switch (message) {
        case WM_SIZE:
            return display->setViewSize(LOWORD(lParam), HIWORD(lParam));
        case WM_LBUTTONDOWN:
            return camera.onButtonDown(qel::DragRotate, x, y);
        case WM_MOUSEMOVE:
            InvalidateRect(window, nullptr, FALSE);
            return camera.getDragButton() != 0 ? camera.onMouseMove(x, y) : 0;
        case WM_LBUTTONUP:
            return camera.onButtonUp();
        case WM_PAINT:
            ValidateRect(window, nullptr);
            draw();
            return 0;
        case WM_CLOSE:
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR, int) {
    WNDCLASSW description{};
    description.style = CS_OWNDC | CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = handleMessage;
    description.lpszClassName = L"QelMinimal";
    RegisterClassW(&description);
    HWND const window = CreateWindowW(L"QelMinimal", L"A minimal host", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 800, 600, nullptr, nullptr, hInstance, nullptr);
    display = qel::adopt(MODULE_FUNCTION(newScreenDisplay)());
    display->attachWindow(qel::handleNumber(window), false);
    display->getTrackBall()->setExtent(kModelExtent, false);
    display->setViewSize(800, 600);
    display->getTrackBall()->setStandardView(qel::ViewIsometric);
    ShowWindow(window, SW_SHOW);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        DispatchMessageW(&message);
    }
    display.reset();
    DestroyWindow(window);
    return 0;
}
