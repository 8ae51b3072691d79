#include "ScreenCapture.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace {

constexpr std::uint32_t kBytesPerPixel = 3;
constexpr std::uint8_t kFileDepth = 24;
constexpr std::uint8_t kDeepDepth = 32;
constexpr std::uint32_t kFileHeaderBytes = 14;
constexpr std::uint32_t kHeaderBytes = kFileHeaderBytes + sizeof(BITMAPINFOHEADER);
constexpr std::uint16_t kBitmapMagic = 0x4D42;

std::size_t rowBytes(std::uint32_t width) {
    return static_cast<std::size_t>(width) * kBytesPerPixel;
}

/// GDI pads its rows to a multiple of four bytes.
std::size_t paddedRowBytes(std::uint32_t width) {
    return (rowBytes(width) + 3) / 4 * 4;
}

/// Zeroes what GDI has not written: the rows from `rowsWritten` on, and the padding. Old memory contents must
/// not get into a file.
void zeroUnwritten(std::uint8_t* pixels, std::uint32_t width, std::uint32_t height,
                   std::uint32_t rowsWritten) {
    const std::size_t row = rowBytes(width);
    const std::size_t padded = paddedRowBytes(width);
    for (std::uint32_t index = 0; row != padded && index < rowsWritten; ++index) {
        std::memset(pixels + index * padded + row, 0, padded - row);
    }
    std::memset(pixels + rowsWritten * padded, 0, (height - rowsWritten) * padded);
}

/// A section stores blue, green, red: red is shifted by 16 bits. Drivers that report another order for 24
/// bits draw such sections wrong or not at all; all of them draw 32 bits, and GDI converts both to 24-bit
/// rows.
std::uint8_t supportedColorDepth(HDC deviceContext) {
    constexpr BYTE kRedShiftOfSection = 16;
    const PIXELFORMATDESCRIPTOR wanted = CGL::formatForDC(kFileDepth);
    PIXELFORMATDESCRIPTOR found{};
    const int chosen = ChoosePixelFormat(deviceContext, &wanted);
    const bool known = chosen != 0 && DescribePixelFormat(deviceContext, chosen, sizeof found, &found) != 0;
    return known && found.cRedShift != kRedShiftOfSection ? kDeepDepth : kFileDepth;
}

struct FileHeader {
    std::uint8_t bytes[kFileHeaderBytes];
};

FileHeader fileHeader(std::uint32_t pixelBytes) {
    const std::uint32_t fileBytes = pixelBytes + kHeaderBytes;
    FileHeader header{};
    std::memcpy(header.bytes, &kBitmapMagic, sizeof kBitmapMagic);
    std::memcpy(header.bytes + 2, &fileBytes, sizeof fileBytes);
    std::memcpy(header.bytes + 10, &kHeaderBytes, sizeof kHeaderBytes);
    return header;
}

void writeBytes(HANDLE file, const void* bytes, std::uint32_t count) {
    DWORD written = 0;
    WriteFile(file, bytes, count, &written, nullptr);
}

}  // namespace

ScreenCapture::~ScreenCapture() {
    releaseBitmap();
    releaseContext();
}

bool ScreenCapture::fitsFile(std::uint32_t width, std::uint32_t height) noexcept {
    constexpr std::uint64_t kLargestFile = UINT32_MAX;
    constexpr std::uint32_t kLargestSide = INT32_MAX;
    if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide) {
        return false;
    }
    // Division instead of multiplication: the product of two 31-bit sides and three bytes overflows 64 bits
    // too.
    return height <= (kLargestFile - kHeaderBytes) / kBytesPerPixel / width;
}

bool ScreenCapture::fitsDriver(std::uint32_t width, std::uint32_t height) {
    GLint largest[2] = {INT32_MAX, INT32_MAX};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest);
    return std::cmp_less_equal(width, largest[0]) && std::cmp_less_equal(height, largest[1]);
}

