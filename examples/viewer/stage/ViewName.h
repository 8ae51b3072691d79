#pragma once

#include <string>

#include "XPnt3d.h"

namespace qelview {

/// What a view shows: the name of a standard view, "Isometric"; for others the side that faces the viewer and how far above or below it the
/// eye stands, "Front, 48 deg above".
/// @param towardsEye from the target to the eye, of any length, in a frame whose Z points up.
[[nodiscard]] std::string viewName(const qel::XPnt3d& towardsEye);

}  // namespace qelview
