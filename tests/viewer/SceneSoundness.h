#pragma once

#include <filesystem>
#include <string>

#include "Scene.h"

namespace qel::test {

/// What is wrong with a scene that a reader gave: nothing to show, a coordinate that is not finite, an index
/// or a count that does not fit. Empty for a sound scene.
[[nodiscard]] std::string faultOf(const qelview::Scene& scene);

/// Does with a file what the viewer does when it opens it; what is wrong then: a scene that is not sound, a
/// refusal that is not one line with the file's name. Empty if the file is shown or refused well.
[[nodiscard]] std::string faultOfOpening(const std::filesystem::path& file);

}  // namespace qel::test
