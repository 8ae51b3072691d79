#include "Menu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using qelview::Command;
using qelview::KeyCommand;
using qelview::MenuColumn;
using qelview::MenuLine;

/// All lines of all menus but those that only part others.
std::vector<MenuLine> lines() {
    std::vector<MenuLine> all;
    for (const MenuColumn& column : qelview::menuColumns()) {
        std::copy_if(column.lines.begin(), column.lines.end(), std::back_inserter(all),
                     [](const MenuLine& line) { return !line.text.empty(); });
    }
    return all;
}

TEST(Menu, ShowsTheKeyThatDoesTheSame) {
    std::size_t withKey = 0;
    for (const MenuLine& line : lines()) {
        const qelview::KeyPress press = qelview::keyOf(line.key);
        if (press.key != 0) {
            const KeyCommand byKey = qelview::commandOf(press);
            EXPECT_EQ(byKey.command, line.meaning.command) << line.text;
            EXPECT_EQ(byKey.number, line.meaning.number) << line.text;
            ++withKey;
        }
    }
    // All but the list of recent files, the end of the program and the box about it.
    EXPECT_EQ(withKey, lines().size() - 3);
}

TEST(Menu, HasEveryCommandButTheEndOfSomethingUnderWay) {
    std::set<Command> commands{Command::Nothing, Command::Leave};
    for (const MenuLine& line : lines()) {
        commands.insert(line.meaning.command);
    }
    EXPECT_EQ(commands.size(), static_cast<std::size_t>(qelview::kLastCommand) + 1);
}

TEST(Menu, HasANumberOfItsOwnForEachLine) {
    std::set<unsigned> numbers;
    for (const MenuLine& line : lines()) {
        const unsigned number = qelview::menuNumberOf(line.meaning);
        EXPECT_TRUE(numbers.insert(number).second) << line.text;
        EXPECT_EQ(qelview::commandOfMenu(number).command, line.meaning.command) << line.text;
        EXPECT_EQ(qelview::commandOfMenu(number).number, line.meaning.number) << line.text;
    }
}

TEST(Menu, KnowsNoOtherNumbers) {
    for (const unsigned number : {0U, 1U, 999U, 5000U, 0xFFFFU}) {
        EXPECT_EQ(qelview::commandOfMenu(number).command, Command::Nothing) << number;
    }
}

TEST(Menu, OpensEachColumnAndLineByALetterOfItsOwn) {
    for (const MenuColumn& column : qelview::menuColumns()) {
        std::set<char> letters;
        for (const MenuLine& line : column.lines) {
            const std::size_t mark = line.text.find('&');
            if (!line.text.empty()) {
                ASSERT_LT(mark + 1, line.text.size()) << line.text;
                const char letter = line.text[mark + 1];
                EXPECT_TRUE(letters.insert(letter < 'a' ? static_cast<char>(letter + 32) : letter).second)
                    << line.text;
            }
        }
    }
}

TEST(Menu, ShowsRecentFilesByNumberAndTheirAmpersandsAsTheyAre) {
    EXPECT_EQ(qelview::recentText(1, "nuts & bolts.obj"), "&1 nuts && bolts.obj");
    EXPECT_EQ(qelview::recentText(8, ""), "&8 ");
}

}  // namespace
