#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace qelview {

/// The check marks of the menu.
struct MenuMarks {
    bool isOrthographic = false;
    bool hasLongAxes = false;
    bool hasYUp = false;
    bool isStereo = false;
    bool isMeasuring = false;
    bool isQuartet = false;
};

/// Creates the menu bar for a new window, which destroys it. Null if it cannot be created.
[[nodiscard]] HMENU makeMenuBar(const std::vector<std::string>& recentFiles);
/// Replaces the recent files in a menu bar.
void showRecentFiles(HMENU bar, const std::vector<std::string>& recentFiles);
void showMarks(HMENU bar, const MenuMarks& marks);

}  // namespace qelview
