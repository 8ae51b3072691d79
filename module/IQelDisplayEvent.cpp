#include "IQelDisplayEvent.h"

IQelDisplayEvent::IQelDisplayEvent() = default;

IQelDisplayEvent::IQelDisplayEvent(const IQelDisplayEvent& other) = default;

IQelDisplayEvent& IQelDisplayEvent::operator=(const IQelDisplayEvent& other) = default;

IQelDisplayEvent::~IQelDisplayEvent() = default;
