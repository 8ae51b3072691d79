#pragma once

#include <nlohmann/json.hpp>
#include <string_view>

namespace qelview {

/// Parses JSON text, nested to any depth.
/// @throws ReadError that names the line of a syntax error.
[[nodiscard]] nlohmann::json parseJson(std::string_view text);

/// A member of an object; null if there is none, or the value is no object.
[[nodiscard]] const nlohmann::json& memberOf(const nlohmann::json& object, const char* name);

/// The text of a string; empty for any other value.
[[nodiscard]] std::string_view textOf(const nlohmann::json& value);

}  // namespace qelview
