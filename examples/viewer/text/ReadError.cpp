#include "ReadError.h"

#include <algorithm>

namespace qelview {

void refuse(const std::string& place, const std::string& reason) {
    throw ReadError(place + ": " + reason);
}

std::string atLine(std::size_t number) {
    return "line " + std::to_string(number);
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t kLongestQuote = 32;
    std::string shown(text.substr(0, kLongestQuote));
    std::replace_if(
        shown.begin(), shown.end(), [](char character) { return character < ' ' || character > '~'; }, '?');
    return "'" + shown + (text.size() > kLongestQuote ? "...'" : "'");
}

}  // namespace qelview
