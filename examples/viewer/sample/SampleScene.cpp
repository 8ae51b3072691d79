#include "SampleScene.h"

#include <utility>

#include "Knot.h"
#include "Landscape.h"
#include "PointBoxes.h"
#include "Survey.h"

namespace qelview {

namespace {

constexpr LineStyle kContourStyle{{96, 92, 66}, 1.0F};
constexpr LineStyle kIndexContourStyle{{70, 60, 44}, 2.0F};
constexpr qel::QelColor3f kPaleLine{0.78F, 0.82F, 0.88F};

void addKnot(Scene& scene) {
    TriangleMesh knot = makeKnot();
    const qel::Enve3d box = boxOf(knot.positions);
    scene.markers.push_back({.shape = MarkerShape::Box, .box = box, .color = kPaleLine});
    scene.markers.push_back({.shape = MarkerShape::StippledLine,
                             .at = {kKnotCenter.x, kKnotCenter.y, box.zmin},
                             .to = onGround(kKnotCenter.x, kKnotCenter.y),
                             .width = 1.5F});
    scene.labels.push_back({{kKnotCenter.x, kKnotCenter.y, box.zmax + 0.2}, "Trefoil"});
    scene.meshes.push_back(std::move(knot));
}

/// A ring with a cross, and a line to the north, next to the block.
void addCompass(Scene& scene) {
    const qel::XPnt3d middle(14.2, -7.0, 0.0);
    for (const auto& [shape, size] :
         {std::pair(MarkerShape::Circle, 1.2), std::pair(MarkerShape::DiagonalCross, 0.4)}) {
        scene.markers.push_back(
            {.shape = shape, .at = middle, .size = size, .color = kPaleLine, .width = 1.5F});
    }
    const qel::XPnt3d north = middle + qel::XPnt3d(0.0, 1.8, 0.0);
    scene.segments.push_back({middle, north, {{200, 210, 224}, 2.0F}});
    scene.labels.push_back({north, "N"});
}

}  // namespace

Scene makeSampleScene() {
    Scene scene;
    scene.title = "Sample scene";
    scene.meshes.push_back(makeGround());
    scene.meshes.push_back(makeBlockSides());
    scene.polylines.push_back({makeContours(false), kContourStyle});
    scene.polylines.push_back({makeContours(true), kIndexContourStyle});
    addKnot(scene);
    addScannedWood(scene);
    addStations(scene);
    addOutlines(scene);
    addCompass(scene);
    return scene;
}

}  // namespace qelview
