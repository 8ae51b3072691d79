#include "WrappedText.h"

#include <algorithm>
#include <utility>

namespace qelview {

std::vector<std::string> wrappedText(std::string_view text,
                                     const std::function<bool(const std::string&)>& fits) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        std::string longer = lines.empty() ? "" : lines.back() + " ";
        longer += word;
        if (lines.empty() || !fits(longer)) {
            lines.emplace_back(word);
        } else {
            lines.back() = std::move(longer);
        }
    }
    return lines;
}

}  // namespace qelview
