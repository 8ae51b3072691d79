#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qelview {

/// Decodes Base64 text, which must be padded; nothing if it is invalid.
[[nodiscard]] std::optional<std::string> decodeBase64(std::string_view text);

/// The bytes that a data URI holds as Base64 text; nothing for other URIs.
/// @throws ReadError naming `place` if it is a data URI without such text.
[[nodiscard]] std::optional<std::string> dataOf(const std::string& place, std::string_view uri);

/// The name of a file from a URI: "%20" and the like stand for bytes.
[[nodiscard]] std::string percentDecode(std::string_view text);

}  // namespace qelview
