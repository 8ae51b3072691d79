#include "GlMapPane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "FramePixels.h"
#include "MapTriangles.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "QelHostKit.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"

namespace qelview {

namespace {

/// GDI's hatch as OpenGL's pattern of 32 x 32 pixels, whose first row is the window's lowest.
std::array<GLubyte, 128> hatchPattern(int height) {
    std::array<GLubyte, 128> pattern{};
    constexpr std::size_t kBytesOfARow = 4;
    for (std::size_t y = 0; y < 32; ++y) {
        const std::size_t fromAbove = (static_cast<std::size_t>(height) + 31 - y) % kHatchRows.size();
        std::fill_n(pattern.begin() + static_cast<std::ptrdiff_t>(y * kBytesOfARow), kBytesOfARow,
                    kHatchRows.at(fromAbove));
    }
    return pattern;
}

/// State that the host sets while it fills areas: the surfaces lie in the plane and are not lit.
void drawTriangles(IQelSymbol& symbol, const qel::ref_ptr<IQelArray<qel::ArrayVertex>>& vertices,
                   const MapColor& color) {
    const QelTmpGlStateCtrl paint(color.forOpenGl());
    symbol.drawMesh(vertices, {}, {}, {}, {}, 0, GL_FLAT, GL_FILL, GL_FILL, {false, false, 1.0F});
}

}  // namespace

std::unique_ptr<GlMapPane> GlMapPane::open(HWND window) {
    const qel::ref_ptr<IQelDisplay> display = Stage::attach(window, false);
    return display ? std::unique_ptr<GlMapPane>(new GlMapPane(display)) : nullptr;
}

GlMapPane::GlMapPane(qel::ref_ptr<IQelDisplay> attached)
    : display(std::move(attached)), symbol(newQelSymbol()), transform(new CQelTransform2d()) {
    display->setBackColor(kSea.forOpenGl());
}

void GlMapPane::show(const MapFrame& frame, const MapView& view) {
    draw(frame, view);
    display->present();
}

PixelImage GlMapPane::picture(const MapFrame& frame, const MapView& view) {
    draw(frame, view);
    glReadBuffer(GL_BACK);
    PixelImage image = readPixels(view.width(), view.height());
    display->present();
    return image;
}

void GlMapPane::draw(const MapFrame& frame, const MapView& view) {
    display->setViewSize(view.width(), view.height());
    display->beginFrame(0);
    display->beginDraw();
    loadView(view);
    symbol->setLineWidth(static_cast<float>(view.dots(1.0)));
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    drawLines(frame.grid, kGridColor);
    fillAreas(frame.areas, view);
    drawLines(frame.outlines, kOutline);
    drawLines(frame.lines, kLineColor);
    drawPoints(frame, view);
    drawTexts(frame, view);
    display->endDraw();
}

void GlMapPane::loadView(const MapView& view) {
    // OpenGL's pixels start at integers; a map's pixels have their centres there.
    const double half = 0.5 * view.unitsPerPixel();
    const qel::Enve2d shown = view.extent();
    const qel::Enve3d extent{
        shown.xmin - half, shown.xmax - half, shown.ymin - half, shown.ymax - half, 0.0, 0.0};
    transform->setModelExtent(extent);
    transform->setViewExtent(extent);
    transform->setDeviceExtent(
        {0.0, static_cast<double>(view.width()), 0.0, static_cast<double>(view.height()), 0.0, 0.0});
    transform->resizeViewport();
    origin = transform->getOrigin();
}

Points GlMapPane::local(const Line2d& line) const {
    Points points;
    std::transform(line.begin(), line.end(), std::back_inserter(points), [this](const qel::XPnt2d& point) {
        return qel::XPnt3d(point.x - origin.x, point.y - origin.y, 0.0);
    });
    return points;
}

void GlMapPane::drawLines(const std::vector<Line2d>& lines, const MapColor& color) {
    std::vector<Points> parts;
    parts.reserve(lines.size());
    for (const Line2d& line : lines) {
        parts.push_back(local(line));
    }
    symbol->setColor(color.forSymbol());
    const qel::ref_ptr<IQelGeometry> all = new qel::HostPolyline(parts);
    symbol->drawGeometry(all.get());
}

void GlMapPane::fillAreas(const std::vector<Rings2d>& areas, const MapView& view) {
    std::vector<qel::ArrayVertex> corners;
    for (const Rings2d& rings : areas) {
        std::vector<Points> contours;
        for (const Line2d& ring : rings) {
            contours.push_back(local(ring));
        }
        for (const qel::XPnt3d& corner : trianglesOf(contours)) {
            corners.push_back({static_cast<float>(corner.x), static_cast<float>(corner.y), 0.0F, {}});
        }
    }
    if (corners.empty()) {
        return;
    }
    const qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices =
        new qel::HostArray<qel::ArrayVertex>(std::move(corners));
    drawTriangles(*symbol, vertices, kLand);
    glPolygonStipple(hatchPattern(view.height()).data());
    const QelTmpGlStateCtrl hatched(GL_POLYGON_STIPPLE, true);
    drawTriangles(*symbol, vertices, kHatch);
}

void GlMapPane::drawPoints(const MapFrame& frame, const MapView& view) {
    const Points places = local(frame.points);
    if (frame.isCrowded) {
        symbol->drawPoints(places.data(), static_cast<std::int32_t>(places.size()), view.dots(1.0),
                           kPointColorOfMap.forOpenGl(), false, false);
        return;
    }
    const double half = view.dots(kPointHalfPx) * view.unitsPerPixel();
    for (const qel::XPnt3d& place : places) {
        symbol->drawSquare(place, half, view.dots(1.0), kPointColorOfMap.forOpenGl(), false, false);
    }
}

void GlMapPane::drawTexts(const MapFrame& frame, const MapView& view) {
    drawLines(frame.bar, kInk);
    display->setOrtho2D();
    const QelTmpGlStateCtrl ink(kInk.forOpenGl());
    const int letters = static_cast<int>(std::lround(view.dots(kTextHeightPx)));
    for (const PlacedText& text : frame.texts) {
        glRasterPos2d(0.0, 0.0);
        font.print(text.text, letters, static_cast<int>(text.at.x),
                   static_cast<int>(view.height() - text.at.y));
    }
}

}  // namespace qelview
