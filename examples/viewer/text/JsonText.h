#pragma once

#include <nlohmann/json.hpp>
#include <string_view>

namespace qelview {

/// A text of JSON whole, of any depth.
/// @throws ReadError that names the line at which it is none.
[[nodiscard]] nlohmann::json parseJson(std::string_view text);

/// A member of an object, or null.
[[nodiscard]] const nlohmann::json& memberOf(const nlohmann::json& object, const char* name);

}  // namespace qelview
