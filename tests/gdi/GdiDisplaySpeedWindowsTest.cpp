#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "GdiFixtureWindows.h"
#include "viewer/ViewerData.h"

/// What the display costs beside the calls of GDI that it makes.

namespace qel::test {
namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 640;
constexpr int kRedraws = 60;
constexpr double kLargestRatio = 1.10;
/// On a machine that is busy with other things a run may fail to tell; a display that is slower fails in
/// each.
constexpr int kRuns = 6;

struct Line {
    std::vector<XPnt3d> points;
};

/// The same mapping written out by hand.
struct ByHand {
    Enve2d extent;
    double scale;

    explicit ByHand(const Enve2d& shown) : extent(shown), scale(shown.Width() / kWidth) {}

    int column(double x) const { return static_cast<int>((scale * 0.5 + x - extent.xmin) / scale); }
    int row(double y) const {
        return kHeight - 1 - static_cast<int>((scale * 0.5 + y - extent.ymin) / scale);
    }
};

void drawByDisplay(const HeldGdiDisplay& display, const std::vector<Line>& lines) {
    display->beginDraw();
    for (const Line& line : lines) {
        for (std::size_t i = 0; i + 1 < line.points.size(); ++i) {
            display->drawLineSeg({line.points[i], line.points[i + 1]});
        }
    }
    display->endDraw();
    GdiFlush();
}

void drawByHand(HDC dc, const ByHand& map, const std::vector<Line>& lines) {
    HPEN const pen = CreatePen(PS_SOLID, 1, kFirstPenColor);
    HBRUSH const brush = CreateHatchBrush(HS_DIAGCROSS, kFirstBrushColor);
    HGDIOBJ const oldPen = SelectObject(dc, pen);
    HGDIOBJ const oldBrush = SelectObject(dc, brush);
    for (const Line& line : lines) {
        for (std::size_t i = 0; i + 1 < line.points.size(); ++i) {
            MoveToEx(dc, map.column(line.points[i].x), map.row(line.points[i].y), nullptr);
            LineTo(dc, map.column(line.points[i + 1].x), map.row(line.points[i + 1].y));
        }
    }
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
    GdiFlush();
}

template <class Draw>
double secondsOf(const Draw& draw) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begun = Clock::now();
    draw();
    return std::chrono::duration<double>(Clock::now() - begun).count();
}

/// The time that one in ten redraws stays below: what is left when nothing else wanted the processor.
double undisturbed(std::vector<double> seconds) {
    const auto tenth = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 10);
    std::nth_element(seconds.begin(), tenth, seconds.end());
    return *tenth;
}

std::vector<Line> countries() {
    std::vector<Line> lines;
    const qelview::Scene scene = readWhole(viewerData() / "maps" / "ne_110m_admin_0_countries.geojson");
    for (const qelview::Polygon& polygon : scene.polygons) {
        for (const auto& ring : polygon.rings) {
            lines.push_back({ring});
        }
    }
    return lines;
}

/// Time of an undisturbed redraw by the display over that by hand. They take turns, and each goes first in
/// turn, so that nothing outside touches one alone.
template <class DisplayDraw, class HandDraw>
double ratioOfOneRun(const DisplayDraw& byDisplay, const HandDraw& byHand) {
    std::vector<double> display;
    std::vector<double> hand;
    for (int redraw = 0; redraw < kRedraws; ++redraw) {
        if (redraw % 2 == 0) {
            display.push_back(secondsOf(byDisplay));
        }
        hand.push_back(secondsOf(byHand));
        if (redraw % 2 != 0) {
            display.push_back(secondsOf(byDisplay));
        }
    }
    const double ratio = undisturbed(display) / undisturbed(hand);
    std::printf("             a redraw takes %.2f ms by the display, %.2f ms by hand: ratio %.3f\n",
                undisturbed(display) * 1e3, undisturbed(hand) * 1e3, ratio);
    return ratio;
}

TEST(GdiDisplaySpeed, OfSixtyRedrawsOfTheCountriesIsThatOfTheSameCallsByHand) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const std::vector<Line> lines = countries();
    TestWindow window(kWidth, kHeight);
    window.show();
    const HeldGdiDisplay display;
    display->attachWindow(number32(window.hwnd()));
    display->setViewExtent({-180, -96, 180, 96});
    HDC const dc = reinterpret_cast<HDC>(window.dc());
    const ByHand map(display->getViewExtent());
    drawByDisplay(display, lines);
    drawByHand(dc, map, lines);

    double ratio = 0.0;
    for (int run = 0; run < kRuns; ++run) {
        ratio = ratioOfOneRun([&] { drawByDisplay(display, lines); }, [&] { drawByHand(dc, map, lines); });
        if (ratio <= kLargestRatio) {
            break;
        }
    }
    EXPECT_LE(ratio, kLargestRatio);
}

}  // namespace
}  // namespace qel::test
