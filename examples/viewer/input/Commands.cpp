#include "Commands.h"

#include <algorithm>
#include <array>

namespace qelview {

namespace {

/// The system's codes of keys other than letters and digits.
constexpr unsigned kEscapeKey = 0x1B;
constexpr unsigned kFirstPadKey = 0x60;
constexpr unsigned kStandardViews = 8;

struct LetterKey {
    char letter;
    Command command;
};

constexpr std::array<LetterKey, 9> kLetterKeys{{
    {'F', Command::Fit},
    {'O', Command::SwitchProjection},
    {'A', Command::LongAxes},
    {'U', Command::TurnUp},
    {'W', Command::Warnings},
    {'S', Command::Stereo},
    {'Z', Command::ZoomRectangle},
    {'C', Command::Capture},
    {'H', Command::Help},
}};

}  // namespace

KeyCommand commandOf(unsigned key, bool withControl) {
    if (withControl) {
        return {key == 'O' ? Command::Open : Command::Nothing, 0};
    }
    if (key == kEscapeKey) {
        return {Command::Leave, 0};
    }
    // Below the first one the subtraction wraps to a large number.
    for (const unsigned first : {static_cast<unsigned>('0'), kFirstPadKey}) {
        if (key - first < kStandardViews) {
            return {Command::StandardView, key - first};
        }
    }
    const auto* const found = std::find_if(kLetterKeys.begin(), kLetterKeys.end(), [key](const auto& each) {
        return static_cast<unsigned>(each.letter) == key;
    });
    return {found == kLetterKeys.end() ? Command::Nothing : found->command, 0};
}

unsigned keyOf(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(), [](char character) {
        return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    });
    if (word == "ESC") {
        return kEscapeKey;
    }
    const bool isNamed =
        word.size() == 1 && ((word[0] >= 'A' && word[0] <= 'Z') || (word[0] >= '0' && word[0] <= '9'));
    return isNamed ? static_cast<unsigned>(word[0]) : 0;
}

}  // namespace qelview
