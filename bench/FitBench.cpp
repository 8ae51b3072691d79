#include <memory>

#include "AllBenches.h"
#include "CameraByHand.h"

/// The camera fitted to a box, quickly and precisely. The bare forms make the calls without the arithmetic
/// between them.

namespace qel::bench {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;

struct FitScene {
    Rig rig{kWidth, kHeight};
    BareView view{rig};
    Enve3d box{-0.5, 0.5, -0.4, 0.4, -0.3, 0.3};
};

void measureSphere(BareView& view) {
    readMatrices(view);
    const double depth = projected(view, view.target).z;
    unProjected(view, 0.0, 0.0, depth);
    unProjected(view, 0.0, view.width, depth);
}

void fitQuicklyByHand(BareView& view) {
    makeCurrent(view);
    loadCamera(view);
    measureSphere(view);
}

void fitPreciselyByHand(BareView& view) {
    makeCurrent(view);
    readMatrices(view);
    glGetIntegerv(GL_VIEWPORT, view.viewport);
    constexpr int kCenterAndCorners = 9;
    for (int i = 0; i < kCenterAndCorners; ++i) {
        projected(view, view.target);
    }
    for (int corner = 0; corner < 3; ++corner) {
        unProjected(view, 0.0, 0.0, 0.5);
    }
    loadCamera(view);
    measureSphere(view);
}

Forms fitForms(bool precise) {
    const auto scene = std::make_shared<FitScene>();
    Forms forms;
    forms.module = repeated([scene, precise] { scene->rig.camera().zoomToExtent(scene->box, precise); });
    forms.bare = precise ? repeated([scene] { fitPreciselyByHand(scene->view); })
                         : repeated([scene] { fitQuicklyByHand(scene->view); });
    return forms;
}

}  // namespace

void addFitBenches(Operations& all) {
    all.push_back({"zoomToExtent, quick", "call", Kind::Fit, [](Size) { return fitForms(false); },
                   Likeness::SameNames});
    all.push_back({"zoomToExtent, precise", "call", Kind::Fit, [](Size) { return fitForms(true); },
                   Likeness::SameNames});
}

}  // namespace qel::bench
