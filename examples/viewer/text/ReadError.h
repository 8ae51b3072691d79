#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qelview {

/// A file cannot be shown. The text is one line: the place in the file and the reason.
class ReadError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The user cancelled a load.
class ReadCancelled : public std::runtime_error {
  public:
    ReadCancelled() : std::runtime_error("cancelled") {}
};

/// @throws ReadError "PLACE: REASON".
[[noreturn]] void refuse(const std::string& place, const std::string& reason);

/// "line 12".
[[nodiscard]] std::string atLine(std::size_t number);

/// Part of a file for a message: truncated, in quotes, without control characters.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace qelview