bool ScreenCapture::begin(HDC display, std::uint32_t width, std::uint32_t height, const QString& fileName) {
    captureWidth = width;
    captureHeight = height;
    captureFileName = fileName;
    captureDC = CreateCompatibleDC(display);
    captureInfo = BITMAPINFOHEADER{};
    captureInfo.biSize = sizeof captureInfo;
    captureInfo.biWidth = static_cast<LONG>(captureWidth);
    captureInfo.biHeight = static_cast<LONG>(captureHeight);
    captureInfo.biPlanes = 1;
    captureInfo.biBitCount = kFileDepth;
    capturePixels.reset(new (std::nothrow) std::uint8_t[paddedRowBytes(width) * height]);
    // Another driver than the window's may draw the bitmap, with another limit.
    if (!capturePixels || !createSection(kFileDepth) || !createContext() || !fitsDriver(width, height)) {
        releaseBitmap();
        releaseContext();
        return false;
    }
    font = BitmapFont({captureDC, captureContext.renderContext()});
    return true;
}

bool ScreenCapture::createContext() {
    releaseOtherContext();
    const std::uint8_t depth = supportedColorDepth(captureDC);
    return (depth == kFileDepth || createSection(depth)) && captureContext.createForDC(captureDC, depth);
}

// If two libraries that do not know of each other serve the contexts of windows and bitmaps, the window's one
// believes to be current all the time, and binds nothing when the window is made current again.
void ScreenCapture::releaseOtherContext() const {
    if (wglGetCurrentContext() != captureContext.renderContext()) {
        wglMakeCurrent(nullptr, nullptr);
    }
}

void ScreenCapture::makeCurrent() {
    releaseOtherContext();
    captureContext.makeCurrent();
}

bool ScreenCapture::createSection(std::uint8_t depth) {
    BITMAPINFO info{};
    info.bmiHeader = captureInfo;
    info.bmiHeader.biBitCount = depth;
    void* bits = nullptr;
    const HBITMAP section = CreateDIBSection(captureDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (section == nullptr) {
        return false;
    }
    SelectObject(captureDC, section);
    if (captureBitmap != nullptr) {
        DeleteObject(captureBitmap);
    }
    captureBitmap = section;
    return true;
}

void ScreenCapture::readPixels() {
    // The section's memory is only up to date once OpenGL has finished; the host may have left another
    // context current.
    finishDrawing();
    // GDI fills in the size of the picture, which stays 0 in the file: so it gets a copy of the header.
    BITMAPINFO info{};
    info.bmiHeader = captureInfo;
    const int rows =
        GetDIBits(captureDC, captureBitmap, 0, captureHeight, capturePixels.get(), &info, DIB_RGB_COLORS);
    zeroUnwritten(capturePixels.get(), captureWidth, captureHeight,
                  std::min(static_cast<std::uint32_t>(std::max(rows, 0)), captureHeight));
    DeleteDC(captureDC);
    captureDC = nullptr;
}

bool ScreenCapture::write() {
    // After a failed write the pixels are already read and the device context is gone.
    if (captureDC != nullptr) {
        readPixels();
    }
    // UTF-16 is what Windows reads. Qt's conversions to std::wstring belong to the C++ library that Qt was built with.
    const auto* const name = reinterpret_cast<const wchar_t*>(captureFileName.utf16());
    const HANDLE file = CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    const FileHeader header = fileHeader(pixelBytes());
    writeBytes(file, header.bytes, sizeof header.bytes);
    writeBytes(file, &captureInfo, sizeof captureInfo);
    writeBytes(file, capturePixels.get(), pixelBytes());
    CloseHandle(file);
    return true;
}

// Once the pixels are read the device context is gone; only a host that went on drawing has this context
// current.
void ScreenCapture::finishDrawing() {
    if (!isActive()) {
        return;
    }
    if (captureDC != nullptr) {
        makeCurrent();
    } else if (wglGetCurrentContext() != captureContext.renderContext()) {
        return;
    }
    glFinish();
}

void ScreenCapture::releaseBitmap() {
    // What was drawn and not read yet would be written into freed memory.
    finishDrawing();
    if (captureDC != nullptr) {
        DeleteDC(captureDC);
        captureDC = nullptr;
    }
    capturePixels.reset();
    if (captureBitmap != nullptr) {
        DeleteObject(captureBitmap);
        captureBitmap = nullptr;
    }
}

void ScreenCapture::releaseContext() {
    font = BitmapFont();
    captureContext.destroyContext();
    captureContext.dropLeftovers();
}
