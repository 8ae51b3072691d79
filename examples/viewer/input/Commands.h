#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qelview {

/// What a key or a line of the menu asks for.
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
    /// Of the menu alone.
    Recent,
    About,
    Quit,
};
inline constexpr Command kLastCommand = Command::Quit;

struct KeyCommand {
    Command command = Command::Nothing;
    /// Of the standard view, or of the recent file; both count from 0.
    unsigned number = 0;
};

/// @param key as the system names it: the code of a capital letter or digit, else a virtual key.
/// @param withControl true while a control key is held.
[[nodiscard]] KeyCommand commandOf(unsigned key, bool withControl);

/// The key of a word such as "F", "3" or "Esc", upper or lower case; 0 for other words.
[[nodiscard]] unsigned keyOf(std::string word);

/// What a key or a movement of the mouse does.
struct HelpLine {
    std::string_view input;
    std::string_view meaning;
};

inline constexpr std::array<HelpLine, 17> kHelpLines{{
    {"Left button", "rotate; a click marks the point there"},
    {"Middle button", "pan; also left with Shift"},
    {"Right button", "zoom: up nearer, down farther"},
    {"Wheel", "zoom at the cursor"},
    {"Double click", "rotate about the point there"},
    {"0 to 7", "top, bottom, back, front, right, left, isometric"},
    {"F", "fit the model into the view"},
    {"O", "perspective or orthographic"},
    {"A", "long axes through the origin of the view"},
    {"U", "turn the model: Y or Z points up"},
    {"S", "stereo, where the driver has it"},
    {"Z", "drag a rectangle to zoom into"},
    {"C", "capture the view into a BMP file"},
    {"Ctrl+O", "open files; or drop them on the window"},
    {"W", "what was left out of the files"},
    {"H", "this help"},
    {"Esc", "end help, list, rectangle or drag; else quit"},
}};

}  // namespace qelview
