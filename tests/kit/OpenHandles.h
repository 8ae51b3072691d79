#pragma once

#include <windows.h>

#include <cstdint>

namespace qel::test {

/// Handles of the kernel (threads, files, events, ...) that the process holds. Counted one by one, because
/// not every system tells their number. Windows only.
inline int openHandles() {
    constexpr std::uintptr_t kStep = 4;
    constexpr std::uintptr_t kMostHandles = 4096;
    int count = 0;
    for (std::uintptr_t number = kStep; number <= kStep * kMostHandles; number += kStep) {
        DWORD flags = 0;
        const auto handle = reinterpret_cast<HANDLE>(number);  // NOLINT(performance-no-int-to-ptr)
        count += GetHandleInformation(handle, &flags) != FALSE ? 1 : 0;
    }
    return count;
}

}  // namespace qel::test
