#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace qelview {

/// What the marks in the menu tell.
struct MenuMarks {
    bool isOrthographic = false;
    bool hasLongAxes = false;
    bool hasYUp = false;
    bool isStereo = false;
};

/// The menu bar, for a new window, which destroys it; null if there can be none.
[[nodiscard]] HMENU makeMenuBar(const std::vector<std::string>& recentFiles);
/// Puts other recent files into a menu bar.
void showRecentFiles(HMENU bar, const std::vector<std::string>& recentFiles);
void showMarks(HMENU bar, const MenuMarks& marks);

}  // namespace qelview
