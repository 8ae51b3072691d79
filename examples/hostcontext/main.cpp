// A host with an OpenGL window of its own: it chooses the pixel format, makes the context, draws a backdrop
// with its own calls, and lends the context to a display of the module, which draws the model, the axes and
// the labels over it.

#include <windows.h>
#include <windowsx.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

#include "QelDisplay64t.h"
#include "QelGl.h"
#include "QelHostKit.h"

namespace {

/// A surface around the origin with waves on it.
class Pebble {
  public:
    Pebble() {
        std::vector<qel::ArrayVertex> corners;
        std::vector<qel::ArrayNormal4f> directions;
        std::vector<qel::ArrayIndex> triangles;
        for (std::uint32_t row = 0; row <= kRows; ++row) {
            for (std::uint32_t column = 0; column <= kColumns; ++column) {
                const float down =
                    std::numbers::pi_v<float> * static_cast<float>(row) / static_cast<float>(kRows);
                const float around = 2.0F * std::numbers::pi_v<float> * static_cast<float>(column) /
                                     static_cast<float>(kColumns);
                const qel::ArrayNormal4f out{std::sin(down) * std::cos(around),
                                             std::sin(down) * std::sin(around), std::cos(down), 0.0F};
                const float reach = 8.0F + 0.8F * std::sin(down) * std::sin(down) * std::cos(5.0F * around);
                directions.push_back(out);
                corners.push_back({out.x * reach, out.y * reach, out.z * reach, {}});
                if (row < kRows && column < kColumns) {
                    const std::uint32_t first = row * (kColumns + 1) + column;
                    const std::uint32_t below = first + kColumns + 1;
                    triangles.insert(triangles.end(), {first, below, first + 1, first + 1, below, below + 1});
                }
            }
        }
        vertices = new qel::HostArray<qel::ArrayVertex>(std::move(corners));
        normals = new qel::HostArray<qel::ArrayNormal4f>(std::move(directions));
        indices = new qel::HostArray<qel::ArrayIndex>(std::move(triangles));
    }

    void draw(IQelSymbol& symbol) const {
        glColor3f(0.95F, 0.6F, 0.2F);
        symbol.drawIndexedMesh(vertices, indices, normals, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {});
    }

  private:
    static constexpr std::uint32_t kRows = 48;
    static constexpr std::uint32_t kColumns = 96;

    qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices;
    qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> normals;
    qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices;
};

/// What the host draws itself: a colour that deepens downwards, behind everything.
void drawBackdrop() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glPushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glBegin(GL_QUADS);
    glColor3f(0.05F, 0.07F, 0.12F);
    glVertex2f(-1.0F, -1.0F);
    glVertex2f(1.0F, -1.0F);
    glColor3f(0.3F, 0.4F, 0.55F);
    glVertex2f(1.0F, 1.0F);
    glVertex2f(-1.0F, 1.0F);
    glEnd();
    glPopAttrib();
}

HGLRC makeContext(HDC deviceContext) {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 24;
    format.cDepthBits = 24;
    const int chosen = ChoosePixelFormat(deviceContext, &format);
    return SetPixelFormat(deviceContext, chosen, &format) != FALSE ? wglCreateContext(deviceContext)
                                                                   : nullptr;
}

const qel::Enve3d kModelExtent{-9, 9, -9, 9, -9, 9};

qel::ref_ptr<IQelDisplay> display;

void draw() {
    static const qel::ref_ptr<IQelSymbol> symbol = newQelSymbol();
    static const Pebble pebble;
    display->beginFrame(0);
    drawBackdrop();
    display->beginDraw();
    qel::fitClippingPlanes(*display->getTrackBall(), kModelExtent);
    display->updateView();
    pebble.draw(*symbol);
    display->getTrackBall()->drawLabel(0, 0, 9, 8, 8, "in the host's own context");
    display->endDraw();
    display->finishFrame();
}

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!display) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    IQelTrackBall& camera = *display->getTrackBall();
    const int x = GET_X_LPARAM(lParam);
    const int y = static_cast<int>(camera.getHeight()) - 1 - GET_Y_LPARAM(lParam);
    switch (message) {
        case WM_SIZE:
            return display->setViewSize(LOWORD(lParam), HIWORD(lParam));
        case WM_LBUTTONDOWN:
            return camera.onButtonDown((wParam & MK_SHIFT) != 0 ? qel::DragPan : qel::DragRotate, x, y);
        case WM_MOUSEMOVE:
            InvalidateRect(window, nullptr, FALSE);
            return camera.onMouseMove(x, y);
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
    description.lpszClassName = L"QelHostContext";
    RegisterClassW(&description);
    HWND const window =
        CreateWindowW(L"QelHostContext", L"A host with a context of its own", WS_OVERLAPPEDWINDOW,
                      CW_USEDEFAULT, CW_USEDEFAULT, 800, 600, nullptr, nullptr, hInstance, nullptr);
    HDC const deviceContext = GetDC(window);
    HGLRC const context = makeContext(deviceContext);
    if (context == nullptr) {
        MessageBoxW(window, L"This window gets no OpenGL context.", L"QelDisplay64t", MB_ICONERROR);
        return 1;
    }
    display = qel::adopt(newScreenDisplay());
    display->attachDC(qel::handleNumber(deviceContext), qel::handleNumber(context));
    glEnable(GL_DEPTH_TEST);  // the state of a lent context is the host's
    display->getTrackBall()->setExtent(kModelExtent, false);
    RECT client{};
    GetClientRect(window, &client);
    display->setViewSize(client.right, client.bottom);
    display->getTrackBall()->setStandardView(qel::ViewIsometric);
    ShowWindow(window, SW_SHOW);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        DispatchMessageW(&message);
    }
    // The display first: it deletes its font in this context, which the host made and deletes.
    display.reset();
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(context);
    ReleaseDC(window, deviceContext);
    DestroyWindow(window);
    return 0;
}
