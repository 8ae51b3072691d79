#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Progress.h"

namespace qelview {

/// Goes through the lines of a text and knows where it is. Lines may end in LF or CR LF.
class TextLines {
  public:
    TextLines(std::string_view wholeText, const ProgressStretch& progressOfText);

    /// Moves to the next line; false at the end.
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

/// Refuses what is not text at all: UTF-16, and bytes of 0.
void requireText(std::string_view text);

/// The words of a line, separated by spaces and tabs. The storage of `words` is used again.
void splitWords(std::string_view line, std::vector<std::string_view>& words);

/// What stands behind the first word of a line, without the blanks around it.
[[nodiscard]] std::string_view behindFirstWord(std::string_view line);

/// The decimal number that a word is, whatever the language of the system; nothing if it is none.
[[nodiscard]] std::optional<double> numberIn(std::string_view word);

/// The same.
/// @throws ReadError that names the current line if it is no number.
[[nodiscard]] double readNumber(std::string_view word, const TextLines& lines);

/// The largest coordinate that is read: its square, which drawing needs, still fits a float.
inline constexpr double kLargestCoordinate = 1e15;

/// What is wrong with a coordinate; empty if nothing is.
[[nodiscard]] std::string faultOfCoordinate(double value);

/// A finite number that can be drawn.
/// @throws ReadError that names the current line if it is not one.
[[nodiscard]] double readCoordinate(std::string_view word, const TextLines& lines);

/// A whole number.
/// @throws ReadError that names the current line if it is not one.
[[nodiscard]] long long readWhole(std::string_view word, const TextLines& lines);

}  // namespace qelview
