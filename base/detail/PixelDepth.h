#pragma once

#include <cstdint>

#include "PixelPackScope.h"
#include "QelTruncate.h"

namespace qel {

/// A pixel of this window depth or more is background: nothing was drawn there.
inline constexpr float kBackgroundDepth = 1.0F;

/// Window depth of one pixel of the read buffer; background outside any buffer.
[[nodiscard]] inline float readPixelDepth(std::int32_t column, std::int32_t row) {
    float depth = kBackgroundDepth;
    if (isReadablePixel(column, row)) {
        const PixelPackScope packing;
        glReadPixels(column, row, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    }
    return depth;
}

}  // namespace qel
