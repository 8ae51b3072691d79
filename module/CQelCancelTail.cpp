#include "CQelCancelTail.h"

#include "SystemClock.h"

CQelCancelTail::~CQelCancelTail() = default;

bool CQelCancelTail::checkCancel() {
    // An operation may be cancelled however long it has run.
    [[maybe_unused]] const std::uint32_t elapsedMilliseconds =
        qel::systemTick() - (startTick != nullptr ? *startTick : 0);
    return true;
}
