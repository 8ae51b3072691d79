#pragma once

#include <string>

#include "XPnt3d.h"

namespace qelview {

/// Three lines "eye X Y Z", "target X Y Z", "up X Y Z", with every digit that tells two numbers apart.
[[nodiscard]] std::string cameraText(const qel::XPnt3d& eye, const qel::XPnt3d& target,
                                     const qel::XPnt3d& up);

}  // namespace qelview
