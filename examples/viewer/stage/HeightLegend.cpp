#include "HeightLegend.h"

#include <cmath>

#include "RoundNumbers.h"

namespace qelview {

namespace {

/// Ends and round heights have this share of the legend between them at least.
constexpr double kClosest = 0.08;
constexpr int kMostTicks = 6;

}  // namespace

std::vector<LegendTick> legendTicks(const HeightRange& range, double origin) {
    const double span = range.high - range.low;
    if (!(span > 0.0) || !std::isfinite(span)) {
        return {{0.5, withStep(range.low + origin, 0.01)}};
    }
    const double step = roundAtLeast(span / kMostTicks);
    // Adding zero takes the sign of a zero away.
    const double first = std::ceil((range.low + origin) / step) + 0.0;
    // A digit more for the ends, which are no round numbers.
    std::vector<LegendTick> ticks{{0.0, withStep(range.low + origin, step * 0.1)}};
    for (int tick = 0; tick < 2 * kMostTicks; ++tick) {
        const double multiple = first + tick;
        const double share = (multiple * step - origin - range.low) / span;
        if (share > kClosest && share < 1.0 - kClosest) {
            ticks.push_back({share, withStep(multiple * step, step)});
        }
    }
    ticks.push_back({1.0, withStep(range.high + origin, step * 0.1)});
    return ticks;
}

}  // namespace qelview
