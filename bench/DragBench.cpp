#include <memory>

#include "AllBenches.h"
#include "Rig.h"

/// One step of the mouse in each kind of drag, and the camera fitted to a box.

namespace qel::bench {

namespace {

constexpr int kViewWidth = 800;
constexpr int kViewHeight = 600;
/// Pixels from where the button went down; back there a rotation would have nothing to compute.
constexpr std::int32_t kNearStep = 8;
constexpr std::int32_t kFarStep = 16;

/// A drag that is under way. Its steps go to and fro, so that the camera stays near where it was.
struct DragScene {
    explicit DragScene(std::int32_t button) { rig.camera().onButtonDown(button, 400, 300); }

    Rig rig{kViewWidth, kViewHeight};
    std::int32_t at = 0;

    std::int32_t nextStep() {
        at = at == kNearStep ? kFarStep : kNearStep;
        return at;
    }
};

void addDrag(Operations& all, const char* name, std::int32_t button) {
    const auto prepare = [button](Size) {
        const auto scene = std::make_shared<DragScene>(button);
        Forms forms;
        forms.module = repeated([scene] {
            const std::int32_t step = scene->nextStep();
            scene->rig.camera().onMouseMove(400 + step, 300 + step);
        });
        return forms;
    };
    all.push_back({name, "step", Kind::Drag, prepare});
}

void addFit(Operations& all, const char* name, bool precise) {
    const auto prepare = [precise](Size) {
        const auto rig = std::make_shared<const Rig>(kViewWidth, kViewHeight);
        const Enve3d box{-0.5, 0.5, -0.4, 0.4, -0.3, 0.3};
        Forms forms;
        forms.module = repeated([rig, box, precise] { rig->camera().zoomToExtent(box, precise); });
        return forms;
    };
    all.push_back({name, "call", Kind::Fit, prepare});
}

}  // namespace

void addDragBenches(Operations& all) {
    addDrag(all, "rotation drag step", DragRotate);
    addDrag(all, "pan drag step", DragPan);
    addDrag(all, "zoom drag step", DragZoom);
    addFit(all, "zoomToExtent, quick", false);
    addFit(all, "zoomToExtent, precise", true);
}

}  // namespace qel::bench
