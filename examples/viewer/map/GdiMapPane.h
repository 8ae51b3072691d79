#pragma once

#include <windows.h>

#include <memory>

#include "IQelScrDisplay2D.h"
#include "MapPane.h"
#include "QelRefPtr.h"
#include "ScreenFont.h"

namespace qelview {

/// A map drawn by the module's GDI display. The display draws lines and rectangles; areas with holes are
/// filled on its device context with its selected brush.
class GdiMapPane final : public MapPane {
  public:
    /// @param window with its own device context; it must be visible to be drawn on.
    explicit GdiMapPane(HWND window);

    void show(const MapFrame& frame, const MapView& view) override;
    [[nodiscard]] PixelImage picture(const MapFrame& frame, const MapView& view) override;

  private:
    [[nodiscard]] HDC deviceContext();
    void drawLines(const std::vector<Line2d>& lines, std::uint32_t color);
    void fillAreas(const std::vector<Rings2d>& areas);
    void drawPoints(const MapFrame& frame, const MapView& view);
    void drawTexts(const MapFrame& frame, const MapView& view);

    qel::ref_ptr<IQelScrDisplay2D> display;
    ScreenFont font;
};

}  // namespace qelview
