#pragma once

#include <QString>
#include <cstdint>
#include <memory>

#include "BitmapFont.h"
#include "CGL.h"

/// A 24-bit bitmap with its own rendering context, and the BMP file it is written to.
class ScreenCapture {
  public:
    ScreenCapture() = default;
    ScreenCapture(const ScreenCapture&) = delete;
    ScreenCapture& operator=(const ScreenCapture&) = delete;
    ~ScreenCapture();

    /// True if the file of a bitmap of this size, in pixels, has a size that fits 32 bits.
    [[nodiscard]] static bool fitsFile(std::uint32_t width, std::uint32_t height) noexcept;
    /// True if the driver of the current context can draw a bitmap of this size.
    [[nodiscard]] static bool fitsDriver(std::uint32_t width, std::uint32_t height);

    /// Creates bitmap and context and makes the context current; nothing may be held before. Returns false,
    /// with nothing held, if one of them cannot be created.
    bool begin(HDC display, std::uint32_t width, std::uint32_t height, const QString& fileName);
    /// Reads the pixels and writes the file: 54 bytes of headers, then the rows as GDI gives them, cut at
    /// width x height x 3 bytes. Returns false if the file could not be created; all but the device context
    /// is kept.
    bool write();
    /// Waits for the bitmap's drawing to finish, in its own context.
    void finishDrawing();
    /// Releases pixels, bitmap and device context.
    void releaseBitmap();
    /// Deletes the rendering context; no context is current afterwards.
    void releaseContext();

    /// True while there is a picture: until it is written to its file or dropped.
    [[nodiscard]] bool isActive() const noexcept { return captureContext.isInitialised(); }
    /// True while the picture is drawn: until its pixels are read.
    [[nodiscard]] bool isDrawing() const noexcept { return isActive() && captureDC != nullptr; }
    [[nodiscard]] HGLRC renderContext() const noexcept { return captureContext.renderContext(); }
    void makeCurrent();
    [[nodiscard]] const BitmapFont& textFont() const noexcept { return font; }

  private:
    void releaseOtherContext() const;
    bool createSection(std::uint8_t depth);
    bool createContext();
    void readPixels();
    [[nodiscard]] std::uint32_t pixelBytes() const noexcept { return captureWidth * captureHeight * 3; }

    HDC captureDC = nullptr;
    HBITMAP captureBitmap = nullptr;
    CGL captureContext;
    std::uint32_t captureWidth = 0;
    std::uint32_t captureHeight = 0;
    QString captureFileName;
    std::unique_ptr<std::uint8_t[]> capturePixels;
    BITMAPINFOHEADER captureInfo{};
    BitmapFont font;
};
