#pragma once

#include <windows.h>

#include <cstdint>

#include "TestWindow.h"

namespace qel::test {

/// Handles as the interfaces carry them.
inline std::int32_t number32(std::uintptr_t handle) {
    return static_cast<std::int32_t>(handle);
}
inline HWND hwndOf(const TestWindow& window) {
    return reinterpret_cast<HWND>(window.hwnd());
}
inline HDC dcOf(const TestWindow& window) {
    return reinterpret_cast<HDC>(window.dc());
}

}  // namespace qel::test
