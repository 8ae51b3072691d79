#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace qelview {

/// Writes lines of words and numbers that any reader takes for what they are.
class PlainText {
  public:
    void word(std::string_view text) {
        if (!written.empty() && written.back() != '\n') {
            written += ' ';
        }
        written += text;
    }
    /// Reads as the same number. A finite one.
    void number(double value) {
        constexpr double kLargestPlainWhole = 1e15;
        if (value == std::trunc(value) && std::abs(value) < kLargestPlainWhole) {
            whole(static_cast<long long>(value));
            return;
        }
        // Always with an exponent: simple readers stop after so many digits behind the point, zeros or not.
        std::array<char, 32> digits;
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::scientific);
        word({digits.data(), end.ptr});
    }
    void whole(std::integral auto value) {
        std::array<char, 24> digits;
        word({digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr});
    }
    /// "//7", as faces of OBJ files name a normal.
    void behindSlashes(std::integral auto value) {
        written += "//";
        written += std::to_string(value);
    }
    void endLine() { written += '\n'; }
    void append(const PlainText& other) { written += other.written; }
    [[nodiscard]] bool isEmpty() const { return written.empty(); }
    [[nodiscard]] std::string take() { return std::move(written); }

  private:
    std::string written;
};

}  // namespace qelview
