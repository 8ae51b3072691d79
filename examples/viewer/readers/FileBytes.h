#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qelview {

/// The name of a file in UTF-8.
[[nodiscard]] std::string utf8(const std::filesystem::path& path);
/// The file of a name in UTF-8.
[[nodiscard]] std::filesystem::path pathOf(std::string_view name);

/// The contents of a file.
/// @throws ReadError if it does not exist, cannot be read, is empty, or has more than `most` bytes.
[[nodiscard]] std::string readBytes(const std::filesystem::path& file, std::uintmax_t most);

/// True for a file in the folder of a model or below. A model must not open files elsewhere, least of all on
/// another machine, which would learn who opens it.
[[nodiscard]] bool isSiblingName(std::string_view name);

/// The contents of the file `name` (UTF-8) in the folder of `model`; nothing if it is not a sibling, or
/// `readBytes` throws.
[[nodiscard]] std::optional<std::string> siblingBytes(const std::filesystem::path& model,
                                                      std::string_view name, std::uintmax_t most);

}  // namespace qelview
