#include "TextLines.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "ReadError.h"

namespace qelview {

namespace {

constexpr std::size_t kLinesBetweenReports = 4096;
constexpr std::string_view kBlanks = " \t\v\f";

/// A lambda, so that algorithms inline it. The first comparison decides most characters.
constexpr auto kIsBlank = [](char character) {
    return character <= ' ' &&
           (character == ' ' || (character >= '\t' && character <= '\f' && character != '\n'));
};

template <class Number>
std::errc parse(std::string_view word, Number& number) {
    // `std::from_chars` does not accept a plus sign.
    if (word.size() > 1 && word.front() == '+' && word[1] != '-') {
        word.remove_prefix(1);
    }
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    return error == std::errc() && stop != end ? std::errc::invalid_argument : error;
}

}  // namespace

bool TextLines::next() {
    if (nextBegin >= text.size()) {
        return false;
    }
    if (lineNumber % kLinesBetweenReports == 0) {
        progress.report(static_cast<double>(nextBegin) / static_cast<double>(text.size()));
    }
    const std::size_t end = std::min(text.find('\n', nextBegin), text.size());
    current = text.substr(nextBegin, end - nextBegin);
    if (!current.empty() && current.back() == '\r') {
        current.remove_suffix(1);
    }
    nextBegin = end + 1;
    ++lineNumber;
    return true;
}

void TextLines::refuseLine(const std::string& reason) const {
    refuse(atLine(lineNumber), reason);
}

void requireText(std::string_view text) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        refuse(atLine(1), "the file is UTF-16 text; save it as UTF-8 or ASCII");
    }
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
        refuse("byte " + std::to_string(zero), "the file is not text");
    }
}

void splitWords(std::string_view line, std::vector<std::string_view>& words) {
    words.clear();
    const char* at = line.data();
    const char* const end = at + line.size();
    while (true) {
        at = std::find_if_not(at, end, kIsBlank);
        if (at == end) {
            return;
        }
        const char* const begin = at;
        at = std::find_if(at, end, kIsBlank);
        words.emplace_back(begin, at - begin);
    }
}

std::string_view behindFirstWord(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    line.remove_prefix(std::min(line.find_first_of(kBlanks), line.size()));
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

std::optional<double> numberIn(std::string_view word) {
    double value = 0.0;
    return parse(word, value) == std::errc() ? std::optional(value) : std::nullopt;
}

double readNumber(std::string_view word, const TextLines& lines) {
    double value = 0.0;
    const std::errc error = parse(word, value);
    if (error == std::errc::result_out_of_range) {
        lines.refuseLine(inQuotes(word) + " is beyond the range of numbers");
    }
    if (error != std::errc()) {
        lines.refuseLine(inQuotes(word) + " is not a number");
    }
    return value;
}

std::string faultOfCoordinate(double value) {
    if (!std::isfinite(value)) {
        return "is not finite";
    }
    return std::abs(value) > kLargestCoordinate ? "is beyond 1e15, the largest coordinate that can be drawn"
                                                : "";
}

double readCoordinate(std::string_view word, const TextLines& lines) {
    const double value = readNumber(word, lines);
    if (!(std::abs(value) <= kLargestCoordinate)) {
        lines.refuseLine("the coordinate " + inQuotes(word) + " " + faultOfCoordinate(value));
    }
    return value;
}

long long readWhole(std::string_view word, const TextLines& lines) {
    long long value = 0;
    if (parse(word, value) != std::errc()) {
        lines.refuseLine(inQuotes(word) + " is not an integer");
    }
    return value;
}

}  // namespace qelview
