#include <memory>

#include "AllBenches.h"
#include "CameraByHand.h"

/// One step of the mouse in each kind of drag. The bare forms make the calls of such a step without the
/// arithmetic between them, so their times are no bound: what counts is the module's own cost.

namespace qel::bench {

namespace {

constexpr int kViewWidth = 800;
constexpr int kViewHeight = 600;
constexpr std::int32_t kPan = 1;
constexpr std::int32_t kRotate = 2;
constexpr std::int32_t kZoom = 3;
/// Pixels from where the button went down; back there a rotation would have nothing to compute.
constexpr std::int32_t kNearStep = 8;
constexpr std::int32_t kFarStep = 16;

/// A drag that is under way. Its steps go to and fro, so that the camera stays near where it was.
struct DragScene {
    explicit DragScene(std::int32_t button) { rig.camera().onButtonDown(button, 400, 300); }

    Rig rig{kViewWidth, kViewHeight};
    BareView view{rig};
    std::int32_t at = 0;

    std::int32_t nextStep() {
        at = at == kNearStep ? kFarStep : kNearStep;
        return at;
    }
};

/// What the size of the trackball on the screen is computed from.
void measureSphere(BareView& view) {
    readMatrices(view);
    const double depth = projected(view, view.target).z;
    unProjected(view, 0.0, 0.0, depth);
    unProjected(view, 0.0, view.width, depth);
}

void rotateByHand(BareView& view) {
    readMatrices(view);
    projected(view, view.target);
    loadCamera(view);
}

void panByHand(BareView& view) {
    const double depth = projected(view, view.target).z;
    unProjected(view, 0.0, 0.0, depth);
    unProjected(view, 0.0, view.width, depth);
    loadCamera(view);
    measureSphere(view);
}

void zoomByHand(BareView& view) {
    unProjected(view, 400.0, 300.0, 0.5);
    unProjected(view, 400.0, 300.0, 0.5);
    loadCamera(view);
    measureSphere(view);
}

void addDrag(Operations& all, const char* name, std::int32_t button, void (*byHand)(BareView&)) {
    const auto prepare = [button, byHand](Size) {
        const auto scene = std::make_shared<DragScene>(button);
        Forms forms;
        forms.module = repeated([scene] {
            const std::int32_t step = scene->nextStep();
            scene->rig.camera().onMouseMove(400 + step, 300 + step);
        });
        forms.bare = repeated([scene, byHand] { byHand(scene->view); });
        forms.settle = Rig::finish;
        return forms;
    };
    all.push_back({name, "step", Kind::Drag, prepare, Likeness::SameNames});
}

}  // namespace

void addDragBenches(Operations& all) {
    addDrag(all, "rotation drag step", kRotate, rotateByHand);
    addDrag(all, "pan drag step", kPan, panByHand);
    addDrag(all, "zoom drag step", kZoom, zoomByHand);
}

}  // namespace qel::bench
