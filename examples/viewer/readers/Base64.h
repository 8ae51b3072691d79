#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qelview {

/// Decodes Base64 text, which must be padded; nothing if it is invalid.
[[nodiscard]] std::optional<std::string> decodeBase64(std::string_view text);

}  // namespace qelview
