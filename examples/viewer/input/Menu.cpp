#include "Menu.h"

#include <algorithm>
#include <array>

namespace qelview {

namespace {

constexpr std::array<MenuLine, 9> kFileLines{{
    {"&Open...", "Ctrl+O", {Command::Open}},
    {"&Recent files", "", {Command::Recent}},
    {"Re&load", "F5", {Command::Reload}},
    {},
    {"&Capture", "C", {Command::Capture}},
    {"Cop&y the view", "Ctrl+Shift+C", {Command::CopyPicture}},
    {"Capture &size", "R", {Command::CaptureSize}},
    {},
    {"&Quit", "Alt+F4", {Command::Quit}},
}};

constexpr std::array<MenuLine, 8> kToolLines{{
    {"&Measure", "M", {Command::Measure}},
    {"&Copy the points", "Ctrl+C", {Command::CopyMeasurements}},
    {"&Zoom into a rectangle", "Z", {Command::ZoomRectangle}},
    {},
    {"&Section across x, y, z, the view", "X", {Command::Section}},
    {"Section &forward", "PageUp", {Command::MoveSection, 0}},
    {"Section &back", "PageDown", {Command::MoveSection, 1}},
    {"&Turn the section round", "I", {Command::FlipSection}},
}};

constexpr std::array<MenuLine, 22> kViewLines{{
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
    {"Four &views", "Q", {Command::Quartet}},
    {"&Orthographic", "O", {Command::SwitchProjection}},
    {"Long &axes", "A", {Command::LongAxes}},
    {"&Y points up", "U", {Command::TurnUp}},
    {},
    {"Elevation, plain or own &colours", "E", {Command::Colours}},
    {"Larger &points", "P", {Command::PointSize, 0}},
    {"Smaller poi&nts", "Shift+P", {Command::PointSize, 1}},
    {},
    {"&Stereo", "S", {Command::Stereo}},
    {"&Warnings", "W", {Command::Warnings}},
}};

constexpr std::array<MenuLine, 14> kCameraLines{{
    {"Turn &left", "Left", {Command::Turn, 0}},
    {"Turn &right", "Right", {Command::Turn, 1}},
    {"Turn &up", "Up", {Command::Turn, 2}},
    {"Turn &down", "Down", {Command::Turn, 3}},
    {},
    {"Pan le&ft", "Shift+Left", {Command::Pan, 0}},
    {"Pan ri&ght", "Shift+Right", {Command::Pan, 1}},
    {"Pan u&p", "Shift+Up", {Command::Pan, 2}},
    {"Pan d&own", "Shift+Down", {Command::Pan, 3}},
    {},
    {"Zoom &in", "+", {Command::Zoom, 0}},
    {"&Zoom out", "-", {Command::Zoom, 1}},
    {},
    {"&Back to the camera before", "Backspace", {Command::PreviousCamera}},
}};

constexpr std::array<MenuLine, 2> kHelpLinesOfMenu{{
    {"&Mouse and keys", "H", {Command::Help}},
    {"&About qelview", "", {Command::About}},
}};

constexpr std::array<MenuColumn, 5> kColumns{{
    {"&File", kFileLines},
    {"&View", kViewLines},
    {"&Camera", kCameraLines},
    {"&Tools", kToolLines},
    {"&Help", kHelpLinesOfMenu},
}};

/// Lower numbers belong to the system's own windows.
constexpr unsigned kFirstNumber = 1000;
/// More than the number of views, and of recent files.
constexpr unsigned kNumbersOfACommand = 16;

/// Keys of the number pad have codes of their own.
unsigned mainKeyOf(unsigned key) {
    constexpr unsigned kFirstPadDigit = 0x60;
    constexpr unsigned kPadDigits = 10;
    constexpr unsigned kPadPlus = 0x6B;
    constexpr unsigned kPadMinus = 0x6D;
    // Below the first one the subtraction wraps to a large number.
    if (key - kFirstPadDigit < kPadDigits) {
        return key - kFirstPadDigit + '0';
    }
    const char* const sign = key == kPadPlus ? "+" : key == kPadMinus ? "-" : "";
    return *sign == '\0' ? key : keyOf(sign).key;
}

/// Keys that no menu line shows.
constexpr std::array<MenuLine, 2> kHiddenLines{{{"", "Esc", {Command::Leave}}, {"", "Home", {Command::Fit}}}};

KeyCommand lineOf(const KeyPress& press, std::span<const MenuLine> lines) {
    const auto found =
        std::ranges::find_if(lines, [&](const MenuLine& line) { return keyOf(line.key) == press; });
    return found == lines.end() ? KeyCommand() : found->meaning;
}

}  // namespace

std::span<const MenuColumn> menuColumns() {
    return kColumns;
}

KeyCommand commandOf(const KeyPress& press) {
    KeyPress wanted = press;
    wanted.key = mainKeyOf(press.key);
    if (wanted.key == 0) {
        return {};
    }
    for (const bool withShift : {press.withShift, false}) {
        wanted.withShift = withShift;
        for (const MenuColumn& column : kColumns) {
            const KeyCommand found = lineOf(wanted, column.lines);
            if (found.command != Command::Nothing) {
                return found;
            }
        }
    }
    return lineOf(wanted, kHiddenLines);
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
