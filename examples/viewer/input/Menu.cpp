#include "Menu.h"

#include <array>

namespace qelview {

namespace {

constexpr std::array<MenuLine, 8> kFileLines{{
    {"&Open...", "Ctrl+O", {Command::Open}},
    {"&Recent files", "", {Command::Recent}},
    {},
    {"&Capture", "C", {Command::Capture}},
    {"Cop&y the view", "Ctrl+Shift+C", {Command::CopyPicture}},
    {"Capture &size", "R", {Command::CaptureSize}},
    {},
    {"&Quit", "Alt+F4", {Command::Quit}},
}};

constexpr std::array<MenuLine, 3> kToolLines{{
    {"&Measure", "M", {Command::Measure}},
    {"&Copy the points", "Ctrl+C", {Command::CopyMeasurements}},
    {"&Zoom into a rectangle", "Z", {Command::ZoomRectangle}},
}};

constexpr std::array<MenuLine, 21> kViewLines{{
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
    {},
    {"&Orthographic", "O", {Command::SwitchProjection}},
    {"Long &axes", "A", {Command::LongAxes}},
    {"&Y points up", "U", {Command::TurnUp}},
    {},
    {"&Elevation, plain or own colours", "E", {Command::Colours}},
    {"Larger &points", "P", {Command::PointSize, 0}},
    {"Smaller poi&nts", "Shift+P", {Command::PointSize, 1}},
    {},
    {"&Stereo", "S", {Command::Stereo}},
    {"&Warnings", "W", {Command::Warnings}},
}};

constexpr std::array<MenuLine, 2> kHelpLinesOfMenu{{
    {"&Mouse and keys", "H", {Command::Help}},
    {"&About qelview", "", {Command::About}},
}};

constexpr std::array<MenuColumn, 4> kColumns{{
    {"&File", kFileLines},
    {"&View", kViewLines},
    {"&Tools", kToolLines},
    {"&Help", kHelpLinesOfMenu},
}};

/// Lower numbers belong to the system's own windows.
constexpr unsigned kFirstNumber = 1000;
/// More than the number of views, and of recent files.
constexpr unsigned kNumbersOfACommand = 16;

/// Keys of the number pad have codes of their own.
constexpr unsigned kFirstPadDigit = 0x60;
constexpr unsigned kPadDigits = 10;

KeyCommand lineOf(const KeyPress& press) {
    for (const MenuColumn& column : kColumns) {
        for (const MenuLine& line : column.lines) {
            if (keyOf(line.key) == press) {
                return line.meaning;
            }
        }
    }
    return {};
}

}  // namespace

std::span<const MenuColumn> menuColumns() {
    return kColumns;
}

KeyCommand commandOf(const KeyPress& press) {
    KeyPress wanted = press;
    // Below the first one the subtraction wraps to a large number.
    if (wanted.key - kFirstPadDigit < kPadDigits) {
        wanted.key = wanted.key - kFirstPadDigit + '0';
    }
    if (wanted.key == 0 || wanted == keyOf("Esc")) {
        return {wanted.key == 0 ? Command::Nothing : Command::Leave};
    }
    const KeyCommand exactly = lineOf(wanted);
    if (exactly.command != Command::Nothing || !wanted.withShift) {
        return exactly;
    }
    wanted.withShift = false;
    return lineOf(wanted);
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
