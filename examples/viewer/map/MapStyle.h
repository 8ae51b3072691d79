#pragma once

#include <array>
#include <cstdint>

#include "QelColor.h"

/// How maps look, in every pane.

namespace qelview {

struct MapColor {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;

    /// In GDI's byte order.
    [[nodiscard]] constexpr std::uint32_t forGdi() const {
        return static_cast<std::uint32_t>(red | (green << 8) | (blue << 16));
    }
    [[nodiscard]] constexpr qel::QelColor4b forSymbol() const { return {red, green, blue}; }
    [[nodiscard]] constexpr qel::QelColor3f forOpenGl() const {
        return {static_cast<float>(red) / 255.0F, static_cast<float>(green) / 255.0F,
                static_cast<float>(blue) / 255.0F};
    }
};

inline constexpr MapColor kSea{214, 230, 241};
inline constexpr MapColor kGridColor{184, 208, 226};
inline constexpr MapColor kLand{244, 239, 222};
inline constexpr MapColor kHatch{219, 208, 176};
inline constexpr MapColor kOutline{70, 96, 128};
inline constexpr MapColor kLineColor{150, 108, 62};
inline constexpr MapColor kPointColorOfMap{196, 52, 44};
inline constexpr MapColor kInk{38, 44, 54};

/// In pixels of a screen of 96 dots per inch, like all that `MapView::dots` takes. Half the side of the frame
/// around a point:
inline constexpr int kPointHalfPx = 2;
inline constexpr int kTextMarginPx = 14;
inline constexpr int kTextHeightPx = 18;
/// Of the scale bar: its ends, and the text over it.
inline constexpr double kTickPx = 6.0;
inline constexpr double kOverBarPx = 5.0;
/// Of a name from its place.
inline constexpr double kLabelOffsetPx = 6.0;

/// The rows of GDI's cross hatch, most significant bit on the left.
inline constexpr std::array<std::uint8_t, 8> kHatchRows{0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81};

}  // namespace qelview
