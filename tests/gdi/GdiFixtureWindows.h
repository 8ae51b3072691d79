#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <functional>

#include "CGDIScrDisplay.h"
#include "QelDisplay64t.h"
#include "kit/CallTrace.h"
#include "kit/Census.h"
#include "kit/Picture.h"
#include "kit/TestWindow.h"
#include "kit/WindowHandles.h"
#include "kit/WindowsText.h"

/// What the tests of the GDI display share: a display of the finished library, with a window or with a bitmap
/// that it draws on in the place of one.

namespace qel::test {

constexpr COLORREF kFirstPenColor = 0xFF0000;
constexpr COLORREF kFirstBrushColor = 0x969696;

/// A display of the finished library and the reference that a host holds on it.
class HeldGdiDisplay {
  public:
    HeldGdiDisplay() = default;
    HeldGdiDisplay(const HeldGdiDisplay&) = delete;
    HeldGdiDisplay& operator=(const HeldGdiDisplay&) = delete;

    IQelScrDisplay2D* operator->() const { return display.get(); }
    /// The same display with the slots that it adds to its interface.
    CGDIScrDisplay& own() const { return static_cast<CGDIScrDisplay&>(*display); }

    void release() { display.reset(); }

  private:
    ref_ptr<IQelScrDisplay2D> display = adopt(newGDIScrDisplay());
};

/// The device context of a display, widened with its sign.
inline HDC dcOf(const HeldGdiDisplay& display) {
    return handleFromNumber<HDC>(display->getDC());
}

/// What is selected in a device context.
inline HGDIOBJ selected(HDC dc, UINT kind) {
    const CallTrace::Pause unrecorded;
    return GetCurrentObject(dc, kind);
}

/// A bitmap of 32 bits with a device context, white at first.
class Canvas {
  public:
    Canvas(int width, int height) : columns(width), rows(height), dc(CreateCompatibleDC(nullptr)) {
        const CallTrace::Pause unrecorded;
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* place = nullptr;
        section = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &place, nullptr, 0);
        bits = static_cast<const std::uint8_t*>(place);
        before = SelectObject(dc, section);
        PatBlt(dc, 0, 0, width, height, WHITENESS);
    }
    ~Canvas() {
        const CallTrace::Pause unrecorded;
        SelectObject(dc, before);
        DeleteObject(section);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC handle() const { return dc; }

    /// The pixels, lowest row first.
    Picture picture() const {
        const CallTrace::Pause unrecorded;
        GdiFlush();
        Picture all(columns, rows);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                const std::uint8_t* const pixel = bits + (y * columns + x) * 4;
                all.set(x, y, {pixel[2], pixel[1], pixel[0], 255});
            }
        }
        return all;
    }

  private:
    int columns;
    int rows;
    HDC dc;
    HBITMAP section = nullptr;
    HGDIOBJ before = nullptr;
    const std::uint8_t* bits = nullptr;
};

/// A display that is attached to a window of 200 x 100 pixels.
class GdiTest : public ::testing::Test {
  protected:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 100;

    GdiTest() {
        display->attachWindow(number32(window.hwnd()));
        // A window of this class has one device context all its life.
        dc = reinterpret_cast<HDC>(window.dc());
    }

    /// Pen and brush made and selected.
    Calls toolsMade(int penWidth = 1, COLORREF penColor = kFirstPenColor,
                    COLORREF brushColor = kFirstBrushColor) const {
        return {call("CreatePen", PS_SOLID, penWidth, penColor),
                call("CreateHatchBrush", HS_DIAGCROSS, brushColor), call("SelectObject", dc, any),
                call("SelectObject", dc, any)};
    }

    /// The device context's own tools selected again, the display's deleted.
    static Calls toolsGone(HDC from, HGDIOBJ oldPen, HGDIOBJ oldBrush, HGDIOBJ pen, HGDIOBJ brush) {
        return {call("SelectObject", from, oldPen), call("SelectObject", from, oldBrush),
                call("DeleteObject", pen), call("DeleteObject", brush)};
    }

    TestWindow window{kWidth, kHeight};
    HeldGdiDisplay display;
    HDC dc = nullptr;
};

/// A display that draws on a bitmap of 200 x 100 pixels as if it were its window's.
class GdiPictureTest : public ::testing::Test {
  protected:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 100;

    GdiPictureTest() {
        CallTrace trace;
        trace.answerPointer("GetDC", canvas.handle());
        display->attachWindow(number32(window.hwnd()));
        trace.passOn();
        display->setPixelSize(kWidth, kHeight);
        // A pixel is a unit wide.
        display->setViewExtent({0, 0, kWidth, kHeight});
    }
    ~GdiPictureTest() override {
        // The bitmap's device context is not a window's to release.
        CallTrace trace;
        trace.answer("ReleaseDC", 1);
        trace.answer("DeleteDC", 1);
        display.release();
    }

    TestWindow window{kWidth, kHeight};
    Canvas canvas{kWidth, kHeight};
    HeldGdiDisplay display;
};

}  // namespace qel::test
