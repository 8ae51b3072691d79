#include "Commands.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using qelview::Command;
using qelview::commandOf;
using qelview::keyOf;

TEST(Commands, GivesEachDigitItsViewOnBothKeyboards) {
    constexpr unsigned kFirstPadKey = 0x60;
    for (unsigned view = 0; view < 8; ++view) {
        for (const unsigned key : {'0' + view, kFirstPadKey + view}) {
            EXPECT_EQ(commandOf(key, false).command, Command::StandardView) << key;
            EXPECT_EQ(commandOf(key, false).number, view) << key;
        }
    }
    EXPECT_EQ(commandOf('8', false).command, Command::Nothing);
    EXPECT_EQ(commandOf(kFirstPadKey + 8, false).command, Command::Nothing);
}

TEST(Commands, KnowsEachLetterOfTheHelp) {
    std::set<Command> commands;
    for (const qelview::HelpLine& line : qelview::kHelpLines) {
        const unsigned key = keyOf(std::string(line.input));
        if (key != 0) {
            EXPECT_NE(commandOf(key, false).command, Command::Nothing) << line.input;
            EXPECT_TRUE(commands.insert(commandOf(key, false).command).second) << line.input;
        }
    }
    EXPECT_EQ(commands.size(), 10U);
}

TEST(Commands, OpensFilesWithControlAndOAlone) {
    EXPECT_EQ(commandOf('O', true).command, Command::Open);
    EXPECT_EQ(commandOf('O', false).command, Command::SwitchProjection);
    EXPECT_EQ(commandOf('C', true).command, Command::Nothing);
    EXPECT_EQ(commandOf('0', true).command, Command::Nothing);
}

TEST(CommandsKeyOf, ReadsNamesInEitherCase) {
    EXPECT_EQ(keyOf("f"), static_cast<unsigned>('F'));
    EXPECT_EQ(keyOf("7"), static_cast<unsigned>('7'));
    EXPECT_EQ(keyOf("esc"), 0x1BU);
    for (const char* unknown : {"", "Ctrl+O", "F1", "!"}) {
        EXPECT_EQ(keyOf(unknown), 0U) << unknown;
    }
}

}  // namespace
