#pragma once

#include <cstdint>

#include "CQelLineSeg.h"
#include "Enve2d.h"
#include "QelDisplayExport.h"
#include "QelReferenced.h"
#include "XPnt2d.h"
#include "XPnt3d.h"

namespace qel {

/// A pixel of a window: origin at the upper-left corner, rows counted downwards.
struct PixelPoint {
    /// @{
    /// Column and row.
    std::int32_t x = 0;
    std::int32_t y = 0;
    /// @}
};

}  // namespace qel

/// A plain 2D display that draws rectangles and line segments on a window without OpenGL.
///
/// Made by `newGDIScrDisplay`. It shows a world rectangle with one uniform scale; world y points up, pixel
/// rows count down. Colours are 0x00BBGGRR. Numbers are not checked: a coordinate too far out, or one that is
/// not a number, maps to -2147483648. Every operation runs on the thread that owns the window.
class QEL_DISPLAY_API IQelScrDisplay2D : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelScrDisplay2D();
    IQelScrDisplay2D(const IQelScrDisplay2D& other);
    IQelScrDisplay2D& operator=(const IQelScrDisplay2D& other);
    /// @}

    /// The device context drawn on, as the low 32 bits of its handle; 0 before attaching.
    virtual std::int32_t getDC() = 0;
    /// Binds to a window and takes its outer size in pixels. Returns 0; window 0 is refused with -1.
    virtual std::int32_t attachWindow(std::int32_t window) = 0;
    /// The window bound to; 0 before.
    virtual std::int32_t getWindow() = 0;
    /// Sets the size of the drawing area in pixels; returns 0.
    virtual std::int32_t setPixelSize(std::int32_t width, std::int32_t height) = 0;
    /// Opens a bracket: makes pen and brush and selects them. Returns 1.
    virtual std::int32_t beginDraw() = 0;
    /// Closes the bracket: selects the device context's own pen and brush again and deletes the display's.
    /// Returns 1.
    virtual std::int32_t endDraw() = 0;
    virtual std::int32_t reservedSlot7() = 0;
    virtual std::int32_t reservedSlot8() = 0;
    virtual std::int32_t reservedSlot9() = 0;
    virtual std::int32_t reservedSlot10() = 0;
    virtual std::int32_t reservedSlot11() = 0;
    virtual std::int32_t reservedSlot12() = 0;
    virtual std::int32_t reservedSlot13() = 0;
    /// @{
    /// Numbered caches are not offered by default: all four answer 0.
    virtual std::int32_t getActiveCache();
    virtual std::int32_t setActiveCache(std::int32_t cache);
    virtual std::int32_t getCacheDC(std::int32_t cache);
    virtual std::int32_t UpdateWindow();
    /// @}
    /// The world rectangle that `zoomToFull` shows; returns 0.
    virtual std::int32_t setFullExtent(const qel::Enve2d& extent) = 0;
    /// Shows the full extent, as `setViewExtent` does; returns 0.
    virtual std::int32_t zoomToFull() = 0;
    /// Shows a world rectangle, widened around its centre to the shape of the window; returns 0. A rectangle
    /// without width or height collapses the view onto its centre, where no other point has a pixel.
    virtual std::int32_t setViewExtent(const qel::Enve2d& extent) = 0;
    /// The world rectangle shown, as widened.
    virtual qel::Enve2d getViewExtent() = 0;
    /// @{
    /// World to pixels, each truncated toward zero; what lies outside the window gets pixels outside it.
    virtual qel::PixelPoint worldToScreen(const qel::XPnt2d& point) = 0;
    virtual qel::PixelPoint worldToScreen3d(const qel::XPnt3d& point) = 0;
    /// @}
    /// @{
    /// Pixels to world.
    virtual qel::XPnt2d screenToWorld(std::int32_t x, std::int32_t y) = 0;
    virtual qel::XPnt2d screenToWorldPoint(const qel::PixelPoint& pixel) = 0;
    /// @}
    virtual std::int32_t reservedSlot26() = 0;
    /// @{
    /// Width of the pen in pixels; colours of the pen and of the hatch brush. The setters make both tools
    /// again and select them at once, also outside a bracket, where drawing then works until `endDraw`. They
    /// return 0.
    virtual std::int32_t setPenWidth(std::int32_t width) = 0;
    virtual std::int32_t getPenWidth() = 0;
    virtual std::int32_t setBrushColor(std::uint32_t color) = 0;
    virtual std::uint32_t getBrushColor() = 0;
    virtual std::int32_t setPenColor(std::uint32_t color) = 0;
    virtual std::uint32_t getPenColor() = 0;
    /// @}
    /// Fills a world rectangle with the hatch brush, unless `outlineOnly`, and outlines it. Draws nothing
    /// while no tools are selected. Returns 1.
    virtual std::int32_t drawRect(const qel::Enve2d& rect, bool outlineOnly) = 0;
    virtual std::int32_t reservedSlot34() = 0;
    /// Draws a segment in the plane of x and y, likewise; returns 1.
    virtual std::int32_t drawLineSeg(CQelLineSeg segment) = 0;

  protected:
    ~IQelScrDisplay2D() override;
};
