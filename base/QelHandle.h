#pragma once

#include <cstdint>

/// Windows handles as the interfaces carry them: 32-bit numbers. Handles of windows, device contexts and
/// rendering contexts have 32 significant bits on 64-bit Windows; the conversion back extends the sign. Needs
/// no Windows header.

namespace qel {

/// The number that stands for a handle (`HWND`, `HDC`, `HGLRC`); 0 for null.
[[nodiscard]] inline std::int32_t handleNumber(const void* handle) noexcept {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(handle));
}

/// The handle that a number stands for, as in `qel::handleFromNumber<HDC>(display.getDC())`; null for 0.
template <class Handle>
[[nodiscard]] Handle handleFromNumber(std::int32_t number) noexcept {
    return reinterpret_cast<Handle>(static_cast<std::intptr_t>(number));  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace qel
