#include "JsonText.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "ReadError.h"

namespace qelview {

namespace {

using nlohmann::json;

/// The line of a byte; both are counted from 1.
std::size_t lineOf(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, std::min(text.size(), byte == 0 ? 0 : byte - 1));
    return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

}  // namespace

nlohmann::json parseJson(std::string_view text) {
    try {
        return json::parse(text.begin(), text.end());
    } catch (const json::parse_error& error) {
        const bool isAtEnd = error.byte > text.size();
        refuse(atLine(lineOf(text, error.byte)),
               isAtEnd ? "the file ends in the middle of the JSON text"
                       : "no JSON at " + inQuotes(text.substr(error.byte == 0 ? 0 : error.byte - 1)));
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

}  // namespace qelview
