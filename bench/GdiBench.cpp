#include <windows.h>

#include <memory>
#include <vector>

#include "AllBenches.h"
#include "Models.h"
#include "TestWindow.h"

/// The display of a map: where a point lies on the screen, and a redraw of 200 lines of 50 points.

namespace qel::bench {

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 640;
constexpr std::int32_t kLines = 200;
constexpr std::int32_t kFewLines = 2;
constexpr std::int32_t kPointsOfALine = 50;

class GdiScene {
  public:
    explicit GdiScene(std::int32_t lineCount) : display(adopt(newGDIScrDisplay())) {
        display->attachWindow(static_cast<std::int32_t>(window.hwnd()));
        display->setViewExtent({-1.0, -1.0, 1.0, 1.0});
        extent = display->getViewExtent();
        scale = extent.Width() / kWidth;
        for (std::int32_t i = 0; i < lineCount; ++i) {
            lines.push_back(wave(i, lineCount, kPointsOfALine));
        }
    }

    void drawByModule() const {
        display->beginDraw();
        for (const std::vector<XPnt3d>& line : lines) {
            for (std::size_t i = 0; i + 1 < line.size(); ++i) {
                display->drawLineSeg({line[i], line[i + 1]});
            }
        }
        display->endDraw();
    }

    void drawByHand() {
        HDC const dc = reinterpret_cast<HDC>(window.dc());
        // As the display does: what was selected before a redraw is selected before the next one's tools are
        // made.
        SelectObject(dc, oldPen);
        SelectObject(dc, oldBrush);
        HPEN const pen = CreatePen(PS_SOLID, display->getPenWidth(), display->getPenColor());
        HBRUSH const brush = CreateHatchBrush(HS_DIAGCROSS, display->getBrushColor());
        oldPen = SelectObject(dc, pen);
        oldBrush = SelectObject(dc, brush);
        for (const std::vector<XPnt3d>& line : lines) {
            for (std::size_t i = 0; i + 1 < line.size(); ++i) {
                MoveToEx(dc, column(line[i].x), row(line[i].y), nullptr);
                LineTo(dc, column(line[i + 1].x), row(line[i + 1].y));
            }
        }
        SelectObject(dc, oldPen);
        SelectObject(dc, oldBrush);
        DeleteObject(pen);
        DeleteObject(brush);
    }

    int column(double x) const { return static_cast<int>((scale * 0.5 + x - extent.xmin) / scale); }
    int row(double y) const {
        return kHeight - 1 - static_cast<int>((scale * 0.5 + y - extent.ymin) / scale);
    }

    test::TestWindow window{kWidth, kHeight};
    ref_ptr<IQelScrDisplay2D> display;
    /// Keeps the compiler from leaving results out.
    volatile double probed = 0.1;
    volatile int kept = 0;

  private:
    Enve2d extent;
    double scale = 1.0;
    std::vector<std::vector<XPnt3d>> lines;
    HGDIOBJ oldPen = GetStockObject(BLACK_PEN);
    HGDIOBJ oldBrush = GetStockObject(WHITE_BRUSH);
};

Forms redrawForms(Size size) {
    const auto scene = std::make_shared<GdiScene>(size == Size::Full ? kLines : kFewLines);
    Forms forms;
    forms.module = repeated([scene] { scene->drawByModule(); });
    forms.bare = repeated([scene] { scene->drawByHand(); });
    forms.settle = [] { GdiFlush(); };
    return forms;
}

Forms pixelForms(Size) {
    const auto scene = std::make_shared<GdiScene>(kFewLines);
    Forms forms;
    forms.module = repeated([scene] { scene->kept = scene->display->worldToScreen({scene->probed, 0.2}).x; });
    return forms;
}

}  // namespace

void addGdiBenches(Operations& all) {
    all.push_back({"worldToScreen", "call", Kind::Arithmetic, pixelForms});
    all.push_back({"GDI redraw of 200 lines of 50 points", "redraw", Kind::Gdi, redrawForms});
}

}  // namespace qel::bench
