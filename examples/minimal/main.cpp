// The smallest host: a window, a display on it, a tetrahedron that the mouse turns.

#include <windows.h>
#include <windowsx.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "ModuleFunction.h"
#include "QelDisplay64t.h"
#include "QelGl.h"

namespace {

constexpr std::int32_t kRotate = 2;

template <class Element>
class Array final : public IQelArray<Element> {
  public:
    explicit Array(std::vector<Element> content) : elements(std::move(content)) {}
    std::int32_t count() override { return static_cast<std::int32_t>(elements.size()); }
    const Element* data() override { return elements.data(); }

  private:
    std::vector<Element> elements;
};

IQelDisplay* display = nullptr;

void draw() {
    static const qel::ref_ptr<IQelSymbol> symbol = MODULE_FUNCTION(newQelSymbol)();
    static const qel::ref_ptr<IQelArray<qel::ArrayVertex>> corners =
        new Array<qel::ArrayVertex>({{1, 1, 1, {}}, {-1, -1, 1, {}}, {-1, 1, -1, {}}, {1, -1, -1, {}}});
    static const qel::ref_ptr<IQelArray<qel::ArrayIndex>> triangles =
        new Array<qel::ArrayIndex>({0, 2, 1, 0, 1, 3, 0, 3, 2, 1, 2, 3});
    static const qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors = new Array<qel::ArrayColor4f>(
        {{1, 0.4F, 0.3F, 1}, {0.3F, 0.8F, 0.5F, 1}, {0.3F, 0.5F, 1, 1}, {1, 0.9F, 0.4F, 1}});
    display->beginFrame(0);
    display->beginDraw();
    display->getTrackBall()->updateView();
    symbol->drawIndexedMesh(corners, triangles, {}, colors, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                            {false, true, 1.0F});
    display->endDraw();
    display->finishFrame();
}

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (display == nullptr) {
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
            return camera.onButtonDown(kRotate, x, y);
        case WM_MOUSEMOVE:
            InvalidateRect(window, nullptr, FALSE);
            return camera.getDragButton() != 0 ? camera.onMouseMove(x, y) : 0;
        case WM_LBUTTONUP:
            return camera.onButtonUp();
        case WM_PAINT:
            draw();
            return ValidateRect(window, nullptr);
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
    display = MODULE_FUNCTION(newScreenDisplay)();
    display->attachWindow(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window)), false);
    display->getTrackBall()->setExtent({-1, 1, -1, 1, -1, 1}, false);
    display->setViewSize(800, 600);
    display->getTrackBall()->setStandardView(6);
    ShowWindow(window, SW_SHOW);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        DispatchMessageW(&message);
    }
    std::exchange(display, nullptr)->Release();
    DestroyWindow(window);
    return 0;
}
