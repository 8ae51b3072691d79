#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qelview {

/// The bytes that Base64 text stands for; nothing if it is not such text, padded to whole groups of four.
[[nodiscard]] std::optional<std::string> decodeBase64(std::string_view text);

}  // namespace qelview
