#include <algorithm>

#include "SixAxisReports.h"
#include "ViewerWindow.h"

/// The camera of the viewer window by keys and by six-axis controllers.

namespace qelview {

void ViewerWindow::moveByKey(const KeyCommand& wanted) {
    const auto width = static_cast<int>(stage->camera().getWidth());
    const auto height = static_cast<int>(stage->camera().getHeight());
    if (wanted.command == Command::Zoom) {
        refresh();
        stage->zoom(wanted.number == 0 ? 1.0 : -1.0, {width / 2, height / 2});
    } else {
        // A share of the view, so that a key does the same in every window.
        constexpr double kShareOfAStep = 0.05;
        const double pixels = kShareOfAStep * std::min(width, height);
        const bool isNegative = wanted.number == 0 || wanted.number == 3;
        MotionStep step{};
        const std::size_t axis = (wanted.command == Command::Pan ? 0U : 3U) + (wanted.number < 2 ? 0U : 1U);
        step.at(axis) = isNegative ? -pixels : pixels;
        stage->camera().applyMotion(step.data());
    }
    moved();
}

void ViewerWindow::followReports(const DeviceReports& reports) {
    const std::vector<MotionStep> steps = motionsOf(reports.bytes, reports.bytesOfOne);
    if (steps.empty() || gesture.isActive()) {
        return;
    }
    if (!isMoving) {
        stage->rememberCamera();
    }
    motion.clear();
    for (const MotionStep& step : steps) {
        stage->camera().applyMotion(step.data());
    }
    moved();
}

void ViewerWindow::returnToPreviousCamera() {
    if (!stage->returnToPreviousCamera()) {
        say("There is no earlier camera");
    }
}

}  // namespace qelview
