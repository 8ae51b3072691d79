#pragma once

#include "MapFrame.h"
#include "PictureFile.h"

namespace qelview {

/// A pane that draws a map in its window.
class MapPane {
  public:
    MapPane() = default;
    MapPane(const MapPane&) = delete;
    MapPane& operator=(const MapPane&) = delete;
    virtual ~MapPane() = default;

    /// Draws and shows a frame.
    virtual void show(const MapFrame& frame, const MapView& view) = 0;
    /// Draws a frame and reads it back.
    [[nodiscard]] virtual PixelImage picture(const MapFrame& frame, const MapView& view) = 0;
};

}  // namespace qelview
