#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Progress.h"

namespace qelview {

/// Iterates over the lines of a text and knows its position. Lines end in LF or CR LF.
class TextLines {
  public:
    TextLines(std::string_view wholeText, const ProgressStretch& progressOfText)
        : text(wholeText), progress(progressOfText) {}

    /// Advances to the next line; false at the end.
    bool next();
    /// The current line without its end.
    [[nodiscard]] std::string_view line() const { return current; }
    /// Of the current line, from 1.
    [[nodiscard]] std::size_t number() const { return lineNumber; }
    /// Where the next line begins, in bytes from the start of the text.
    [[nodiscard]] std::size_t position() const { return nextBegin; }
    /// @throws ReadError that names the current line.
    [[noreturn]] void refuseLine(const std::string& reason) const;

  private:
    std::string_view text;
    ProgressStretch progress;
    std::string_view current;
    std::size_t nextBegin = 0;
    std::size_t lineNumber = 0;
};

/// @throws ReadError for UTF-16 and for text with null bytes.
void requireText(std::string_view text);

/// A letter of ASCII as a small one, any other character as it is.
[[nodiscard]] constexpr char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Splits a line at spaces and tabs. Reuses the storage of `words`.
void splitWords(std::string_view line, std::vector<std::string_view>& words);

/// The line after its first word, trimmed.
[[nodiscard]] std::string_view behindFirstWord(std::string_view line);

/// Parses a decimal number independently of the locale; nothing if the word is not a number.
[[nodiscard]] std::optional<double> numberIn(std::string_view word);

/// Parses a decimal number.
/// @throws ReadError that names the current line if the word is not a number.
[[nodiscard]] double readNumber(std::string_view word, const TextLines& lines);

/// The largest coordinate accepted: drawing squares it in single precision.
inline constexpr double kLargestCoordinate = 1e15;

/// Why a coordinate is invalid; empty if it is valid.
[[nodiscard]] std::string faultOfCoordinate(double value);

/// Parses a coordinate.
/// @throws ReadError that names the current line if it is not a number, not finite or too large.
[[nodiscard]] double readCoordinate(std::string_view word, const TextLines& lines);

/// Parses an integer.
/// @throws ReadError that names the current line if the word is not an integer.
[[nodiscard]] long long readWhole(std::string_view word, const TextLines& lines);

}  // namespace qelview
