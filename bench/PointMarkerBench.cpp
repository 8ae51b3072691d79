#include "AllBenches.h"
#include "MarkerRig.h"

/// Markers of points.

namespace qel::bench {

using namespace markers;

void addPointMarkerBenches(Operations& all) {
    addMarker(
        all, "drawPoint",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawPoint(kCenter.x, kCenter.y, kCenter.z, kPointSize, kColor, false, true);
        },
        [](const MarkerScene&) {
            asPoints(kColor, kPointSize, false, true, [] {
                primitive(GL_POINTS, [] {
                    glVertex3f(static_cast<float>(kCenter.x), static_cast<float>(kCenter.y),
                               static_cast<float>(kCenter.z));
                });
            });
        });
    addMarker(
        all, "drawPointF",
        [](IQelSymbol& symbol, const MarkerScene&) {
            symbol.drawPointF(0.1F, 0.2F, 0.3F, kPointSize, kColor, false, true);
        },
        [](const MarkerScene&) {
            asPoints(kColor, kPointSize, false, true,
                     [] { primitive(GL_POINTS, [] { glVertex3f(0.1F, 0.2F, 0.3F); }); });
        });
    addMarker(
        all, "drawPoints, 4 points",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawPoints(scene.points.data(), kPoints, static_cast<double>(kPointSize), kColor, false,
                              true);
        },
        [](const MarkerScene& scene) {
            asPoints(kColor, kPointSize, false, true, [&] {
                primitive(GL_POINTS, [&] {
                    for (const XPnt3d& point : scene.points) {
                        vertexAt(point);
                    }
                });
            });
        });
    addMarker(
        all, "drawPointsF, 4 points",
        [](IQelSymbol& symbol, const MarkerScene& scene) {
            symbol.drawPointsF(scene.pointers, kPoints, static_cast<double>(kPointSize), kColor, false, true);
        },
        [](const MarkerScene& scene) {
            asPoints(kColor, kPointSize, false, true, [&] {
                primitive(GL_POINTS, [&] {
                    for (const float* point : scene.pointers) {
                        glVertex3f(point[0], point[1], point[2]);
                    }
                });
            });
        });
}

}  // namespace qel::bench
