#pragma once

#include <windows.h>

#include "LoadTask.h"
#include "Scene.h"

namespace qelview {

/// Runs a load and shows a small progress window if it takes long. Closing the window or pressing Esc cancels
/// the load.
/// @param dotsPerInch of the screen.
/// @throws what the load throws.
[[nodiscard]] Scene waitWithWindow(LoadTask& task, unsigned dotsPerInch = GetDpiForSystem());

}  // namespace qelview
