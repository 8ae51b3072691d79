#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qelview {

/// The program's registry key for the current user. It holds the recent files and the look of the last window.
inline constexpr const wchar_t* kProgramKey = L"Software\\QelDisplay64t\\qelview";

/// The file names that a key holds, in UTF-8; none if there is no such key.
[[nodiscard]] std::vector<std::string> readRecentFiles(const wchar_t* key);
/// Replaces them; without write access they are not kept.
void writeRecentFiles(const wchar_t* key, const std::vector<std::string>& files);

/// What a window takes over from the one before.
struct WindowLook {
    /// Of the view, in pixels of a screen of 96 dots per inch.
    int width = 0;
    int height = 0;
    bool isOrthographic = false;
};

/// Nothing if the key holds none, or one that no window has.
[[nodiscard]] std::optional<WindowLook> readWindowLook(const wchar_t* key);
void writeWindowLook(const wchar_t* key, const WindowLook& look);

}  // namespace qelview
