#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "MouseGesture.h"
#include "XPnt3d.h"

namespace qelview {

/// A point of the scene with a text next to it.
struct PointMark {
    qel::XPnt3d at;
    std::string label;
};

/// A list over the view.
enum class Panel : std::uint8_t { None, Help, Warnings };

/// What a view shows besides the scene and its labels.
struct Annotations {
    /// In the order of the clicks.
    std::vector<PointMark> marks;
    /// True shows what the marks measure.
    bool isMeasuring = false;
    Panel panel = Panel::None;
    /// A line of text for the user; empty for none.
    std::string notice;
    /// Title and counts.
    bool hasHeading = true;
    /// A strip at the lower edge: the view, the point under the mouse, the time of the last frame.
    bool hasStrip = false;
    std::optional<PixelPlace> mouse;
    std::optional<double> frameMilliseconds;
};

}  // namespace qelview
