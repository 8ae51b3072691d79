#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qelview {

/// Input reports of a device, each of the same length.
struct DeviceReports {
    std::vector<std::uint8_t> bytes;
    std::size_t bytesOfOne = 0;
};

/// Sends the reports of multi-axis controllers to a window as WM_INPUT while it is in the foreground. Without such a device nothing comes.
void listenToSixAxes(HWND window);
/// The reports of a WM_INPUT message; none for other devices.
/// @param input the message's second parameter.
[[nodiscard]] DeviceReports takeReports(LPARAM input);

}  // namespace qelview
