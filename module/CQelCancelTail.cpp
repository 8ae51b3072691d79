#include "CQelCancelTail.h"

#include "SystemClock.h"

namespace {

/// Whether an operation that has run for this long may be cut short. A host's operations may be cut at any
/// time.
bool mayCancelAfter(std::uint32_t /*elapsedMilliseconds*/) {
    return true;
}

}  // namespace

CQelCancelTail::~CQelCancelTail() = default;

bool CQelCancelTail::checkCancel() {
    const std::uint32_t start = startTick != nullptr ? *startTick : 0;
    return mayCancelAfter(qel::systemTick() - start);
}
