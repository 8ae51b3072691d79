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
/// Created by `newGDIScrDisplay`. It shows a world rectangle with one uniform scale. The host clears the
/// window and brackets `WM_PAINT` with `BeginPaint` and `EndPaint`; the display only draws.
///
/// - Thread: every operation runs on the thread that owns the window.
/// - Units: world coordinates with y up; pixels with the origin at the upper-left corner and y down. Colours
///   are 0x00BBGGRR.
/// - Arguments: numbers are not checked. A coordinate beyond 32-bit pixels or one that is not a number maps
///   to -2147483648.
/// - Results: 0 or 1 is success, whichever the operation names. GDI errors are not reported.
class QEL_DISPLAY_API IQelScrDisplay2D : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelScrDisplay2D();
    IQelScrDisplay2D(const IQelScrDisplay2D& other);
    IQelScrDisplay2D& operator=(const IQelScrDisplay2D& other);
    /// @}

    /// The device context drawn on, as the low 32 bits of its handle; 0 before attaching.
    virtual std::int32_t getDC() = 0;
    /// Binds to a window and takes its outer size in pixels, frame included; `setPixelSize` sets that of the
    /// client area. Returns 0; -1 for window 0, which changes nothing.
    virtual std::int32_t attachWindow(std::int32_t window) = 0;
    /// The window given to `attachWindow`; 0 before.
    virtual std::int32_t getWindow() = 0;
    /// Sets the size of the drawing area in pixels; the scale follows at the next `setViewExtent`. Returns 0.
    virtual std::int32_t setPixelSize(std::int32_t width, std::int32_t height) = 0;
    /// Opens a draw bracket: creates pen and brush and selects them. Returns 1.
    virtual std::int32_t beginDraw() = 0;
    /// Closes the bracket: selects the previous pen and brush of the device context again and deletes the
    /// display's. Returns 1.
    virtual std::int32_t endDraw() = 0;
    virtual std::int32_t reservedSlot7() = 0;
    virtual std::int32_t reservedSlot8() = 0;
    virtual std::int32_t reservedSlot9() = 0;
    virtual std::int32_t reservedSlot10() = 0;
    virtual std::int32_t reservedSlot11() = 0;
    virtual std::int32_t reservedSlot12() = 0;
    virtual std::int32_t reservedSlot13() = 0;
    /// @{
    /// Numbered caches, which no display of this module has. All four return 0.
    virtual std::int32_t getActiveCache();
    virtual std::int32_t setActiveCache(std::int32_t cache);
    virtual std::int32_t getCacheDC(std::int32_t cache);
    virtual std::int32_t UpdateWindow();
    /// @}
    /// Sets the world rectangle that `zoomToFull` shows. Returns 0.
    virtual std::int32_t setFullExtent(const qel::Enve2d& extent) = 0;
    /// Shows the full extent, as `setViewExtent` does. Returns 0.
    virtual std::int32_t zoomToFull() = 0;
    /// Shows a world rectangle, widened around its centre to the aspect ratio of the drawing area. A
    /// rectangle without width or height collapses the view onto its centre, and no other point has a pixel.
    /// Returns 0.
    virtual std::int32_t setViewExtent(const qel::Enve2d& extent) = 0;
    /// The world rectangle shown, as widened.
    virtual qel::Enve2d getViewExtent() = 0;
    /// @{
    /// The pixel of a world point, truncated toward zero; a point outside the window gets a pixel outside it.
    virtual qel::PixelPoint worldToScreen(const qel::XPnt2d& point) = 0;
    virtual qel::PixelPoint worldToScreen3d(const qel::XPnt3d& point) = 0;
    /// @}
    /// @{
    /// The world point of a pixel.
    virtual qel::XPnt2d screenToWorld(std::int32_t x, std::int32_t y) = 0;
    virtual qel::XPnt2d screenToWorldPoint(const qel::PixelPoint& pixel) = 0;
    /// @}
    virtual std::int32_t reservedSlot26() = 0;
    /// @{
    /// Width of the pen in pixels (1 at first), colour of the hatch brush (grey) and of the pen (blue). The
    /// setters recreate both tools and select them at once; outside a bracket, drawing then works until
    /// `endDraw`. They return 0.
    virtual std::int32_t setPenWidth(std::int32_t width) = 0;
    virtual std::int32_t getPenWidth() = 0;
    virtual std::int32_t setBrushColor(std::uint32_t color) = 0;
    virtual std::uint32_t getBrushColor() = 0;
    virtual std::int32_t setPenColor(std::uint32_t color) = 0;
    virtual std::uint32_t getPenColor() = 0;
    /// @}
    /// Fills a world rectangle with the hatch brush, unless `outlineOnly`, and outlines it with the pen.
    /// Draws nothing outside a bracket. Leaves the pen position moved. Returns 1.
    virtual std::int32_t drawRect(const qel::Enve2d& rect, bool outlineOnly) = 0;
    virtual std::int32_t reservedSlot34() = 0;
    /// Draws the x and y of a segment with the pen. Draws nothing outside a bracket. Leaves the pen position
    /// moved. Returns 1.
    virtual std::int32_t drawLineSeg(CQelLineSeg segment) = 0;

  protected:
    ~IQelScrDisplay2D() override;
};
