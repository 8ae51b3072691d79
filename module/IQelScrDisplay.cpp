#include "IQelScrDisplay.h"

IQelScrDisplay::IQelScrDisplay() = default;

IQelScrDisplay::IQelScrDisplay(const IQelScrDisplay& other) = default;

IQelScrDisplay& IQelScrDisplay::operator=(const IQelScrDisplay& other) = default;

IQelScrDisplay::~IQelScrDisplay() = default;
