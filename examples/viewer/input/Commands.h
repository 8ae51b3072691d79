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
    Reload,
    /// Number 0 to the left, 1 to the right, 2 up, 3 down, here and in Pan.
    Turn,
    Pan,
    /// Number 0 nearer, 1 away.
    Zoom,
    PreviousCamera,
    Measure,
    Colours,
    /// Number 0 makes the points larger, 1 smaller.
    PointSize,
    CopyPicture,
    CaptureSize,
    CopyMeasurements,
    Quartet,
    Section,
    /// Number 0 forward, 1 back.
    MoveSection,
    FlipSection,
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

/// A key with the modifier keys that are held.
struct KeyPress {
    /// The system's code: that of a capital letter or digit, else a virtual key; 0 for no key.
    unsigned key = 0;
    bool withControl = false;
    bool withShift = false;

    bool operator==(const KeyPress&) const = default;
};

/// The key of a word such as "F", "3", "Esc" or "Ctrl+Shift+C", upper or lower case; no key for other words.
[[nodiscard]] KeyPress keyOf(std::string_view word);

/// What a key or a mouse movement does.
struct HelpLine {
    std::string_view input;
    std::string_view meaning;
};

inline constexpr std::array<HelpLine, 33> kHelpLines{{
    {"Left button", "rotate; a click marks a point"},
    {"Middle button", "pan; also left with Shift"},
    {"Right button", "zoom: up closer, down away"},
    {"Wheel", "zoom at the cursor"},
    {"Double click", "set the rotation centre"},
    {"Six-axis device", "move and turn the scene"},
    {"0 to 7", "top, bottom, back, front, right, left, isometric"},
    {"Arrow keys", "turn; with Shift pan"},
    {"+ and -", "zoom"},
    {"F, Home", "fit the model into the view"},
    {"Backspace", "back to the camera before"},
    {"O", "perspective or orthographic"},
    {"A", "long axes through the origin of the view"},
    {"U", "switch the up axis: Y or Z"},
    {"S", "stereo, if the driver supports it"},
    {"Z", "drag a rectangle to zoom into"},
    {"M", "measure between clicked points"},
    {"Ctrl+C", "copy the clicked points as a table"},
    {"Q", "four views: top, front, right, isometric"},
    {"X", "cut across x, y, z, the view, nothing"},
    {"PageUp, PageDown", "move the cut; also Ctrl with wheel or left button"},
    {"I", "turn the cut round"},
    {"E", "colour by elevation, plainly, or as the files say"},
    {"P", "larger points"},
    {"Shift+P", "smaller points"},
    {"C", "capture the view to a file"},
    {"Ctrl+Shift+C", "copy the view"},
    {"R", "captures and copies once, twice, four times as large"},
    {"Ctrl+O", "open files; or drop them on the window"},
    {"F5", "load the files again"},
    {"W", "warnings about the files"},
    {"H", "this help"},
    {"Esc", "close or cancel; else quit"},
}};

}  // namespace qelview
