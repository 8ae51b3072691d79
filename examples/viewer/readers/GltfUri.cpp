#include "GltfUri.h"

#include <charconv>
#include <cstdint>

#include "ReadError.h"

namespace qelview {

namespace {

constexpr std::string_view kDataScheme = "data:";
constexpr std::string_view kBase64 = ";base64,";
constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr unsigned kBitsOfALetter = 6;
constexpr unsigned kBitsOfAByte = 8;

}  // namespace

std::optional<std::string> decodeBase64(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    for (int i = 0; i < 2 && text.ends_with('='); ++i) {
        text.remove_suffix(1);
    }
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    std::uint32_t pending = 0;
    unsigned bits = 0;
    for (const char letter : text) {
        const std::size_t value = kLetters.find(letter);
        if (value == std::string_view::npos) {
            return std::nullopt;
        }
        pending = (pending << kBitsOfALetter) | static_cast<std::uint32_t>(value);
        bits += kBitsOfALetter;
        if (bits >= kBitsOfAByte) {
            bits -= kBitsOfAByte;
            bytes += static_cast<char>(static_cast<std::uint8_t>(pending >> bits));
        }
    }
    return bytes;
}

std::optional<std::string> dataOf(const std::string& place, std::string_view uri) {
    if (!uri.starts_with(kDataScheme)) {
        return std::nullopt;
    }
    const std::size_t mark = uri.find(kBase64);
    std::optional<std::string> bytes =
        mark == std::string_view::npos ? std::nullopt : decodeBase64(uri.substr(mark + kBase64.size()));
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
