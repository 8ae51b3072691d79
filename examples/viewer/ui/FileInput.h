#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <string>
#include <vector>

namespace qelview {

/// Asks for files to open in the system's dialog; names are UTF-8.
/// @return empty if the user cancelled.
[[nodiscard]] std::vector<std::string> askForFiles(HWND owner);

/// Parses the result of that dialog: one path, or a folder followed by the names in it, each zero-terminated,
/// the last one twice.
[[nodiscard]] std::vector<std::string> parseDialogResult(const std::wstring& answer);

/// Parses a list of zero-terminated names that ends with an empty one.
[[nodiscard]] std::vector<std::string> parseNameList(const std::wstring& list);

/// Such a list of names, with the zero at its end.
[[nodiscard]] std::wstring nameList(const std::vector<std::string>& names);

/// Returns the names of dropped files and releases the drop.
[[nodiscard]] std::vector<std::string> takeDroppedFiles(HDROP drop);

/// Creates what the system sends with WM_DROPFILES; null if out of memory. `takeDroppedFiles` releases it.
[[nodiscard]] HDROP makeDrop(const std::vector<std::string>& files);

}  // namespace qelview
