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
    qel::ref_ptr<IQelDisplay> display = qel::adopt(newScreenDisplay());
    display->attachWindow(qel::handleNumber(window), false);
    display->makeCurrent();
    if (display->getDC() == 0 || wglGetCurrentContext() == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<GlMapPane>(new GlMapPane(display));
}

GlMapPane::GlMapPane(qel::ref_ptr<IQelDisplay> attached)
    : display(std::move(attached)), symbol(newQelSymbol()), transform(new CQelTransform2d()) {
    display->setBackColor(kSea.forOpenGl());
}

void GlMapPane::show(const MapFrame& frame, const MapView& view, const MapTextsOfFrame& texts) {
    draw(frame, view, texts);
    display->present();
}

PixelImage GlMapPane::picture(const MapFrame& frame, const MapView& view, const MapTextsOfFrame& texts) {
    draw(frame, view, texts);
    glReadBuffer(GL_BACK);
    PixelImage image = readPixels(view.width(), view.height());
    display->present();
    return image;
}

void GlMapPane::draw(const MapFrame& frame, const MapView& view, const MapTextsOfFrame& texts) {
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
    if (texts.areShown) {
        drawTexts(frame, view, texts);
    }
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

qel::XPnt3d GlMapPane::local(const qel::XPnt2d& world) const {
    return {world.x - origin.x, world.y - origin.y, 0.0};
}

void GlMapPane::drawLines(const std::vector<Line2d>& lines, const MapColor& color) {
    std::vector<Points> parts;
    for (const Line2d& line : lines) {
        Points& part = parts.emplace_back();
        std::transform(line.begin(), line.end(), std::back_inserter(part),
                       [this](const qel::XPnt2d& point) { return local(point); });
    }
    symbol->setColor(color.forSymbol());
    const qel::ref_ptr<IQelGeometry> all = new qel::HostPolyline(parts);
    symbol->drawGeometry(all.get());
}

void GlMapPane::fillAreas(const std::vector<Rings2d>& areas, const MapView& view) {
    std::vector<qel::ArrayVertex> corners;
    for (const Rings2d& rings : areas) {
        Rings2d localRings = rings;
        for (Line2d& ring : localRings) {
            for (qel::XPnt2d& point : ring) {
                const qel::XPnt3d moved = local(point);
                point = {moved.x, moved.y};
            }
        }
        for (const qel::XPnt2d& corner : trianglesOf(localRings)) {
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
    if (frame.isCrowded) {
        Points places;
        std::transform(frame.points.begin(), frame.points.end(), std::back_inserter(places),
                       [this](const qel::XPnt2d& point) { return local(point); });
        symbol->drawPoints(places.data(), static_cast<std::int32_t>(places.size()), view.dots(1.0),
                           kPointColorOfMap.forOpenGl(), false, false);
        return;
    }
    const double half = view.dots(kPointHalfPx) * view.unitsPerPixel();
    for (const qel::XPnt2d& point : frame.points) {
        symbol->drawSquare(local(point), half, view.dots(1.0), kPointColorOfMap.forOpenGl(), false, false);
    }
}

void GlMapPane::drawTexts(const MapFrame& frame, const MapView& view, const MapTextsOfFrame& texts) {
    drawBar(view, texts.bar);
    display->setOrtho2D();
    const QelTmpGlStateCtrl ink(kInk.forOpenGl());
    const double margin = view.dots(kTextMarginPx);
    const double height = view.height();
    const int letters = static_cast<int>(std::lround(view.dots(kTextHeightPx)));
    const auto print = [&](double x, double y, const std::string& text) {
        glRasterPos2d(0.0, 0.0);
        font.print(text, letters, static_cast<int>(x), static_cast<int>(y));
    };
    for (const Name2d& name : frame.names) {
        const qel::XPnt2d at = view.pixelOf(name.at);
        print(at.x + view.dots(kLabelOffsetPx), height - at.y + view.dots(kLabelOffsetPx * 0.5), name.text);
    }
    print(margin, height - margin - view.dots(kTextHeightPx), texts.title);
    print(margin, margin, texts.place);
    print(texts.bar.textLeft, margin + view.dots(kOverBarPx), texts.bar.text);
}

void GlMapPane::drawBar(const MapView& view, const ScaleBar& bar) {
    const double base = view.height() - 1.0 - view.dots(kTextMarginPx);
    const double tick = view.dots(kTickPx);
    const auto segment = [&](double fromX, double fromY, double toX, double toY) {
        symbol->drawLine(local(view.worldAt(fromX, fromY)), local(view.worldAt(toX, toY)), view.dots(1.0),
                         kInk.forOpenGl(), false, false);
    };
    segment(bar.left, base, bar.right, base);
    segment(bar.left, base - tick, bar.left, base);
    segment(bar.right, base - tick, bar.right, base + 1.0);
}

}  // namespace qelview
