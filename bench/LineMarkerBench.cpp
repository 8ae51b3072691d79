#include <cmath>

#include "AllBenches.h"
#include "MarkerRig.h"

/// Markers of lines and rectangles.

namespace qel::bench {

using namespace markers;

namespace {

void crossByHand(double alongX, double alongY, bool isDiagonal) {
    const auto [x, y, z] = kCenter.Copy();
    primitive(GL_LINES, [&, x = x, y = y, z = z] {
        glVertex3d(x - alongX, isDiagonal ? y - alongY : y, z);
        glVertex3d(x + alongX, isDiagonal ? y + alongY : y, z);
        glVertex3d(isDiagonal ? x - alongX : x, y + (isDiagonal ? alongY : -alongY), z);
        glVertex3d(isDiagonal ? x + alongX : x, y + (isDiagonal ? -alongY : alongY), z);
        glVertex3d(x, y, z - kReach);
        glVertex3d(x, y, z + kReach);
    });
}

void boxByHand(const Enve3d& box) {
    const Enve2d rect = box.getEnve2d();
    rectLoop(rect, box.zmin);
    rectLoop(rect, box.zmax);
    uprightEdge(box.xmin, box.ymin, box);
    uprightEdge(box.xmax, box.ymin, box);
    uprightEdge(box.xmax, box.ymax, box);
    uprightEdge(box.xmin, box.ymax, box);
}

void filledRectByHand(const Enve2d& rect) {
    const float oldWidth = widened(kWidth);
    const bool wasLit = switched(GL_LIGHTING, false);
    const bool wasTested = switched(GL_DEPTH_TEST, false);
    const KeptColor beforeOutline = coloured(kColor);
    rectLoop(rect, 0.0);
    colourBack(beforeOutline);
    const KeptColor beforeFill = coloured(kFill);
    primitive(GL_QUADS, [&] {
        glVertex3d(rect.xmin, rect.ymin, 0.0);
        glVertex3d(rect.xmax, rect.ymin, 0.0);
        glVertex3d(rect.xmax, rect.ymax, 0.0);
        glVertex3d(rect.xmin, rect.ymax, 0.0);
    });
    colourBack(beforeFill);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
    glLineWidth(oldWidth);
}

void segmentFrameByHand() {
    constexpr double kDistance = 0.7071;
    XPnt3d along = kEnd - kCenter;
    along.z = 0.0;
    along.normalize() *= kDistance;
    const XPnt3d across(along.y, -along.x, 0.0);
    primitive(GL_LINE_LOOP, [&] {
        vertexAt(kCenter - along - across);
        vertexAt(kCenter - along + across);
        vertexAt(kEnd + along + across);
        vertexAt(kEnd + along - across);
    });
}

/// The directions of a circle's vertices, which never change.
struct CircleTable {
    static constexpr int kVertices = 22;
    double sines[kVertices] = {};
    double cosines[kVertices] = {};

    CircleTable() {
        float angle = 0.0F;
        for (int i = 0; i < kVertices; ++i) {
            sines[i] = std::sin(static_cast<double>(angle));
            cosines[i] = std::cos(static_cast<double>(angle));
            angle += 0.3F;
        }
    }
};

void circleByHand(const CircleTable& table) {
    primitive(GL_LINE_STRIP, [&] {
        for (int i = 0; i < CircleTable::kVertices; ++i) {
            glVertex3f(static_cast<float>(table.sines[i] * kReach + kCenter.x),
                       static_cast<float>(table.cosines[i] * kReach + kCenter.y), 0.0F);
        }
    });
}

void addLineMarkers(Operations& all) {
    addMarker(
        all, "drawLine",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawLine(kCenter, kEnd, 1.0, kColor, false, true);
        },
        [](const MarkerScene&) {
            asLines(kColor, kWidth, false, true, [] {
                primitive(GL_LINES, [] {
                    vertexAt(kCenter);
                    vertexAt(kEnd);
                });
            });
        });
    addMarker(
        all, "drawStippledLine",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawStippledLine(kCenter, kEnd, 1.0, kColor, false, true, kPattern);
        },
        [](const MarkerScene&) {
            asLines(kColor, kWidth, false, true, [] {
                glEnable(GL_LINE_STIPPLE);
                glLineStipple(1, kPattern);
                primitive(GL_LINES, [] {
                    vertexAt(kCenter);
                    vertexAt(kEnd);
                });
                glDisable(GL_LINE_STIPPLE);
            });
        });
    addMarker(
        all, "drawStippledPolyline, 4 points",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawStippledPolyline(scene.array, 1.0, kColor, false, true, kPattern);
        },
        [](const MarkerScene& scene) {
            asLines(kColor, kWidth, false, true, [&] {
                glLineStipple(1, kPattern);
                primitive(GL_LINE_STRIP, [&] {
                    for (const XPnt3d& point : scene.points) {
                        vertexAt(point);
                    }
                });
            });
        });
    addMarker(
        all, "drawStippledLoop, 4 points",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawStippledLoop(scene.array, 1.0, kColor, false, true, kPattern);
        },
        [](const MarkerScene& scene) {
            asLines(kColor, kWidth, false, true, [&] {
                glLineStipple(1, kPattern);
                primitive(GL_LINE_LOOP, [&] {
                    for (const XPnt3d& point : scene.points) {
                        vertexAt(point);
                    }
                });
            });
        });
    addMarker(
        all, "drawTriangleOutline",
        [](IQelSymbol& symbol, const MarkerScene& scene) { symbol.drawTriangleOutline(&scene.triangle); },
        [](const MarkerScene& scene) {
            primitive(GL_LINES, [&] {
                for (const int corner : {0, 1, 1, 2, 2, 0}) {
                    vertexAt(scene.points[static_cast<std::size_t>(corner)]);
                }
            });
        });
}

