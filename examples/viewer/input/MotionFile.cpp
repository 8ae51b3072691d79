#include "MotionFile.h"

#include <cmath>

#include "Progress.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

constexpr double kLargestValue = 1000.0;
constexpr long long kMostRepeats = 10000;
/// Nine hours: short lines with large repeat counts must not fill the memory.
constexpr std::size_t kMostSteps = 1'000'000;

MotionStep readMotionStep(const std::vector<std::string_view>& words, const TextLines& lines) {
    MotionStep step{};
    for (std::size_t axis = 0; axis < step.size(); ++axis) {
        const double value = readNumber(words[axis], lines);
        if (!(std::abs(value) <= kLargestValue)) {
            lines.refuseLine(inQuotes(words[axis]) + " is out of range (-1000 to 1000)");
        }
        step.at(axis) = value;
    }
    return step;
}

}  // namespace

std::vector<MotionStep> parseMotion(std::string_view text) {
    requireText(text);
    Progress progress;
    TextLines lines(text, ProgressStretch(progress, 0.0, 1.0));
    std::vector<MotionStep> steps;
    std::vector<std::string_view> words;
    constexpr std::size_t kAxes = std::tuple_size_v<MotionStep>;
    while (lines.next()) {
        splitWords(lines.line(), words);
        if (words.empty() || words[0].front() == '#') {
            continue;
        }
        if (words.size() != kAxes && words.size() != kAxes + 1) {
            lines.refuseLine("expected six numbers and an optional repeat count");
        }
        const MotionStep step = readMotionStep(words, lines);
        const long long repeats = words.size() > kAxes ? readWhole(words[kAxes], lines) : 1;
        if (repeats < 1 || repeats > kMostRepeats) {
            lines.refuseLine(inQuotes(words[kAxes]) + " is out of range (1 to 10000)");
        }
        if (static_cast<std::size_t>(repeats) > kMostSteps - steps.size()) {
            lines.refuseLine("more than 1000000 steps");
        }
        steps.insert(steps.end(), static_cast<std::size_t>(repeats), step);
    }
    return steps;
}

std::string motionHelp() {
    return R"(  A line is 'PANX PANY DOLLY TURNX TURNY ROLL [TIMES]', in pixels except for the dolly, in 1/150
  of the model's size; each from -1000 to 1000. Steps run at 30 per second. Lines that begin
  with # are ignored, here and in scripts.
)";
}

}  // namespace qelview
