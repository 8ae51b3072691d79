#include "ICancelTail.h"

ICancelTail::ICancelTail() = default;

ICancelTail::ICancelTail(const ICancelTail& other) = default;

ICancelTail& ICancelTail::operator=(const ICancelTail& other) = default;

ICancelTail::~ICancelTail() = default;
