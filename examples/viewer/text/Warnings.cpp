#include "Warnings.h"

#include <algorithm>

namespace qelview {

void Warnings::add(const std::string& place, const std::string& reason) {
    // Each new reason is compared with those before it.
    constexpr std::size_t kMostReasons = 20;
    const auto found = std::find_if(known.begin(), known.end(),
                                    [&reason](const Warning& warning) { return warning.reason == reason; });
    if (found != known.end()) {
        ++found->times;
    } else if (known.size() < kMostReasons) {
        known.push_back({place, reason});
    } else {
        ++others;
    }
}

std::vector<std::string> Warnings::lines() const {
    std::vector<std::string> lines;
    for (const Warning& warning : known) {
        lines.push_back(warning.place + ": " + warning.reason +
                        (warning.times > 1 ? " (" + std::to_string(warning.times) + " times)" : ""));
    }
    if (others > 0) {
        lines.push_back("and " + std::to_string(others) + " more");
    }
    return lines;
}

}  // namespace qelview
