#include "Script.h"

#include <algorithm>
#include <array>

#include "Menu.h"
#include "Progress.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// What follows the first word of a line.
enum class Operands : std::uint8_t { Place, ButtonAndPlace, NotchesAndPlace, KeyName, FileName };

struct Verb {
    std::string_view word;
    ScriptAction action;
    Operands operands;
    std::string_view usage;
    std::string_view meaning;
};

constexpr std::array<Verb, 12> kVerbs{{
    {"size", ScriptAction::Size, Operands::Place, "size WIDTH HEIGHT", "resizes the view"},
    {"move", ScriptAction::Move, Operands::Place, "move X Y", "moves the mouse"},
    {"down", ScriptAction::Down, Operands::ButtonAndPlace, "down left|middle|right X Y [shift]",
     "presses a button"},
    {"up", ScriptAction::Up, Operands::ButtonAndPlace, "up left|middle|right X Y [shift]",
     "releases a button"},
    {"wheel", ScriptAction::Wheel, Operands::NotchesAndPlace, "wheel NOTCHES X Y",
     "turns the wheel; positive is away from the user"},
    {"double", ScriptAction::Double, Operands::Place, "double X Y", "double-clicks with the left button"},
    {"key", ScriptAction::Key, Operands::KeyName, "key NAME", "presses a key: F, 3, Esc, Ctrl+C"},
    {"drop", ScriptAction::Drop, Operands::FileName, "drop FILE", "drops a file on the window"},
    {"motion", ScriptAction::Motion, Operands::FileName, "motion FILE", "replays recorded six-axis input"},
    {"picture", ScriptAction::Picture, Operands::FileName, "picture FILE.png",
     "writes a picture of the window"},
    {"camera", ScriptAction::Camera, Operands::FileName, "camera FILE.txt",
     "writes eye, target and up at full precision"},
    {"capture", ScriptAction::Capture, Operands::FileName, "capture FILE",
     "captures the view to a BMP or PNG file"},
}};

constexpr int kLargestPlace = 16384;
constexpr int kMostNotches = 100;

using Words = std::vector<std::string_view>;

int readWithin(std::string_view word, long long smallest, long long largest, const TextLines& lines) {
    const long long value = readWhole(word, lines);
    if (value < smallest || value > largest) {
        lines.refuseLine(inQuotes(word) + " is out of range (" + std::to_string(smallest) + " to " +
                         std::to_string(largest) + ")");
    }
    return static_cast<int>(value);
}

void requireCount(const Words& words, std::size_t count, const Verb& verb, const TextLines& lines) {
    if (words.size() != count) {
        lines.refuseLine("expected '" + std::string(verb.usage) + "'");
    }
}

void readPlace(ScriptStep& step, std::string_view x, std::string_view y, const TextLines& lines) {
    // A captured mouse may leave the window; a size may not be negative.
    const bool isSize = step.action == ScriptAction::Size;
    const long long smallest = isSize ? 1 : -kLargestPlace;
    step.x = readWithin(x, smallest, kLargestPlace, lines);
    step.y = readWithin(y, smallest, kLargestPlace, lines);
}

MouseButton readButton(std::string_view word, const TextLines& lines) {
    constexpr std::array<std::string_view, 3> kNames{"left", "middle", "right"};
    const auto* const found = std::find(kNames.begin(), kNames.end(), word);
    if (found == kNames.end()) {
        lines.refuseLine(inQuotes(word) + " is not left, middle or right");
    }
    return static_cast<MouseButton>(found - kNames.begin());
}

void readButtonAndPlace(ScriptStep& step, const Words& words, const Verb& verb, const TextLines& lines) {
    constexpr std::size_t kWordsWithoutShift = 4;
    step.withShift = words.size() == kWordsWithoutShift + 1 && words.back() == "shift";
    requireCount(words, step.withShift ? kWordsWithoutShift + 1 : kWordsWithoutShift, verb, lines);
    step.button = readButton(words[1], lines);
    readPlace(step, words[2], words[3], lines);
}

void readKey(ScriptStep& step, std::string_view word, const TextLines& lines) {
    step.key = keyOf(word);
    if (step.key.key == 0) {
        lines.refuseLine(inQuotes(word) + " is not a key");
    }
    if (commandOf(step.key).command == Command::Open) {
        lines.refuseLine(inQuotes(word) + " opens a dialog, which waits for a user; use drop");
    }
}

/// The rest of the line: names may contain blanks.
void readFileName(ScriptStep& step, const Words& words, const Verb& verb, const TextLines& lines) {
    if (words.size() < 2) {
        requireCount(words, 2, verb, lines);
    }
    const char* const begin = words[1].data();
    const char* const end = words.back().data() + words.back().size();
    step.file.assign(begin, end);
}

ScriptStep readScriptStep(const Words& words, const TextLines& lines) {
    const auto* const verb = std::find_if(kVerbs.begin(), kVerbs.end(),
                                          [&words](const Verb& each) { return each.word == words[0]; });
    if (verb == kVerbs.end()) {
        lines.refuseLine(inQuotes(words[0]) + " is not an action");
    }
    ScriptStep step;
    step.action = verb->action;
    step.line = lines.number();
    switch (verb->operands) {
        case Operands::Place:
            requireCount(words, 3, *verb, lines);
            readPlace(step, words[1], words[2], lines);
            break;
        case Operands::ButtonAndPlace:
            readButtonAndPlace(step, words, *verb, lines);
            break;
        case Operands::NotchesAndPlace:
            requireCount(words, 4, *verb, lines);
            step.notches = readWithin(words[1], -kMostNotches, kMostNotches, lines);
            readPlace(step, words[2], words[3], lines);
            break;
        case Operands::KeyName:
            requireCount(words, 2, *verb, lines);
            readKey(step, words[1], lines);
            break;
        case Operands::FileName:
            readFileName(step, words, *verb, lines);
            break;
    }
    return step;
}

}  // namespace

std::vector<ScriptStep> parseScript(std::string_view text) {
    requireText(text);
    Progress progress;
    TextLines lines(text, ProgressStretch(progress, 0.0, 1.0));
    std::vector<ScriptStep> steps;
    Words words;
    while (lines.next()) {
        splitWords(lines.line(), words);
        if (!words.empty() && words[0].front() != '#') {
            steps.push_back(readScriptStep(words, lines));
        }
    }
    return steps;
}

std::string scriptHelp() {
    constexpr std::size_t kColumn = 38;
    std::string help;
    for (const Verb& verb : kVerbs) {
        std::string usage(verb.usage);
        usage.resize(std::max(kColumn, usage.size() + 1), ' ');
        help += "  " + usage + std::string(verb.meaning) + "\n";
    }
    return help;
}

}  // namespace qelview
