#pragma once

namespace qelview {

/// Distance of texts from the edges of the view, and of one line from the next, in pixels.
inline constexpr double kMargin = 18.0;
inline constexpr double kLineHeight = 22.0;

/// Of the strip at the lower edge.
inline constexpr double kStripHeight = 40.0;

}  // namespace qelview
