#pragma once

#include "Scene.h"

namespace qelview {

/// A small landscape that shows every kind of geometry, mesh, cloud and marker at once.
[[nodiscard]] Scene makeSampleScene();

}  // namespace qelview
