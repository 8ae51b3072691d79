#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <utility>

#include "AllBenches.h"
#include "HostScene.h"
#include "QelGl.h"
#include "QelHostKit.h"
#include "Rig.h"
#include "SpatialParts.h"

/// Large scenes of the viewer, which asks the camera for the parts in view: in place of the module and the bare
/// calls stand a frame with this and one without, and a frame with a hundredth in view and one with everything.

namespace qel::bench {

namespace {

/// In a large view the pixels cost more than the triangles of a hundredth.
constexpr int kSidePx = 400;
constexpr std::uint32_t kQuadsOfASide = 1000;
constexpr std::size_t kPoints = 10'000'000;
constexpr std::uint32_t kFewQuads = 60;
constexpr std::size_t kFewPoints = 10'000;
/// The terrain, two units wide, fills the view.
constexpr double kDistance = 2.6;
/// Of the height and of the width.
constexpr double kShareInView = 0.1;

double heightAt(double x, double y) {
    return 0.02 * std::sin(9.0 * x) * std::cos(7.0 * y);
}

qelview::Scene terrain(std::uint32_t quads) {
    qelview::TriangleMesh mesh;
    for (std::uint32_t row = 0; row <= quads; ++row) {
        for (std::uint32_t column = 0; column <= quads; ++column) {
            const double x = 2.0 * column / quads - 1.0;
            const double y = 2.0 * row / quads - 1.0;
            mesh.positions.emplace_back(x, y, heightAt(x, y));
            mesh.normals.emplace_back(0.0F, 0.0F, 1.0F);
            if (row < quads && column < quads) {
                const std::uint32_t corner = row * (quads + 1) + column;
                const std::uint32_t above = corner + quads + 1;
                mesh.indices.insert(mesh.indices.end(),
                                    {corner, corner + 1, above + 1, corner, above + 1, above});
            }
        }
    }
    sortIntoParts(mesh);
    qelview::Scene scene;
    scene.meshes.push_back(std::move(mesh));
    return scene;
}

qelview::Scene scan(std::size_t points) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-1.0, 1.0);
    qelview::PointCloud cloud;
    cloud.size = 1.0F;
    for (std::size_t i = 0; i < points; ++i) {
        const double x = place(random);
        const double y = place(random);
        cloud.positions.emplace_back(x, y, heightAt(x, y));
        const auto shade = static_cast<std::uint8_t>(i % 251);
        cloud.colors.emplace_back(shade, shade, shade);
    }
    sortIntoParts(cloud);
    qelview::Scene scene;
    scene.clouds.push_back(std::move(cloud));
    return scene;
}

struct PartedScene {
    explicit PartedScene(qelview::Scene scene) : drawn(std::move(scene)) {}

    void frame(double distance, bool inParts) {
        IQelTrackBall& camera = rig.camera();
        // Beside the middle, where parts meet.
        const XPnt3d target(0.1, 0.1, 0.0);
        camera.setCamera(target * (distance < kDistance ? 1.0 : 0.0) + XPnt3d(0.0, 0.0, distance),
                         target * (distance < kDistance ? 1.0 : 0.0), {0.0, 1.0, 0.0});
        fitClippingPlanes(camera, modelExtent());
        IQelDisplay& display = rig.display();
        display.updateView();
        display.beginFrame(0);
        display.beginDraw();
        display.getGL()->enable(GL_DEPTH_TEST);
        qelview::DrawingDetail detail;
        detail.camera = inParts ? &camera : nullptr;
        drawn.draw(rig.symbol(), qelview::pixelViewOf(camera), kept, detail);
        display.endDraw();
        display.finishFrame();
        Rig::finish();
    }

    Rig rig{kSidePx, kSidePx};
    qelview::HostView kept;
    qelview::HostScene drawn;
};

using MakeScene = qelview::Scene (*)(Size);

qelview::Scene mesh(Size size) {
    return terrain(size == Size::Full ? kQuadsOfASide : kFewQuads);
}

qelview::Scene cloud(Size size) {
    return scan(size == Size::Full ? kPoints : kFewPoints);
}

Forms withAndWithoutParts(MakeScene make, Size size) {
    const auto scene = std::make_shared<PartedScene>(make(size));
    Forms forms;
    forms.hasOwnCost = false;
    forms.module = repeated([scene] { scene->frame(kDistance, true); });
    forms.bare = repeated([scene] { scene->frame(kDistance, false); });
    return forms;
}

Forms nearAndWhole(MakeScene make, Size size) {
    const auto scene = std::make_shared<PartedScene>(make(size));
    Forms forms;
    forms.hasOwnCost = false;
    forms.module = repeated([scene] { scene->frame(kDistance * kShareInView, true); });
    forms.bare = repeated([scene] { scene->frame(kDistance, true); });
    return forms;
}

}  // namespace

void addSceneBenches(Operations& all) {
    for (const auto& [what, make] : {std::pair<const char*, MakeScene>("2,000,000 triangles", mesh),
                                     std::pair<const char*, MakeScene>("10,000,000 points", cloud)}) {
        const auto add = [&all, text = std::string(what)](const char* view, Kind kind, auto prepare) {
            all.push_back({"viewer: " + text + ", " + view, "frame", kind, prepare, false});
        };
        add("all in view, in parts / not in parts", Kind::SceneInParts,
            [make = make](Size size) { return withAndWithoutParts(make, size); });
        add("a hundredth in view / all", Kind::SceneInView,
            [make = make](Size size) { return nearAndWhole(make, size); });
    }
}

}  // namespace qel::bench
