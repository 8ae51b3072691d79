#include "JsonText.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "ReadError.h"

namespace qelview {

using nlohmann::json;

nlohmann::json parseJson(std::string_view text) {
    try {
        return json::parse(text.begin(), text.end());
    } catch (const json::parse_error& error) {
        // Counted from 1, and 0 where no byte is named.
        const std::size_t at = std::min(std::max<std::size_t>(error.byte, 1) - 1, text.size());
        const auto line = 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        refuse(atLine(static_cast<std::size_t>(line)), error.byte > text.size()
                                                           ? "the file ends in the middle of the JSON text"
                                                           : "no JSON at " + inQuotes(text.substr(at)));
    } catch (const json::exception&) {
        // The only other exception of the parser.
        refuse("file", "a number is too large");
    }
}

const json& memberOf(const json& object, const char* name) {
    static const json none;
    const auto found = object.find(name);
    return found == object.end() ? none : *found;
}

std::string_view textOf(const json& value) {
    return value.is_string() ? value.get_ref<const std::string&>() : std::string_view();
}

}  // namespace qelview