void addCrosses(Operations& all) {
    addMarker(
        all, "drawCross",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawCross(kCenter, kReach, kWidth, kColor, false, true);
        },
        [](const MarkerScene&) {
            asLines(kColor, kWidth, false, true, [] { crossByHand(kReach, kReach, false); });
        });
    addMarker(
        all, "drawDiagonalCross",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawDiagonalCross(kCenter, kReach, kWidth, kColor, false, true);
        },
        [](const MarkerScene&) {
            constexpr double kDiagonal = kReach * 0.7071;
            asLines(kColor, kWidth, false, true, [] { crossByHand(kDiagonal, kDiagonal, true); });
        });
}

void addRectangles(Operations& all) {
    addMarker(
        all, "drawSquare",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawSquare(kCenter, kReach, 1.0, kColor, false, true);
        },
        [](const MarkerScene&) {
            asLines(kColor, kWidth, false, true, [] {
                const auto [x, y, z] = kCenter.Copy();
                primitive(GL_LINE_LOOP, [x = x, y = y, z = z] {
                    glVertex3d(x - kReach, y - kReach, z);
                    glVertex3d(x + kReach, y - kReach, z);
                    glVertex3d(x + kReach, y + kReach, z);
                    glVertex3d(x - kReach, y + kReach, z);
                });
            });
        });
    addMarker(
        all, "drawRect2d",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawRect2d(scene.rect, 1.0, kColor, false, true);
        },
        [](const MarkerScene& scene) {
            asLines(kColor, kWidth, false, true, [&] { rectLoop(scene.rect, 0.0); });
        });
    addMarker(
        all, "drawEnvelopeOutline",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawEnvelopeOutline(scene.box, 1.0, kColor, false, true);
        },
        [](const MarkerScene& scene) {
            asLines(kColor, kWidth, false, true, [&] { rectLoop(scene.box.getEnve2d(), 0.0); });
        });
    addMarker(
        all, "drawBox",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawBox(scene.box, 1.0, kColor, false, true);
        },
        [](const MarkerScene& scene) {
            asLines(kColor, kWidth, false, true, [&] { boxByHand(scene.box); });
        });
    addMarker(
        all, "drawFilledRect2d",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawFilledRect2d(scene.rect, kWidth, kColor, kFill, false, false);
        },
        [](const MarkerScene& scene) { filledRectByHand(scene.rect); });
    addMarker(
        all, "drawSegmentFrame",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawSegmentFrame(kCenter, kEnd, 0.0, kWidth, kColor, false, true);
        },
        [](const MarkerScene&) { asLines(kColor, kWidth, false, true, segmentFrameByHand); });
    const CircleTable table;
    addMarker(
        all, "drawCircle",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawCircle(kCenter, kReach, kWidth, kColor, false, true);
        },
        [table](const MarkerScene&) { asLines(kColor, kWidth, false, true, [&] { circleByHand(table); }); });
}

}  // namespace

void addLineMarkerBenches(Operations& all) {
    addLineMarkers(all);
    addCrosses(all);
    addRectangles(all);
}

}  // namespace qel::bench
