#include "GltfUri.h"

#include <charconv>
#include <cstdint>

#include "Base64.h"
#include "ReadError.h"

namespace qelview {

namespace {

constexpr std::string_view kDataScheme = "data:";
constexpr std::string_view kBase64 = ";base64,";

}  // namespace

std::optional<std::string> dataOf(const std::string& place, std::string_view uri) {
    if (!uri.starts_with(kDataScheme)) {
        return std::nullopt;
    }
    const std::size_t mark = uri.find(kBase64);
    std::optional<std::string> bytes;
    if (mark != std::string_view::npos) {
        bytes = decodeBase64(uri.substr(mark + kBase64.size()));
    }
    if (!bytes) {
        refuse(place, "invalid Base64 data");
    }
    return bytes;
}

std::string percentDecode(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = 0;
        const bool isCode =
            text[i] == '%' && text.size() - i > 2 &&
            std::from_chars(&text[i + 1], &text[i + 1] + 2, value, 16).ptr == &text[i + 1] + 2;
        plain += isCode ? static_cast<char>(static_cast<std::uint8_t>(value)) : text[i];
        i += isCode ? 2 : 0;
    }
    return plain;
}

}  // namespace qelview
