#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "Commands.h"

namespace qelview {

/// Creates the menu bar for a new window, which destroys it. Null if it cannot be created.
[[nodiscard]] HMENU makeMenuBar(const std::vector<std::string>& recentFiles);
/// Replaces the recent files in a menu bar.
void showRecentFiles(HMENU bar, const std::vector<std::string>& recentFiles);
/// Shows or removes the check mark of a command.
void showMark(HMENU bar, Command command, bool isMarked);

}  // namespace qelview
