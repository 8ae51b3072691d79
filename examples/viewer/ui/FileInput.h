#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <string>
#include <vector>

namespace qelview {

/// Asks for files to open, in the system's dialog; all names in UTF-8.
/// @return empty if the user gave up.
[[nodiscard]] std::vector<std::string> askForFiles(HWND owner);

/// The names in the answer of that dialog: one path, or a folder followed by the names in it, each ended by
/// a zero, the last by two.
[[nodiscard]] std::vector<std::string> filesOfAnswer(const std::wstring& answer);

/// The names in a list: each ends with a zero; an empty one ends the list.
[[nodiscard]] std::vector<std::string> namesOfList(const std::wstring& list);

/// The names of dropped files; the drop is given back to the system.
[[nodiscard]] std::vector<std::string> takeDroppedFiles(HDROP drop);

/// What the system sends with WM_DROPFILES; null without memory. `takeDroppedFiles` gives it back.
[[nodiscard]] HDROP makeDrop(const std::vector<std::string>& files);

}  // namespace qelview
