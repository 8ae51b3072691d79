#include "Clipboard.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "SystemWindow.h"

namespace qelview {

namespace {

/// Memory that the clipboard takes over; null if there is none.
HGLOBAL sharedCopyOf(const void* bytes, std::size_t count) {
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, count);
    void* const place = memory != nullptr ? GlobalLock(memory) : nullptr;
    if (place != nullptr) {
        std::memcpy(place, bytes, count);
        GlobalUnlock(memory);
    }
    return place != nullptr ? memory : nullptr;
}

bool copy(HWND owner, UINT format, const void* bytes, std::size_t count) {
    if (OpenClipboard(owner) == FALSE) {
        return false;
    }
    EmptyClipboard();
    HGLOBAL const memory = sharedCopyOf(bytes, count);
    const bool isTaken = memory != nullptr && SetClipboardData(format, memory) != nullptr;
    if (memory != nullptr && !isTaken) {
        GlobalFree(memory);
    }
    CloseClipboard();
    return isTaken;
}

}  // namespace

bool copyText(HWND owner, const std::string& text) {
    const std::wstring wide = toWide(text);
    // With its terminating zero.
    return copy(owner, CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

bool copyPicture(HWND owner, const PixelImage& image) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = image.width;
    header.biHeight = image.height;
    header.biPlanes = 1;
    header.biBitCount = 24;
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(&header);
    std::vector<std::uint8_t> bytes(begin, begin + sizeof header);
    const auto width = static_cast<std::size_t>(image.width);
    for (std::size_t pixel = 0; pixel * 3 < image.rgb.size(); ++pixel) {
        const std::uint8_t* const rgb = image.rgb.data() + 3 * pixel;
        bytes.insert(bytes.end(), {rgb[2], rgb[1], rgb[0]});
        // Rows are padded to words.
        if ((pixel + 1) % width == 0) {
            bytes.resize((bytes.size() - sizeof header + 3) / 4 * 4 + sizeof header);
        }
    }
    return copy(owner, CF_DIB, bytes.data(), bytes.size());
}

}  // namespace qelview
