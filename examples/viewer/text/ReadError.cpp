#include "ReadError.h"

#include <algorithm>

namespace qelview {

namespace {

constexpr std::size_t kLongestQuote = 32;

bool isReadable(char character) {
    return character >= ' ' && character <= '~';
}

}  // namespace

void refuse(const std::string& place, const std::string& reason) {
    throw ReadError(place + ": " + reason);
}

std::string atLine(std::size_t number) {
    return "line " + std::to_string(number);
}

std::string inQuotes(std::string_view text) {
    std::string shown(text.substr(0, kLongestQuote));
    std::replace_if(
        shown.begin(), shown.end(), [](char character) { return !isReadable(character); }, '?');
    return "'" + shown + (text.size() > kLongestQuote ? "...'" : "'");
}

std::string oneLine(std::string_view text) {
    std::string line;
    for (const char character : text) {
        const bool isSpace = !isReadable(character) || character == ' ';
        if (!isSpace) {
            line.push_back(character);
        } else if (!line.empty() && line.back() != ' ') {
            line.push_back(' ');
        }
    }
    while (!line.empty() && line.back() == ' ') {
        line.pop_back();
    }
    return line;
}

}  // namespace qelview
