#include "IQelScrDisplay2D.h"

IQelScrDisplay2D::IQelScrDisplay2D() = default;

IQelScrDisplay2D::IQelScrDisplay2D(const IQelScrDisplay2D& other) = default;

IQelScrDisplay2D& IQelScrDisplay2D::operator=(const IQelScrDisplay2D& other) = default;

IQelScrDisplay2D::~IQelScrDisplay2D() = default;

std::int32_t IQelScrDisplay2D::getActiveCache() {
    return 0;
}

std::int32_t IQelScrDisplay2D::setActiveCache(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelScrDisplay2D::getCacheDC(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelScrDisplay2D::UpdateWindow() {
    return 0;
}
