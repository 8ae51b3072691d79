#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qelview {

/// Breaks a text at blanks into lines that fit. A longer word has a line of its own.
[[nodiscard]] std::vector<std::string> wrappedText(std::string_view text,
                                                   const std::function<bool(const std::string&)>& fits);

}  // namespace qelview
