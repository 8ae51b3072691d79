#include <cstdarg>
#include <cstdio>

#include "CQelScreenDisplay.h"

namespace {

constexpr std::size_t kLongestText = 256;

}  // namespace

std::int32_t CQelScreenDisplay::printText(const char* format, ...) {
    if (format == nullptr) {
        return 0;
    }
    char text[kLongestText] = {};
    va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    if (capture.isDrawing()) {
        capture.textFont().draw(text);
    } else if (windowFont.isIn(renderContext)) {
        windowFont.draw(text);
    } else if (lentFont.isIn(renderContext)) {
        lentFont.draw(text);
    }
    return 0;
}
