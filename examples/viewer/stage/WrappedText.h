#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qelview {

/// Breaks a text at blanks into lines of at most `letters` letters. A longer word has a line of its own.
[[nodiscard]] std::vector<std::string> wrappedText(std::string_view text, std::size_t letters);

}  // namespace qelview
