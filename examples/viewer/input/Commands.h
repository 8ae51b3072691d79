#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qelview {

/// The commands of keys and menu lines.
enum class Command : std::uint8_t {
    Nothing,
    StandardView,
    Fit,
    SwitchProjection,
    LongAxes,
    TurnUp,
    Warnings,
    Stereo,
    ZoomRectangle,
    Capture,
    Help,
    Open,
    Leave,
    /// Only in the menu.
    Recent,
    About,
    Quit,
};
inline constexpr Command kLastCommand = Command::Quit;

struct KeyCommand {
    Command command = Command::Nothing;
    /// Number of the standard view, or of the recent file, from 0.
    unsigned number = 0;
};

/// @param key the system's code: that of a capital letter or digit, else a virtual key.
/// @param withControl true while a control key is held.
[[nodiscard]] KeyCommand commandOf(unsigned key, bool withControl);

/// The key of a word such as "F", "3" or "Esc", upper or lower case; 0 for other words.
[[nodiscard]] unsigned keyOf(std::string word);

/// What a key or a mouse movement does.
struct HelpLine {
    std::string_view input;
    std::string_view meaning;
};

inline constexpr std::array<HelpLine, 17> kHelpLines{{
    {"Left button", "rotate; a click marks a point"},
    {"Middle button", "pan; also left with Shift"},
    {"Right button", "zoom: up closer, down away"},
    {"Wheel", "zoom at the cursor"},
    {"Double click", "set the rotation centre"},
    {"0 to 7", "top, bottom, back, front, right, left, isometric"},
    {"F", "fit the model into the view"},
    {"O", "perspective or orthographic"},
    {"A", "long axes through the origin of the view"},
    {"U", "switch the up axis: Y or Z"},
    {"S", "stereo, if the driver supports it"},
    {"Z", "drag a rectangle to zoom into"},
    {"C", "capture the view to a BMP file"},
    {"Ctrl+O", "open files; or drop them on the window"},
    {"W", "warnings about the files"},
    {"H", "this help"},
    {"Esc", "close or cancel; else quit"},
}};

}  // namespace qelview
