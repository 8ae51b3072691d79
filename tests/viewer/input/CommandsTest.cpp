#include "Commands.h"

#include <gtest/gtest.h>

#include <set>

#include "Menu.h"

namespace {

using qelview::Command;
using qelview::commandOf;
using qelview::keyOf;
using qelview::KeyPress;

TEST(Commands, GivesEachDigitItsViewOnBothKeyboards) {
    constexpr unsigned kFirstPadKey = 0x60;
    for (unsigned view = 0; view < 8; ++view) {
        for (const unsigned key : {'0' + view, kFirstPadKey + view}) {
            EXPECT_EQ(commandOf({key}).command, Command::StandardView) << key;
            EXPECT_EQ(commandOf({key}).number, view) << key;
        }
    }
    EXPECT_EQ(commandOf({'8'}).command, Command::Nothing);
    EXPECT_EQ(commandOf({kFirstPadKey + 8}).command, Command::Nothing);
}

TEST(Commands, KnowsEachKeyOfTheHelp) {
    std::set<std::pair<Command, unsigned>> commands;
    std::size_t keys = 0;
    for (const qelview::HelpLine& line : qelview::kHelpLines) {
        const KeyPress press = keyOf(line.input);
        if (press.key != 0) {
            ++keys;
            const qelview::KeyCommand meaning = commandOf(press);
            EXPECT_NE(meaning.command, Command::Nothing) << line.input;
            EXPECT_TRUE(commands.insert({meaning.command, meaning.number}).second) << line.input;
        }
    }
    EXPECT_GE(keys, 13U);
}

TEST(Commands, LetModifiersChangeTheMeaning) {
    EXPECT_EQ(commandOf({'O', true}).command, Command::Open);
    EXPECT_EQ(commandOf({'O'}).command, Command::SwitchProjection);
    EXPECT_EQ(commandOf({'C', true}).command, Command::CopyMeasurements);
    EXPECT_EQ(commandOf({'0', true}).command, Command::Nothing);
    EXPECT_EQ(commandOf({'F', true}).command, Command::Nothing);
    // Shift is held by accident, or for capital letters.
    EXPECT_EQ(commandOf({'F', false, true}).command, Command::Fit);
    EXPECT_EQ(commandOf({}).command, Command::Nothing);
    EXPECT_EQ(commandOf(keyOf("Left")).command, Command::Turn);
    EXPECT_EQ(commandOf(keyOf("Shift+Left")).command, Command::Pan);
}

TEST(Commands, KnowTheSignsOfBothKeyboardsAndHome) {
    constexpr unsigned kPadPlus = 0x6B;
    constexpr unsigned kPadMinus = 0x6D;
    for (const KeyPress& plus : {keyOf("+"), KeyPress{kPadPlus}, KeyPress{keyOf("+").key, false, true}}) {
        EXPECT_EQ(commandOf(plus).command, Command::Zoom);
        EXPECT_EQ(commandOf(plus).number, 0U);
    }
    EXPECT_EQ(commandOf({kPadMinus}).number, 1U);
    EXPECT_EQ(commandOf(keyOf("Home")).command, Command::Fit);
    EXPECT_EQ(commandOf(keyOf("Shift+Esc")).command, Command::Leave);
}

TEST(CommandsKeyOf, ReadsNamesInEitherCase) {
    EXPECT_EQ(keyOf("f"), KeyPress{'F'});
    EXPECT_EQ(keyOf("7"), KeyPress{'7'});
    EXPECT_EQ(keyOf("esc"), KeyPress{0x1B});
    EXPECT_EQ(keyOf("Ctrl+O"), (KeyPress{'O', true}));
    EXPECT_EQ(keyOf("ctrl+shift+c"), (KeyPress{'C', true, true}));
    EXPECT_EQ(keyOf("Shift+P"), (KeyPress{'P', false, true}));
    for (const char* unknown : {"", "Ctrl+", "Alt+F4", "Shift+Ctrl+C", "F1", "!"}) {
        EXPECT_EQ(keyOf(unknown), KeyPress{}) << unknown;
    }
}

}  // namespace
