#include <algorithm>
#include <iterator>

#include "Measurement.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"
#include "TextPlaces.h"

/// Marked points, the path through them, and what they measure.

namespace qelview {

namespace {

constexpr qel::QelColor3f kMarkColor{1.0F, 0.85F, 0.25F};
constexpr std::uint16_t kDashes = 0xF0F0;

}  // namespace

Points Stage::markedPoints() const {
    Points points;
    std::transform(notes.marks.begin(), notes.marks.end(), std::back_inserter(points),
                   [](const PointMark& mark) { return mark.at; });
    return points;
}

std::string Stage::measurementTable() const {
    return qelview::measurementTable(markedPoints(), content.origin, content.up);
}

void Stage::drawMarks() {
    drawPath();
    for (const PointMark& mark : notes.marks) {
        drawMark(mark);
    }
    drawMeasurement();
}

void Stage::drawPath() {
    constexpr double kWidth = 1.5;
    const std::vector<PointMark>& marks = notes.marks;
    camera().updateView();
    for (std::size_t i = 1; i < marks.size(); ++i) {
        symbol->drawLine(marks[i - 1].at, marks[i].at, kWidth * unit(), kMarkColor, false, false);
    }
    if (marks.size() > 2) {
        symbol->drawStippledLine(marks.back().at, marks.front().at, unit(), kMarkColor, false, false,
                                 kDashes);
    }
}

void Stage::drawMark(const PointMark& mark) {
    constexpr double kReach = 7.0;
    constexpr double kBeside = 12.0;
    const qel::XPnt3d place = camera().projectPnt(mark.at);
    if (place.z <= 0.0 || place.z >= 1.0) {
        return;
    }
    const qel::XPnt3d at = inLayout(place);
    beginLayout();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    symbol->drawDiagonalCross({at.x, at.y, 0.0}, kReach, static_cast<float>(2.0 * unit()), kMarkColor, false,
                              false);
    const QelTmpGlStateCtrl color(kMarkColor);
    printAt(at.x + kBeside, at.y + kBeside * 0.5, mark.label);
    camera().updateView();
}

void Stage::drawMeasurement() {
    constexpr double kWidth = 230.0;
    constexpr double kValueColumn = 90.0;
    constexpr double kInset = 12.0;
    if (!notes.isMeasuring || notes.marks.empty()) {
        return;
    }
    const std::vector<MeasurementLine> lines =
        measurementLines(markedPoints(), content.origin, content.up, content.extent.getDiagonal());
    beginLayout();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const double left = layoutWidth() - kMargin - kWidth;
    const double bottom = kStripHeight + kMargin * 0.5;
    const double top = bottom + (static_cast<double>(lines.size()) + 0.6) * kLineHeight;
    drawPlate(left, bottom, left + kWidth, top);
    const QelTmpGlStateCtrl color(kMarkColor);
    double y = top - kLineHeight;
    for (const MeasurementLine& line : lines) {
        printAt(left + kInset, y, line.name);
        printAt(left + kValueColumn, y, line.value);
        y -= kLineHeight;
    }
}

}  // namespace qelview
