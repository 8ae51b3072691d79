#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Commands.h"

namespace qelview {

/// A line of a menu; a line without text is a separator.
struct MenuLine {
    /// The letter after & opens the line from the keyboard.
    std::string_view text;
    /// The key for the same command; empty for none.
    std::string_view key;
    KeyCommand meaning;
};

/// A menu of the bar.
struct MenuColumn {
    std::string_view title;
    std::span<const MenuLine> lines;
};

/// The menus of the viewer's window, from left to right. The line of the command Recent is replaced by the
/// list of recent files.
[[nodiscard]] std::span<const MenuColumn> menuColumns();

/// The command of a key: that of the menu line which shows the key; Leave for Esc, Fit for Home. Keys of the
/// number pad are like the others, and Shift changes nothing unless a line shows it.
[[nodiscard]] KeyCommand commandOf(const KeyPress& press);

/// The system's number for a menu command; never 0.
[[nodiscard]] unsigned menuNumberOf(const KeyCommand& meaning);
/// The command of such a number; Nothing for other numbers.
[[nodiscard]] KeyCommand commandOfMenu(unsigned number);

/// The text of a recent file in the menu: its number from 1, which is its access key, and its name.
[[nodiscard]] std::string recentText(unsigned place, std::string_view file);

}  // namespace qelview
