#pragma once

#include "LoadTask.h"
#include "Scene.h"

namespace qelview {

/// Waits for a load; shows a small window with a bar if it lasts. Closing the window, or Esc, gives up.
/// @throws what the load throws.
[[nodiscard]] Scene waitWithWindow(LoadTask& task);

}  // namespace qelview
