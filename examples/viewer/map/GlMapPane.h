#pragma once

#include <windows.h>

#include <memory>

#include "CQelTransform2d.h"
#include "IQelDisplay.h"
#include "IQelSymbol.h"
#include "MapPane.h"
#include "MapStyle.h"
#include "ScreenFont.h"

namespace qelview {

/// A map drawn by the module's symbol on its OpenGL display, through its planar transform. The transform's
/// local origin is the corner of the view, so that OpenGL's coordinates are no larger than the view.
class GlMapPane final : public MapPane {
  public:
    /// Null if no OpenGL context could be created.
    [[nodiscard]] static std::unique_ptr<GlMapPane> open(HWND window);

    void show(const MapFrame& frame, const MapView& view) override;
    [[nodiscard]] PixelImage picture(const MapFrame& frame, const MapView& view) override;

  private:
    explicit GlMapPane(qel::ref_ptr<IQelDisplay> attached);

    /// Draws into the back buffer.
    void draw(const MapFrame& frame, const MapView& view);
    void loadView(const MapView& view);
    void drawLines(const std::vector<Line2d>& lines, const MapColor& color);
    void fillAreas(const std::vector<Rings2d>& areas, const MapView& view);
    void drawPoints(const MapFrame& frame, const MapView& view);
    void drawTexts(const MapFrame& frame, const MapView& view);
    [[nodiscard]] Points local(const Line2d& line) const;

    qel::ref_ptr<IQelDisplay> display;
    qel::ref_ptr<IQelSymbol> symbol;
    qel::ref_ptr<CQelTransform2d> transform;
    qel::XPnt3d origin;
    ScreenFont font;
};

}  // namespace qelview
