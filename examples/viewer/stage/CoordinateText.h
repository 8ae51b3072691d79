#pragma once

#include <string>

#include "XPnt3d.h"

namespace qelview {

/// How many decimals mean something in coordinates of a scene of this size.
[[nodiscard]] int decimalsFor(double size);

/// A number with these decimals.
[[nodiscard]] std::string decimalText(double value, double size);

/// A point of the view in the coordinates of the files: "x 12.30  y 4.00  z -1.75".
/// @param size of the scene; it decides how many digits mean something.
[[nodiscard]] std::string coordinateText(const qel::XPnt3d& point, const qel::XPnt3d& origin, double size);

}  // namespace qelview
