#include "IQelDisplay.h"

IQelDisplay::IQelDisplay() = default;

IQelDisplay::IQelDisplay(const IQelDisplay& other) = default;

IQelDisplay& IQelDisplay::operator=(const IQelDisplay& other) = default;

IQelDisplay::~IQelDisplay() = default;

std::int32_t IQelDisplay::getActiveCache() {
    return 0;
}

std::int32_t IQelDisplay::setActiveCache(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelDisplay::getCacheDC(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelDisplay::UpdateWindow() {
    return 0;
}
