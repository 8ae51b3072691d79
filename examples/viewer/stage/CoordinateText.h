#pragma once

#include <string>

#include "XPnt3d.h"

namespace qelview {

/// How many decimals mean something in coordinates of a scene of this size.
[[nodiscard]] int decimalsFor(double size);

/// A number with so many decimals.
[[nodiscard]] std::string fixed(double value, int decimals);

/// A point of the view in the coordinates of the files: "x 12.30  y 4.00  z -1.75".
/// @param size of the scene; it decides how many digits mean something.
[[nodiscard]] std::string coordinateText(const qel::XPnt3d& point, const qel::XPnt3d& origin, double size);

/// Three lines "eye X Y Z", "target X Y Z", "up X Y Z", with every digit that tells two numbers apart.
[[nodiscard]] std::string cameraText(const qel::XPnt3d& eye, const qel::XPnt3d& target,
                                     const qel::XPnt3d& up);

}  // namespace qelview
