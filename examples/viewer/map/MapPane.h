#pragma once

#include "MapFrame.h"
#include "MapTexts.h"
#include "PictureFile.h"

namespace qelview {

/// The text over a map.
struct MapTextsOfFrame {
    bool areShown = true;
    std::string title;
    std::string place;
    ScaleBar bar;
};

/// A pane that draws a map in its window.
class MapPane {
  public:
    MapPane() = default;
    MapPane(const MapPane&) = delete;
    MapPane& operator=(const MapPane&) = delete;
    virtual ~MapPane() = default;

    /// Draws and shows a frame.
    virtual void show(const MapFrame& frame, const MapView& view, const MapTextsOfFrame& texts) = 0;
    /// Draws a frame and reads it back.
    [[nodiscard]] virtual PixelImage picture(const MapFrame& frame, const MapView& view,
                                             const MapTextsOfFrame& texts) = 0;
};

}  // namespace qelview
