#pragma once

#include <array>

#include "PointOrder.h"

namespace qel::test {

/// A view in which model coordinates from -1 to 1 fill a window, z = -1 nearest.
inline qelview::PixelView flatView(int width, int height) {
    constexpr std::array<double, 16> kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    return {kIdentity, kIdentity, {0, 0, width, height}};
}

}  // namespace qel::test
