#include "GdiMapPane.h"

#include <cmath>

#include "MapStyle.h"
#include "QelDisplay64t.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

/// Selects an object for as long as this lives.
class Selected {
  public:
    Selected(HDC context, HGDIOBJ object) : dc(context), before(SelectObject(context, object)) {}
    ~Selected() { SelectObject(dc, before); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC dc;
    HGDIOBJ before;
};

int wholePixels(const MapView& view, double dots) {
    return static_cast<int>(std::lround(view.dots(dots)));
}

/// Rows from bottom to top, without padding.
PixelImage imageOf(HDC dc, int width, int height) {
    PixelImage image;
    image.width = width;
    image.height = height;
    HDC const memory = CreateCompatibleDC(dc);
    HBITMAP const bitmap = CreateCompatibleBitmap(dc, width, height);
    HGDIOBJ const before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, dc, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> rows(pixels * 4);
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), rows.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    image.rgb.reserve(pixels * 3);
    for (std::size_t i = 0; i < rows.size(); i += 4) {
        image.rgb.insert(image.rgb.end(), {rows[i + 2], rows[i + 1], rows[i]});
    }
    return image;
}

}  // namespace

GdiMapPane::GdiMapPane(HWND window) {
    display = qel::adopt(newGDIScrDisplay());
    display->attachWindow(qel::handleNumber(window));
}

HDC GdiMapPane::deviceContext() {
    return qel::handleFromNumber<HDC>(display->getDC());
}

void GdiMapPane::show(const MapFrame& frame, const MapView& view) {
    HDC const dc = deviceContext();
    display->setPixelSize(view.width(), view.height());
    display->setViewExtent(view.extent());
    const RECT all{0, 0, view.width(), view.height()};
    HBRUSH const sea = CreateSolidBrush(kSea.forGdi());
    FillRect(dc, &all, sea);
    DeleteObject(sea);
    display->beginDraw();
    display->setPenWidth(wholePixels(view, 1.0));
    drawLines(frame.grid, kGridColor.forGdi());
    fillAreas(frame.areas);
    drawLines(frame.outlines, kOutline.forGdi());
    drawLines(frame.lines, kLineColor.forGdi());
    drawPoints(frame, view);
    drawTexts(frame, view);
    display->endDraw();
    GdiFlush();
}

PixelImage GdiMapPane::picture(const MapFrame& frame, const MapView& view) {
    show(frame, view);
    return imageOf(deviceContext(), view.width(), view.height());
}

void GdiMapPane::drawLines(const std::vector<Line2d>& lines, std::uint32_t color) {
    display->setPenColor(color);
    for (const Line2d& line : lines) {
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            display->drawLineSeg({{line[i].x, line[i].y, 0.0}, {line[i + 1].x, line[i + 1].y, 0.0}});
        }
    }
}

void GdiMapPane::fillAreas(const std::vector<Rings2d>& areas) {
    HDC const dc = deviceContext();
    display->setBrushColor(kHatch.forGdi());
    // The background between the lines of the hatch.
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, kLand.forGdi());
    SetPolyFillMode(dc, ALTERNATE);
    const Selected noPen(dc, GetStockObject(NULL_PEN));
    for (const Rings2d& rings : areas) {
        std::vector<POINT> corners;
        std::vector<INT> counts;
        for (const Line2d& ring : rings) {
            for (const qel::XPnt2d& point : ring) {
                const qel::PixelPoint pixel = display->worldToScreen(point);
                corners.push_back({pixel.x, pixel.y});
            }
            counts.push_back(static_cast<INT>(ring.size()));
        }
        PolyPolygon(dc, corners.data(), counts.data(), static_cast<int>(counts.size()));
    }
}

void GdiMapPane::drawPoints(const MapFrame& frame, const MapView& view) {
    display->setPenColor(kPointColorOfMap.forGdi());
    const double pixel = view.unitsPerPixel();
    const double half = view.dots(kPointHalfPx) * pixel;
    for (const qel::XPnt2d& point : frame.points) {
        if (frame.isCrowded) {
            display->drawLineSeg({{point.x, point.y, 0.0}, {point.x + pixel, point.y, 0.0}});
        } else {
            display->drawRect({point.x - half, point.y - half, point.x + half, point.y + half}, true);
        }
    }
}

void GdiMapPane::drawTexts(const MapFrame& frame, const MapView& view) {
    drawLines(frame.bar, kInk.forGdi());
    HDC const dc = deviceContext();
    const Selected writing(dc, font.handle(wholePixels(view, kTextHeightPx)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, kInk.forGdi());
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    for (const PlacedText& text : frame.texts) {
        const std::wstring wide = toWide(text.text);
        TextOutW(dc, static_cast<int>(text.at.x), static_cast<int>(text.at.y), wide.c_str(),
                 static_cast<int>(wide.size()));
    }
}

}  // namespace qelview
