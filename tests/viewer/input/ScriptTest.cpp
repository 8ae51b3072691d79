#include "Script.h"

#include <gtest/gtest.h>

#include "viewer/ViewerData.h"

namespace {

using qelview::MouseButton;
using qelview::parseScript;
using qelview::ScriptAction;
using qelview::ScriptStep;

ScriptStep onlyStep(const std::string& line) {
    const std::vector<ScriptStep> steps = parseScript(line);
    EXPECT_EQ(steps.size(), 1U);
    return steps.empty() ? ScriptStep() : steps.front();
}

TEST(Script, ReadsPlacesAndSizes) {
    EXPECT_EQ(onlyStep("size 640 480").action, ScriptAction::Size);
    const ScriptStep move = onlyStep("move -12 +34");
    EXPECT_EQ(move.action, ScriptAction::Move);
    EXPECT_EQ(move.x, -12);
    EXPECT_EQ(move.y, 34);
    EXPECT_EQ(onlyStep("double 1 2").action, ScriptAction::Double);
}

TEST(Script, ReadsButtonsWithAndWithoutShift) {
    const ScriptStep down = onlyStep("down middle 5 6 shift");
    EXPECT_EQ(down.action, ScriptAction::Down);
    EXPECT_EQ(down.button, MouseButton::Middle);
    EXPECT_TRUE(down.withShift);
    EXPECT_FALSE(down.withControl);
    EXPECT_EQ(down.x, 5);
    EXPECT_EQ(down.y, 6);
    const ScriptStep up = onlyStep("up right 7 8");
    EXPECT_EQ(up.action, ScriptAction::Up);
    EXPECT_EQ(up.button, MouseButton::Right);
    EXPECT_FALSE(up.withShift);
}

TEST(Script, ReadsTheControlKeyAndScaling) {
    EXPECT_TRUE(onlyStep("down left 5 6 ctrl").withControl);
    EXPECT_FALSE(onlyStep("down left 5 6 ctrl").withShift);
    EXPECT_EQ(onlyStep("scale 150").action, ScriptAction::Scale);
    EXPECT_EQ(onlyStep("scale 150").x, 150);
    EXPECT_EQ(qel::test::refusalOf([] { return parseScript("scale 99"); }),
              "line 1: '99' is out of range (100 to 500)");
}

TEST(Script, ReadsWheelsAndKeys) {
    const ScriptStep wheel = onlyStep("wheel -3 10 20");
    EXPECT_EQ(wheel.action, ScriptAction::Wheel);
    EXPECT_EQ(wheel.notches, -3);
    EXPECT_EQ(wheel.x, 10);
    EXPECT_EQ(wheel.y, 20);
    EXPECT_EQ(onlyStep("key z").key, (qelview::KeyPress{'Z'}));
    EXPECT_EQ(onlyStep("key Esc").key, (qelview::KeyPress{0x1B}));
    EXPECT_EQ(onlyStep("key ctrl+c").key, (qelview::KeyPress{'C', true}));
}

struct FileLine {
    const char* name;
    const char* line;
    ScriptAction action;
    const char* file;
};

class ScriptFileLines : public testing::TestWithParam<FileLine> {};

TEST_P(ScriptFileLines, TakesTheRestOfTheLineForTheName) {
    const ScriptStep step = onlyStep(GetParam().line);
    EXPECT_EQ(step.action, GetParam().action);
    EXPECT_EQ(step.file, GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(Lines, ScriptFileLines,
                         testing::Values(FileLine{"Drop", "drop a b.obj", ScriptAction::Drop, "a b.obj"},
                                         FileLine{"Motion", "motion m.txt", ScriptAction::Motion, "m.txt"},
                                         FileLine{"Picture", "  picture  c:\\out\\p 1.png  ",
                                                  ScriptAction::Picture, "c:\\out\\p 1.png"},
                                         FileLine{"Camera", "camera c.txt", ScriptAction::Camera, "c.txt"},
                                         FileLine{"Capture", "capture v.bmp\r\n", ScriptAction::Capture,
                                                  "v.bmp"}),
                         [](const auto& each) { return each.param.name; });

TEST(Script, LeavesOutEmptyLinesAndRemarksButCountsThem) {
    const std::vector<ScriptStep> steps = parseScript("# a remark\n\n  \nkey F\n#\nkey O");
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 4U);
    EXPECT_EQ(steps[1].line, 6U);
}

struct WrongScriptLine {
    const char* name;
    const char* line;
    const char* mentioned;
};

class ScriptWrong : public testing::TestWithParam<WrongScriptLine> {};

TEST_P(ScriptWrong, NamesTheLineAndTheReason) {
    const std::string refusal =
        qel::test::refusalOf([] { return parseScript(std::string("key F\n") + GetParam().line); });
    EXPECT_EQ(refusal.rfind("line 2: ", 0), 0U) << refusal;
    EXPECT_NE(refusal.find(GetParam().mentioned), std::string::npos) << refusal;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ScriptWrong,
    testing::Values(WrongScriptLine{"UnknownAction", "jump 1 2", "'jump' is not an action"},
                    WrongScriptLine{"ActionInCapitals", "MOVE 1 2", "'MOVE' is not an action"},
                    WrongScriptLine{"MoveWithoutY", "move 1", "move X Y"},
                    WrongScriptLine{"MoveWithMore", "move 1 2 3", "move X Y"},
                    WrongScriptLine{"MoveToAWord", "move a 2", "'a' is not an integer"},
                    WrongScriptLine{"MoveToAFraction", "move 1.5 2", "'1.5' is not an integer"},
                    WrongScriptLine{"MoveFarAway", "move 99999 2", "'99999' is out of range"},
                    WrongScriptLine{"SizeOfNothing", "size 0 10", "'0' is out of range (1"},
                    WrongScriptLine{"UnknownButton", "down fourth 1 2", "'fourth' is not left"},
                    WrongScriptLine{"ButtonWithoutPlace", "down left", "down left|middle|right"},
                    WrongScriptLine{"ShiftMisspelt", "down left 1 2 shfit", "down left|middle|right"},
                    WrongScriptLine{"ShiftTwice", "down left 1 2 shift shift", "down left|middle|right"},
                    WrongScriptLine{"WheelWithoutPlace", "wheel 1", "wheel NOTCHES X Y"},
                    WrongScriptLine{"WheelTooFar", "wheel 101 1 1", "'101' is out of range (-100 to 100)"},
                    WrongScriptLine{"KeyOfADialog", "key Ctrl+O", "'Ctrl+O' opens a dialog"},
                    WrongScriptLine{"UnknownKey", "key Alt+X", "'Alt+X' is not a key"},
                    WrongScriptLine{"NoKey", "key", "key NAME"},
                    WrongScriptLine{"NoFile", "picture", "picture FILE.png"}),
    [](const auto& each) { return each.param.name; });

TEST(Script, RefusesWhatIsNoText) {
    EXPECT_NE(qel::test::refusalOf([] { return parseScript("\xFF\xFEk"); }), "");
}

TEST(ScriptHelp, ShowsEachAction) {
    for (const char* word : {"size", "move", "down", "up", "wheel", "double", "key", "drop", "motion",
                             "picture", "camera", "capture"}) {
        EXPECT_NE(qelview::scriptHelp().find(std::string("  ") + word + " "), std::string::npos) << word;
    }
}

}  // namespace
