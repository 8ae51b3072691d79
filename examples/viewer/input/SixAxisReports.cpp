#include "SixAxisReports.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace qelview {

namespace {

constexpr std::uint8_t kTranslations = 1;
constexpr std::uint8_t kRotations = 2;
constexpr std::size_t kBytesOfThree = 6;
/// What a cap gives that is pressed to its end; some devices go farther.
constexpr int kFull = 350;
/// A cap at rest trembles.
constexpr int kAtRest = 3;
/// For a report of a cap pressed to its end.
constexpr double kPixels = 12.0;

/// An axis from -1 to 1, 0 at rest.
double axisAt(std::span<const std::uint8_t> bytes, std::size_t axis) {
    const auto word = static_cast<std::uint16_t>(bytes[2 * axis] | (bytes[2 * axis + 1] << 8));
    const int value = static_cast<std::int16_t>(word);
    return std::abs(value) <= kAtRest ? 0.0 : std::clamp(static_cast<double>(value) / kFull, -1.0, 1.0);
}

void addTranslations(MotionStep& step, std::span<const std::uint8_t> bytes) {
    step[0] = kPixels * axisAt(bytes, 0);
    // Down and towards the user are positive on the device.
    step[1] = -kPixels * axisAt(bytes, 2);
    step[2] = axisAt(bytes, 1);
}

void addRotations(MotionStep& step, std::span<const std::uint8_t> bytes) {
    // Twisted about the axis downwards, the side that faces the user goes to the left; tilted about the one to the right, it goes down.
    step[3] = -kPixels * axisAt(bytes, 2);
    step[4] = -kPixels * axisAt(bytes, 0);
    step[5] = kPixels * axisAt(bytes, 1);
}

MotionStep motionOf(std::span<const std::uint8_t> report) {
    MotionStep step{};
    const std::span<const std::uint8_t> axes = report.subspan(1);
    if (report[0] == kTranslations && axes.size() >= kBytesOfThree) {
        addTranslations(step, axes);
        if (axes.size() >= 2 * kBytesOfThree) {
            addRotations(step, axes.subspan(kBytesOfThree));
        }
    } else if (report[0] == kRotations && axes.size() >= kBytesOfThree) {
        addRotations(step, axes);
    }
    return step;
}

}  // namespace

std::vector<MotionStep> motionsOf(std::span<const std::uint8_t> reports, std::size_t bytesOfOne) {
    std::vector<MotionStep> motions;
    while (bytesOfOne > 0 && reports.size() >= bytesOfOne) {
        const MotionStep step = motionOf(reports.first(bytesOfOne));
        reports = reports.subspan(bytesOfOne);
        if (std::any_of(step.begin(), step.end(), [](double axis) { return axis != 0.0; })) {
            motions.push_back(step);
        }
    }
    return motions;
}

}  // namespace qelview
