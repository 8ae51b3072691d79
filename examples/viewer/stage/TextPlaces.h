#pragma once

namespace qelview {

/// All in units of layout: pixels of a screen of 96 dots per inch. See `Stage::setScale`.

inline constexpr double kLetterHeight = 15.0;
/// Distance of texts from the edges of the view, and of one line from the next.
inline constexpr double kMargin = 18.0;
inline constexpr double kLineHeight = 22.0;

/// Of the strip at the lower edge.
inline constexpr double kStripHeight = 40.0;

}  // namespace qelview
