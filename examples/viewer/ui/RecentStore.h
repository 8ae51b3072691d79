#pragma once

#include <string>
#include <vector>

namespace qelview {

/// The program's registry key for the current user. It holds only the recent files.
inline constexpr const wchar_t* kProgramKey = L"Software\\QelDisplay64t\\qelview";

/// The file names that a key holds, in UTF-8; none if there is no such key.
[[nodiscard]] std::vector<std::string> readRecentFiles(const wchar_t* key);
/// Replaces them; without write access they are not kept.
void writeRecentFiles(const wchar_t* key, const std::vector<std::string>& files);

}  // namespace qelview
