#include "Clipboard.h"

#include <cstring>
#include <vector>

#include "SystemWindow.h"

namespace qelview {

namespace {

bool copy(HWND owner, UINT format, const void* bytes, std::size_t count) {
    if (OpenClipboard(owner) == FALSE) {
        return false;
    }
    EmptyClipboard();
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, count);
    void* const place = memory != nullptr ? GlobalLock(memory) : nullptr;
    if (place != nullptr) {
        std::memcpy(place, bytes, count);
        GlobalUnlock(memory);
    }
    // The clipboard takes the memory over.
    const bool isTaken = place != nullptr && SetClipboardData(format, memory) != nullptr;
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
    const std::vector<char> bytes = bitmapOf(image);
    // The header of the file does not belong to the picture.
    constexpr std::size_t kBegin = sizeof(BITMAPFILEHEADER);
    return copy(owner, CF_DIB, bytes.data() + kBegin, bytes.size() - kBegin);
}

}  // namespace qelview
