#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Commands.h"

namespace qelview {

/// A line of a menu; a line without a text parts the ones above from those below.
struct MenuLine {
    /// The letter after & opens the line by keyboard.
    std::string_view text;
    /// The key that does the same; empty for none.
    std::string_view key;
    KeyCommand meaning;
};

/// A menu of the bar.
struct MenuColumn {
    std::string_view title;
    std::span<const MenuLine> lines;
};

/// The menus of the viewer's window, from left to right. The line of the command Recent stands for the list
/// of recent files.
[[nodiscard]] std::span<const MenuColumn> menuColumns();

/// The number by which the system names a command that was chosen from the menu; never 0.
[[nodiscard]] unsigned menuNumberOf(const KeyCommand& meaning);
/// What such a number stands for; the command Nothing for others.
[[nodiscard]] KeyCommand commandOfMenu(unsigned number);

/// The text of a recent file in the menu: its place from 1, by which it is opened, and its name.
[[nodiscard]] std::string recentText(unsigned place, std::string_view file);

}  // namespace qelview
