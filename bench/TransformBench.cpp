#include <memory>

#include "AllBenches.h"
#include "CQelTransform2d.h"
#include "FrameByHand.h"

/// The transform of planar views: what loads it, and its way between model and window.

namespace qel::bench {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr double kDepthMargin = 3000.0;
constexpr double kUnitsPerPixel = 0.01;

struct PlanarScene {
    PlanarScene() {
        const Enve3d model{10.0, 10.0 + kWidth * kUnitsPerPixel, 20.0, 20.0 + kHeight * kUnitsPerPixel, 0.0,
                           5.0};
        transform->setModelExtent(model);
        transform->setViewExtent(model);
        transform->setDeviceExtent({0.0, kWidth, 0.0, kHeight, 0.0, 0.0});
        transform->resizeViewport();
    }

    Rig rig{kWidth, kHeight};
    ref_ptr<CQelTransform2d> transform{new CQelTransform2d()};
    /// What the transform answers; kept, so that no result is left out by the compiler.
    double sum = 0.0;
};

struct Matrices {
    GLdouble projection[16] = {};
    GLdouble modelview[16] = {};
    GLint viewport[4] = {};

    Matrices() {
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
        glGetIntegerv(GL_VIEWPORT, viewport);
    }
};

void projectionByHand() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, kWidth * kUnitsPerPixel, 0.0, kHeight * kUnitsPerPixel, 5.0 + kDepthMargin, -kDepthMargin);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void worldToDeviceByHand(PlanarScene& scene, const XPnt3d& point) {
    const Matrices current;
    XPnt3d window;
    gluProject(point.x - 10.0, point.y - 20.0, point.z, current.modelview, current.projection,
               current.viewport, &window.x, &window.y, &window.z);
    scene.sum += static_cast<int>(window.x) + static_cast<int>(window.y);
}

void deviceToWorldByHand(PlanarScene& scene, int x, int y) {
    const int row = kHeight - y;
    float depth = 1.0F;
    packed([&] { glReadPixels(x, row, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth); });
    const Matrices current;
    XPnt3d point;
    gluUnProject(x, row, 0.0, current.modelview, current.projection, current.viewport, &point.x, &point.y,
                 &point.z);
    scene.sum += point.x + 10.0 + static_cast<double>(depth);
}

void addPlanar(Operations& all, const char* name, Kind kind, void (*module)(PlanarScene&),
               void (*bare)(PlanarScene&)) {
    const auto prepare = [module, bare](Size) {
        const auto scene = std::make_shared<PlanarScene>();
        Forms forms;
        forms.module = repeated([scene, module] { module(*scene); });
        forms.bare = repeated([scene, bare] { bare(*scene); });
        return forms;
    };
    all.push_back({name, "call", kind, prepare});
}

}  // namespace

void addTransformBenches(Operations& all) {
    addPlanar(
        all, "planar view: applyProjection", Kind::PlanarLoad,
        [](PlanarScene& scene) { scene.transform->applyProjection(); },
        [](PlanarScene&) { projectionByHand(); });
    addPlanar(
        all, "planar view: resizeViewport", Kind::PlanarLoad,
        [](PlanarScene& scene) { scene.transform->resizeViewport(); },
        [](PlanarScene&) {
            glViewport(0, 0, kWidth, kHeight);
            projectionByHand();
        });
    addPlanar(
        all, "planar view: worldToDevice", Kind::Projection,
        [](PlanarScene& scene) {
            std::int32_t x = 0;
            std::int32_t y = 0;
            scene.transform->worldToDevice({12.0, 23.0, 1.0}, &x, &y);
            scene.sum += x + y;
        },
        [](PlanarScene& scene) {
            worldToDeviceByHand(scene, {12.0, 23.0, 1.0});
        });
    addPlanar(
        all, "planar view: deviceToWorld", Kind::Projection,
        [](PlanarScene& scene) {
            XPnt3d point;
            scene.transform->deviceToWorld(200, 300, point);
            scene.sum += point.x;
        },
        [](PlanarScene& scene) { deviceToWorldByHand(scene, 200, 300); });
}

}  // namespace qel::bench
