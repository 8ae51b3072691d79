#pragma once

#include <cstdint>
#include <span>

#include "SceneParts.h"

namespace qelview {

/// Limits the work of cutting contours. Cutting visits all pairs of edges that overlap in one
/// direction, and through all crossings, of which a few thousand corners can have millions.
struct TangleBudget {
    std::uint64_t pairs = 20'000'000;
    std::uint64_t crossings = 50'000;
};

/// Subtracts the cost of cutting closed contours from the budget.
/// @param normal of the plane that they lie in.
/// @return false if the budget is spent.
[[nodiscard]] bool pay(TangleBudget& budget, std::span<const Points> contours, const qel::XPnt3d& normal);

}  // namespace qelview
