#include <algorithm>
#include <array>

#include "SixAxisReports.h"
#include "ViewerWindow.h"

/// The camera of the viewer window by keys and by six-axis controllers.

namespace qelview {

namespace {

struct Direction {
    double right;
    double up;
};

/// As the commands number them.
constexpr std::array<Direction, 4> kDirections{{{-1.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}, {0.0, -1.0}}};

}  // namespace

void ViewerWindow::moveByKey(const KeyCommand& wanted) {
    const auto width = static_cast<int>(stage->camera().getWidth());
    const auto height = static_cast<int>(stage->camera().getHeight());
    if (wanted.command == Command::Zoom) {
        refresh();
        stage->zoom(wanted.number == 0 ? 1.0 : -1.0, {width / 2, height / 2});
    } else {
        // A share of the view, so that a key does the same in every window.
        constexpr double kShareOfAStep = 0.05;
        const Direction& direction =
            kDirections.at(std::min<std::size_t>(wanted.number, kDirections.size() - 1));
        const double pixels = kShareOfAStep * std::min(width, height);
        MotionStep step{};
        const std::size_t first = wanted.command == Command::Pan ? 0 : 3;
        step.at(first) = pixels * direction.right;
        step.at(first + 1) = pixels * direction.up;
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
