#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qelview {

/// A file that cannot be shown. The text is one line: the place in the file, and what is wrong there.
class ReadError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The user gave up on a load.
class ReadCancelled : public std::runtime_error {
  public:
    ReadCancelled() : std::runtime_error("cancelled") {}
};

/// @throws ReadError "PLACE: REASON".
[[noreturn]] void refuse(const std::string& place, const std::string& reason);

/// "line 12".
[[nodiscard]] std::string atLine(std::size_t number);

/// A piece of a file as it can be shown in one line: cut, and without control characters.
[[nodiscard]] std::string quoted(std::string_view text);

/// Text of another library as one line of readable characters.
[[nodiscard]] std::string oneLine(std::string_view text);

}  // namespace qelview
