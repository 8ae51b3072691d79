#pragma once

#include <cstdint>

#include "IQelScrDisplay2D.h"
#include "QelSystem.h"
#include "detail/QelTruncate.h"

/// The plain 2D display: a world rectangle on a window's device context, drawn with one pen and one hatch
/// brush.
class CGDIScrDisplay : public IQelScrDisplay2D {
  public:
    CGDIScrDisplay() = default;
    CGDIScrDisplay(const CGDIScrDisplay&) = delete;
    CGDIScrDisplay& operator=(const CGDIScrDisplay&) = delete;

    std::int32_t getDC() override;
    std::int32_t attachWindow(std::int32_t window) override;
    std::int32_t getWindow() override;
    std::int32_t setPixelSize(std::int32_t width, std::int32_t height) override;
    std::int32_t beginDraw() override;
    std::int32_t endDraw() override;
    std::int32_t reservedSlot7() override;
    std::int32_t reservedSlot8() override;
    std::int32_t reservedSlot9() override;
    std::int32_t reservedSlot10() override;
    std::int32_t reservedSlot11() override;
    std::int32_t reservedSlot12() override;
    std::int32_t reservedSlot13() override;
    std::int32_t setFullExtent(const qel::Enve2d& extent) override;
    std::int32_t zoomToFull() override;
    std::int32_t setViewExtent(const qel::Enve2d& extent) override;
    qel::Enve2d getViewExtent() override;
    qel::PixelPoint worldToScreen(const qel::XPnt2d& point) override;
    qel::PixelPoint worldToScreen3d(const qel::XPnt3d& point) override;
    qel::XPnt2d screenToWorld(std::int32_t x, std::int32_t y) override;
    qel::XPnt2d screenToWorldPoint(const qel::PixelPoint& pixel) override;
    std::int32_t reservedSlot26() override;
    std::int32_t setPenWidth(std::int32_t width) override;
    std::int32_t getPenWidth() override;
    std::int32_t setBrushColor(std::uint32_t color) override;
    std::uint32_t getBrushColor() override;
    std::int32_t setPenColor(std::uint32_t color) override;
    std::uint32_t getPenColor() override;
    std::int32_t drawRect(const qel::Enve2d& rect, bool outlineOnly) override;
    std::int32_t reservedSlot34() override;
    std::int32_t drawLineSeg(CQelLineSeg segment) override;

    /// Recreates pen and brush and selects them. Returns 0.
    virtual std::int32_t createTools();
    /// World units per pixel at which an extent just fits the drawing area; 0 for an extent or area without a
    /// size.
    virtual double computeScale(qel::Enve2d extent);
    /// Widens an extent around its centre to the aspect ratio of the drawing area and stores its scale.
    /// Returns 0.
    virtual std::int32_t fitExtent(qel::Enve2d& extent);

  protected:
    ~CGDIScrDisplay() override;

  private:
    [[nodiscard]] qel::PixelPoint pixelOf(double x, double y) const noexcept;
    void selectOldTools();
    void deleteTools();
    [[nodiscard]] bool canDraw() const;

    std::int32_t windowHandle = 0;
    HDC deviceContext = nullptr;
    qel::Enve2d fullExtent;
    qel::XPnt3d anchorPoint;
    double scale = 0.0;
    qel::Enve2d viewExtent;
    std::int32_t pixelWidth = 0;
    std::int32_t pixelHeight = 0;
    std::int32_t penWidth = 1;
    COLORREF penColor = RGB(0, 0, 255);
    COLORREF brushColor = RGB(150, 150, 150);
    HPEN pen = nullptr;
    HBRUSH brush = nullptr;
    HGDIOBJ oldPen = nullptr;
    HGDIOBJ oldBrush = nullptr;
};

// Inline: drawing thousands of segments would pay for the calls.
inline qel::PixelPoint CGDIScrDisplay::pixelOf(double x, double y) const noexcept {
    const std::int32_t column = qel::truncateToInt((scale * 0.5 + x - viewExtent.xmin) / scale);
    const std::int32_t rowFromBelow = qel::truncateToInt((scale * 0.5 + y - viewExtent.ymin) / scale);
    // In double: the row of a point far outside does not fit an integer.
    return {column, qel::truncateToInt(static_cast<double>(pixelHeight) - rowFromBelow - 1.0)};
}
