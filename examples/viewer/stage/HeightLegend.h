#pragma once

#include <string>
#include <vector>

#include "HeightColors.h"

namespace qelview {

/// A height of a legend.
struct LegendTick {
    /// Of the way from the lowest to the highest.
    double share = 0.0;
    std::string text;
};

/// The lowest and the highest height, and round ones between them, from below.
/// @param origin height of the view's origin in the coordinates of the files.
[[nodiscard]] std::vector<LegendTick> legendTicks(const HeightRange& range, double origin);

}  // namespace qelview
