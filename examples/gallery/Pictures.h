#pragma once

#include <span>

#include "QelDisplay64t.h"

/// The pictures of the gallery. The page shows the body of each function below its picture.

namespace gallery {

/// What a picture is drawn with: a display on a window of 320 x 240 pixels, inside a frame whose camera is
/// loaded. The camera looks from (1, 1, 1) at the ground from -8 to 8.
struct Easel {
    IQelDisplay& display;
    IQelTrackBall& camera;
    IQelSymbol& symbol;
};

struct Picture {
    /// Name of its file, and heading.
    const char* name;
    const char* text;
    void (*draw)(Easel& easel);
};

using Pictures = std::span<const Picture>;

[[nodiscard]] Pictures markers();
[[nodiscard]] Pictures geometries();
[[nodiscard]] Pictures arrays();
[[nodiscard]] Pictures overlays();
[[nodiscard]] Pictures views();

}  // namespace gallery
