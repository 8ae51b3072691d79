#include "CQelCancelTail.h"

#if defined(_WIN32)
// Declared by hand: only the Windows shell includes Windows headers.
extern "C" __declspec(dllimport) unsigned long GetTickCount();
#else
#include <chrono>
#endif

namespace {

/// Milliseconds since the system started; wraps around after 49.7 days.
std::uint32_t systemTick() noexcept {
#if defined(_WIN32)
    return GetTickCount();
#else
    using std::chrono::milliseconds;
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(sinceStart).count());
#endif
}

}  // namespace

CQelCancelTail::~CQelCancelTail() = default;

bool CQelCancelTail::checkCancel() {
    // An operation may be cancelled at any time.
    [[maybe_unused]] const std::uint32_t elapsedMilliseconds =
        systemTick() - (startTick != nullptr ? *startTick : 0);
    return true;
}
