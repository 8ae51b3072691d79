#include "TextRoom.h"

#include <algorithm>

namespace qelview {

qel::Enve2d TextRoom::around(double x, double y, std::string_view text) {
    constexpr double kLetterWidth = 9.5;
    constexpr double kGap = 8.0;
    constexpr double kHalfHeight = 14.0;
    const double width = kLetterWidth * static_cast<double>(text.size());
    return {x - kGap, y - kHalfHeight, x + width + kGap, y + kHalfHeight};
}

bool TextRoom::take(double x, double y, std::string_view text) {
    const qel::Enve2d wanted = around(x, y, text);
    const bool isFree = std::none_of(taken.begin(), taken.end(),
                                     [&](const qel::Enve2d& other) { return other.isIntersect(wanted); });
    if (isFree) {
        taken.push_back(wanted);
    }
    return isFree;
}

}  // namespace qelview
