#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qelview {

/// The name of a file in UTF-8.
[[nodiscard]] std::string utf8(const std::filesystem::path& path);

/// A file whole.
/// @throws ReadError if there is none, it cannot be read, is empty, or has more than `most` bytes.
[[nodiscard]] std::string readBytes(const std::filesystem::path& file, std::uintmax_t most);

/// True for a file beside a model or below: a model must not reach for what lies elsewhere, least of all on
/// another machine, which would be told who asks.
[[nodiscard]] bool isNameBeside(std::string_view name);

/// The bytes of the file `name` (UTF-8) beside `model`; nothing if it is not beside, or `readBytes` refuses
/// it.
[[nodiscard]] std::optional<std::string> bytesBeside(const std::filesystem::path& model,
                                                     std::string_view name, std::uintmax_t most);

}  // namespace qelview
