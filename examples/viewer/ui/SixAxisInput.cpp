#include "SixAxisInput.h"

#include <algorithm>
#include <cstring>

namespace qelview {

void listenToSixAxes(HWND window) {
    constexpr USHORT kGenericDesktop = 1;
    constexpr USHORT kMultiAxisController = 8;
    const RAWINPUTDEVICE wanted{kGenericDesktop, kMultiAxisController, 0, window};
    RegisterRawInputDevices(&wanted, 1, sizeof wanted);
}

DeviceReports takeReports(LPARAM input) {
    auto* const handle = reinterpret_cast<HRAWINPUT>(input);
    UINT size = 0;
    GetRawInputData(handle, RID_INPUT, nullptr, &size, sizeof(RAWINPUTHEADER));
    std::vector<std::uint8_t> message(size);
    const std::size_t begin = offsetof(RAWINPUT, data.hid.bRawData);
    const UINT got = GetRawInputData(handle, RID_INPUT, message.data(), &size, sizeof(RAWINPUTHEADER));
    if (got != message.size() || message.size() < begin) {
        return {};
    }
    RAWINPUT head{};
    std::memcpy(&head, message.data(), std::min(message.size(), sizeof head));
    if (head.header.dwType != RIM_TYPEHID) {
        return {};
    }
    message.erase(message.begin(), message.begin() + static_cast<std::ptrdiff_t>(begin));
    return {std::move(message), head.data.hid.dwSizeHid};
}

}  // namespace qelview
