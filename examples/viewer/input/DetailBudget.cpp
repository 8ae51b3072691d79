#include "DetailBudget.h"

#include <algorithm>
#include <cmath>

namespace qelview {

void DetailBudget::addFrameTime(double milliseconds, std::size_t thinning) {
    // A full frame measures again how much is possible; a thinned frame can only ask for less, or the picture
    // would flicker between two densities.
    const double parts = std::clamp(std::ceil(milliseconds / kMilliseconds), 1.0, double{kThinnest});
    const std::size_t asked = std::min(thinning * static_cast<std::size_t>(parts), kThinnest);
    wanted = thinning == 1 ? asked : std::max(wanted, asked);
}

}  // namespace qelview
