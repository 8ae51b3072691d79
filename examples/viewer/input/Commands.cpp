#include "Commands.h"

#include <algorithm>
#include <array>

namespace qelview {

namespace {

struct NamedKey {
    std::string_view name;
    unsigned key;
};

/// The system's codes of keys other than letters and digits.
constexpr std::array<NamedKey, 12> kNamedKeys{{
    {"ESC", 0x1B},
    {"BACKSPACE", 0x08},
    {"PAGEUP", 0x21},
    {"PAGEDOWN", 0x22},
    {"HOME", 0x24},
    {"LEFT", 0x25},
    {"UP", 0x26},
    {"RIGHT", 0x27},
    {"DOWN", 0x28},
    {"F5", 0x74},
    {"+", 0xBB},
    {"-", 0xBD},
}};

bool takePrefix(std::string_view& word, std::string_view prefix) {
    const bool isThere = word.starts_with(prefix) && word.size() > prefix.size();
    word.remove_prefix(isThere ? prefix.size() : 0);
    return isThere;
}

}  // namespace

KeyPress keyOf(std::string_view word) {
    std::string upper(word);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char character) {
        return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    });
    std::string_view name = upper;
    KeyPress press;
    press.withControl = takePrefix(name, "CTRL+");
    press.withShift = takePrefix(name, "SHIFT+");
    const auto* const named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                           [name](const NamedKey& each) { return each.name == name; });
    if (named != kNamedKeys.end()) {
        press.key = named->key;
        return press;
    }
    const bool isNamed =
        name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9'));
    return isNamed ? KeyPress{static_cast<unsigned>(name[0]), press.withControl, press.withShift}
                   : KeyPress();
}

}  // namespace qelview
