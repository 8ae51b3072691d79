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
        symbol->drawLine(marks[i - 1].at, marks[i].at, kWidth, kMarkColor, false, false);
    }
    if (marks.size() > 2) {
        symbol->drawStippledLine(marks.back().at, marks.front().at, 1.0, kMarkColor, false, false, kDashes);
    }
}

void Stage::drawMark(const PointMark& mark) {
    constexpr double kReach = 7.0;
    constexpr double kBeside = 12.0;
    const qel::XPnt3d place = camera().projectPnt(mark.at);
    if (place.z <= 0.0 || place.z >= 1.0) {
        return;
    }
    display->setOrtho2D();
    symbol->drawDiagonalCross({place.x, place.y, 0.0}, kReach, 2.0F, kMarkColor, false, false);
    camera().updateView();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl color(kMarkColor);
    camera().drawLabel(mark.at.x, mark.at.y, mark.at.z, kBeside, kBeside * 0.5, "%s", mark.label.c_str());
}

void Stage::drawMeasurement() {
    constexpr double kWidth = 290.0;
    constexpr double kValueColumn = 120.0;
    constexpr double kInset = 12.0;
    if (!notes.isMeasuring || notes.marks.empty()) {
        return;
    }
    const std::vector<MeasurementLine> lines =
        measurementLines(markedPoints(), content.origin, content.up, content.extent.getDiagonal());
    display->setOrtho2D();
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const double left = static_cast<double>(camera().getWidth()) - kMargin - kWidth;
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
