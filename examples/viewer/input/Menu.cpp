#include "Menu.h"

#include <array>

namespace qelview {

namespace {

constexpr std::array<MenuLine, 6> kFileLines{{
    {"&Open...", "Ctrl+O", {Command::Open}},
    {"&Recent files", "", {Command::Recent}},
    {},
    {"&Capture", "C", {Command::Capture}},
    {},
    {"&Quit", "Alt+F4", {Command::Quit}},
}};

constexpr std::array<MenuLine, 17> kViewLines{{
    {"&Top", "0", {Command::StandardView, 0}},
    {"&Bottom", "1", {Command::StandardView, 1}},
    {"Bac&k", "2", {Command::StandardView, 2}},
    {"&Front", "3", {Command::StandardView, 3}},
    {"&Right", "4", {Command::StandardView, 4}},
    {"&Left", "5", {Command::StandardView, 5}},
    {"&Isometric", "6", {Command::StandardView, 6}},
    {"Isometric from b&elow", "7", {Command::StandardView, 7}},
    {},
    {"Fit the &model", "F", {Command::Fit}},
    {"&Zoom into a rectangle", "Z", {Command::ZoomRectangle}},
    {},
    {"&Orthographic", "O", {Command::SwitchProjection}},
    {"Long &axes", "A", {Command::LongAxes}},
    {"&Y points up", "U", {Command::TurnUp}},
    {"&Stereo", "S", {Command::Stereo}},
    {"&Warnings", "W", {Command::Warnings}},
}};

constexpr std::array<MenuLine, 2> kHelpLinesOfMenu{{
    {"&Mouse and keys", "H", {Command::Help}},
    {"&About qelview", "", {Command::About}},
}};

constexpr std::array<MenuColumn, 3> kColumns{{
    {"&File", kFileLines},
    {"&View", kViewLines},
    {"&Help", kHelpLinesOfMenu},
}};

/// Lower numbers belong to the system's own windows.
constexpr unsigned kFirstNumber = 1000;
/// More than the number of views, and of recent files.
constexpr unsigned kNumbersOfACommand = 16;

}  // namespace

std::span<const MenuColumn> menuColumns() {
    return kColumns;
}

unsigned menuNumberOf(const KeyCommand& meaning) {
    return kFirstNumber + static_cast<unsigned>(meaning.command) * kNumbersOfACommand + meaning.number;
}

KeyCommand commandOfMenu(unsigned number) {
    // Below the first one the subtraction wraps to a large number.
    const unsigned place = number - kFirstNumber;
    const unsigned command = place / kNumbersOfACommand;
    if (command > static_cast<unsigned>(kLastCommand)) {
        return {};
    }
    return {static_cast<Command>(command), place % kNumbersOfACommand};
}

std::string recentText(unsigned place, std::string_view file) {
    std::string text = "&" + std::to_string(place) + " ";
    for (const char character : file) {
        // One & marks a key, two show one.
        text += character == '&' ? "&&" : std::string(1, character);
    }
    return text;
}

}  // namespace qelview
