#include "WrappedText.h"

#include <algorithm>

namespace qelview {

std::vector<std::string> wrappedText(std::string_view text, std::size_t letters) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (lines.empty() || lines.back().size() + 1 + word.size() > letters) {
            lines.emplace_back(word);
        } else {
            lines.back().append(" ").append(word);
        }
    }
    return lines;
}

}  // namespace qelview
