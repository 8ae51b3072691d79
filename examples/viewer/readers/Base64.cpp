#include "Base64.h"

#include <cstdint>

namespace qelview {

namespace {

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

}  // namespace qelview
