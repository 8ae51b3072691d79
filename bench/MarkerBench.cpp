#include <array>
#include <memory>

#include "AllBenches.h"
#include "ByHand.h"
#include "HostModels.h"
#include "Rig.h"

/// Markers: small in the middle of a small view, so that the calls are what takes time. A line is compared
/// with the calls by hand; of the others, which make the same calls around other vertices, only the own cost
/// counts.

namespace qel::bench {

namespace {

constexpr int kViewPx = 64;
constexpr float kWidth = 1.0F;
constexpr float kPointSize = 2.0F;
constexpr double kReach = 0.05;
constexpr std::uint16_t kPattern = 0x0F0F;
constexpr std::int32_t kPoints = 4;
const QelColor3f kColor(1.0F, 0.5F, 0.0F);
const QelColor3f kFill(0.2F, 0.2F, 0.9F);
const XPnt3d kCenter(0.1, 0.05, 0.2);
const XPnt3d kEnd(0.2, -0.05, 0.1);

struct MarkerScene {
    Rig rig{kViewPx, kViewPx};
    Enve2d rect{-0.1, -0.05, 0.1, 0.05};
    Enve3d box{-0.1, 0.1, -0.05, 0.05, -0.1, 0.1};
    std::array<XPnt3d, kPoints> points{kCenter, kEnd, {0.0, 0.1, 0.0}, {0.1, 0.1, 0.1}};
    float coordinates[kPoints][3] = {
        {0.1F, 0.05F, 0.2F}, {0.2F, -0.05F, 0.1F}, {0.0F, 0.1F, 0.0F}, {0.1F, 0.1F, 0.1F}};
    const float* pointers[kPoints] = {coordinates[0], coordinates[1], coordinates[2], coordinates[3]};
    TrianglePoints triangle{&points[0], &points[1], &points[2]};
    HeldArray<XPnt3d> array = lend<XPnt3d>({points.begin(), points.end()});
};

struct Marker {
    const char* name;
    void (*draw)(IQelSymbol& symbol, const MarkerScene& scene);
    void (*byHand)() = nullptr;
};

void drawLineByHand() {
    asLines(kColor, kWidth, false, true, [] {
        glBegin(GL_LINES);
        vertexAt(kCenter);
        vertexAt(kEnd);
        glEnd();
    });
}

constexpr Marker kMarkers[] = {
    {"drawLine",
     [](IQelSymbol& symbol, const MarkerScene&) { symbol.drawLine(kCenter, kEnd, 1.0, kColor, false, true); },
     drawLineByHand},
    {"drawStippledLine",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawStippledLine(kCenter, kEnd, 1.0, kColor, false, true, kPattern);
     }},
    {"drawStippledPolyline, 4 points",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawStippledPolyline(scene.array, 1.0, kColor, false, true, kPattern);
     }},
    {"drawStippledLoop, 4 points",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawStippledLoop(scene.array, 1.0, kColor, false, true, kPattern);
     }},
    {"drawTriangleOutline",
     [](IQelSymbol& symbol, const MarkerScene& scene) { symbol.drawTriangleOutline(&scene.triangle); }},
    {"drawCross", [](IQelSymbol& symbol,
                     const MarkerScene&) { symbol.drawCross(kCenter, kReach, kWidth, kColor, false, true); }},
    {"drawDiagonalCross",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawDiagonalCross(kCenter, kReach, kWidth, kColor, false, true);
     }},
    {"drawSquare", [](IQelSymbol& symbol,
                      const MarkerScene&) { symbol.drawSquare(kCenter, kReach, 1.0, kColor, false, true); }},
    {"drawRect2d", [](IQelSymbol& symbol,
                      const MarkerScene& scene) { symbol.drawRect2d(scene.rect, 1.0, kColor, false, true); }},
    {"drawEnvelopeOutline",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawEnvelopeOutline(scene.box, 1.0, kColor, false, true);
     }},
    {"drawBox", [](IQelSymbol& symbol,
                   const MarkerScene& scene) { symbol.drawBox(scene.box, 1.0, kColor, false, true); }},
    {"drawFilledRect2d",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawFilledRect2d(scene.rect, kWidth, kColor, kFill, false, false);
     }},
    {"drawSegmentFrame",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawSegmentFrame(kCenter, kEnd, 0.0, kWidth, kColor, false, true);
     }},
    {"drawCircle",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawCircle(kCenter, kReach, kWidth, kColor, false, true);
     }},
    {"drawPoint",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawPoint(kCenter.x, kCenter.y, kCenter.z, kPointSize, kColor, false, true);
     }},
    {"drawPointF",
     [](IQelSymbol& symbol, const MarkerScene&) {
         symbol.drawPointF(0.1F, 0.2F, 0.3F, kPointSize, kColor, false, true);
     }},
    {"drawPoints, 4 points",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawPoints(scene.points.data(), kPoints, static_cast<double>(kPointSize), kColor, false,
                           true);
     }},
    {"drawPointsF, 4 points",
     [](IQelSymbol& symbol, const MarkerScene& scene) {
         symbol.drawPointsF(scene.pointers, kPoints, static_cast<double>(kPointSize), kColor, false, true);
     }},
};

Forms formsOf(const Marker& marker) {
    const auto scene = std::make_shared<const MarkerScene>();
    Forms forms;
    forms.module = repeated([scene, draw = marker.draw] { draw(scene->rig.symbol(), *scene); });
    if (marker.byHand != nullptr) {
        forms.bare = repeated([scene, byHand = marker.byHand] { byHand(); });
    }
    forms.settle = Rig::finish;
    return forms;
}

}  // namespace

void addMarkerBenches(Operations& all) {
    for (const Marker& marker : kMarkers) {
        all.push_back({marker.name, "call", Kind::Marker, [marker](Size) { return formsOf(marker); }});
    }
}

}  // namespace qel::bench
