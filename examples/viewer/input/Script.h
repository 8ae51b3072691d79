#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Commands.h"
#include "MouseGesture.h"

namespace qelview {

enum class ScriptAction : std::uint8_t {
    Size,
    Move,
    Down,
    Up,
    Wheel,
    Double,
    Key,
    Drop,
    Motion,
    Picture,
    Camera,
    Capture,
    Scale,
};

/// One line of a script.
struct ScriptStep {
    ScriptAction action = ScriptAction::Move;
    /// A position in the view in pixels, from its upper-left corner like the mouse; or the size of the view; or
    /// percent.
    int x = 0;
    int y = 0;
    MouseButton button = MouseButton::Left;
    bool withShift = false;
    bool withControl = false;
    /// Notches of the wheel, positive away from the user.
    int notches = 0;
    KeyPress key;
    /// In UTF-8.
    std::string file;
    /// Line number in the script, from 1.
    std::size_t line = 0;
};

/// Reads a script of mouse and keys; `scriptHelp` describes the lines.
/// @throws ReadError "line N: REASON" for the first wrong line.
[[nodiscard]] std::vector<ScriptStep> parseScript(std::string_view text);

/// The format of scripts, for the help text.
[[nodiscard]] std::string scriptHelp();

}  // namespace qelview
