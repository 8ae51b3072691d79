#pragma once

#include <string>

#include "Scene.h"

namespace qel::test {

/// What is wrong with a scene that a reader gave: nothing to show, a coordinate that is not finite, an index
/// or a count that does not fit. Empty for a sound scene.
[[nodiscard]] std::string faultOf(const qelview::Scene& scene);

}  // namespace qel::test
