#pragma once

/// The one place where the module takes in the system's headers, without their macros `min` and `max`.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdint>

namespace qel {

/// A handle that an interface carries in 32 bits, widened with its sign: handles of windows and device
/// contexts have 32 significant bits on 64-bit Windows.
template <class Handle>
[[nodiscard]] Handle toHandle(std::int32_t value) noexcept {
    return reinterpret_cast<Handle>(static_cast<std::intptr_t>(value));  // NOLINT(performance-no-int-to-ptr)
}

/// The 32 bits of a handle that an interface carries.
template <class Handle>
[[nodiscard]] std::int32_t fromHandle(Handle handle) noexcept {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(handle));
}

}  // namespace qel
