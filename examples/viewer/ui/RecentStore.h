#pragma once

#include <string>
#include <vector>

namespace qelview {

/// The key of the program in the user's part of the registry. It holds the recent files and nothing else.
inline constexpr const wchar_t* kKeyOfProgram = L"Software\\QelDisplay64t\\qelview";

/// The names of files that a key holds, in UTF-8; none if there is no such key.
[[nodiscard]] std::vector<std::string> readRecentFiles(const wchar_t* key);
/// Replaces them. Without the right to write there they are simply not kept.
void writeRecentFiles(const wchar_t* key, const std::vector<std::string>& files);

}  // namespace qelview
