#include "SystemClock.h"

#if defined(_WIN32)

// Declared by hand: the portable part of the module sees no Windows header.
extern "C" __declspec(dllimport) unsigned long GetTickCount();

std::uint32_t qel::systemTick() noexcept {
    return GetTickCount();
}

#else

#include <chrono>

std::uint32_t qel::systemTick() noexcept {
    using std::chrono::milliseconds;
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(sinceStart).count());
}

#endif
