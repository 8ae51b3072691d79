#include "Options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using qelview::Ending;
using qelview::ExitCode;
using qelview::Options;
using qelview::parseOptions;

Options optionsOf(const std::vector<std::string>& arguments) {
    const auto parsed = parseOptions(arguments);
    EXPECT_TRUE(std::holds_alternative<Options>(parsed));
    return std::get<Options>(parsed);
}

Ending endingOf(const std::vector<std::string>& arguments) {
    const auto parsed = parseOptions(arguments);
    EXPECT_TRUE(std::holds_alternative<Ending>(parsed));
    return std::get<Ending>(parsed);
}

TEST(Options, ShowsTheSampleSceneInAWindowByDefault) {
    const Options options = optionsOf({});
    EXPECT_TRUE(options.files.empty());
    EXPECT_EQ(options.width, 1280);
    EXPECT_EQ(options.height, 800);
    EXPECT_EQ(options.view, 6U);
    EXPECT_FALSE(options.isOrthographic);
    EXPECT_FALSE(options.writesPictures());
}

TEST(Options, TakesFilesAndOptionsInAnyOrder) {
    const Options options =
        optionsOf({"a.obj", "--size", "640x480", "b.ply", "--view", "3", "--ortho", "--out", "c.png"});
    EXPECT_EQ(options.files, (std::vector<std::string>{"a.obj", "b.ply"}));
    EXPECT_EQ(options.width, 640);
    EXPECT_EQ(options.height, 480);
    EXPECT_EQ(options.view, 3U);
    EXPECT_TRUE(options.isOrthographic);
    EXPECT_EQ(options.out, "c.png");
    EXPECT_TRUE(options.writesPictures());
}

TEST(Options, TakesAPathThatBeginsWithASlashForAFile) {
    EXPECT_EQ(optionsOf({"/models/a.obj"}).files, (std::vector<std::string>{"/models/a.obj"}));
}

TEST(Options, TakesAPrefixForPicturesOfAllViews) {
    const Options options = optionsOf({"--views-out", "out/view"});
    EXPECT_EQ(options.viewsOut, "out/view");
    EXPECT_TRUE(options.writesPictures());
}

TEST(Options, TakesFilesOfCapturesScriptsAndRecordings) {
    const Options capture = optionsOf({"--capture", "a.bmp"});
    EXPECT_EQ(capture.capture, "a.bmp");
    EXPECT_TRUE(capture.writesPictures());
    EXPECT_FALSE(capture.isAttended());
    // In a script the name is for the key.
    const Options script = optionsOf({"--script", "a.txt", "--capture", "a.bmp"});
    EXPECT_EQ(script.script, "a.txt");
    EXPECT_FALSE(script.writesPictures());
    EXPECT_FALSE(script.isAttended());
    EXPECT_EQ(optionsOf({"--motion", "m.txt"}).motion, "m.txt");
    EXPECT_TRUE(optionsOf({"--motion", "m.txt"}).isAttended());
}

struct WrongLine {
    const char* name;
    std::vector<std::string> arguments;
    const char* mentioned;
};

class OptionsWrong : public testing::TestWithParam<WrongLine> {};

TEST_P(OptionsWrong, EndsInOneLineAndExitCodeOne) {
    const Ending ending = endingOf(GetParam().arguments);
    EXPECT_EQ(ending.code, ExitCode::Usage);
    EXPECT_NE(ending.text.find(GetParam().mentioned), std::string::npos) << ending.text;
    EXPECT_EQ(ending.text.find('\n'), ending.text.size() - 1);
}

const std::vector<WrongLine> kWrongLines{
    {"UnknownOption", {"--fast"}, "--fast"},
    {"ViewAboveSeven", {"--view", "8"}, "--view"},
    {"NegativeView", {"--view", "-1"}, "--view"},
    {"ViewIsAWord", {"--view", "top"}, "--view"},
    {"SizeWithoutHeight", {"--size", "640"}, "--size"},
    {"SizeOfWords", {"--size", "axb"}, "--size"},
    {"SizeOfNothing", {"--size", "0x480"}, "--size"},
    {"SizeTooLarge", {"--size", "640x100000"}, "--size"},
    {"SizeWithMore", {"--size", "640x480x3"}, "--size"},
    {"OutWithoutAName", {"--out"}, "--out"},
    {"ScriptAndMotion", {"--script", "a", "--motion", "b"}, "--motion"},
    {"PictureAndMotion", {"--out", "a", "--motion", "b"}, "--motion"},
    {"UpWithoutAnAxis", {"--up", "x"}, "--up"},
};
INSTANTIATE_TEST_SUITE_P(Lines, OptionsWrong, testing::ValuesIn(kWrongLines),
                         [](const auto& each) { return each.param.name; });

TEST(Options, ExplainsItself) {
    const Ending help = endingOf({"--help"});
    EXPECT_EQ(help.code, ExitCode::Success);
    for (const char* word :
         {"--size", "--view", "--ortho", "--out", "--views-out", "--capture", "--script", "--motion", ".obj",
          ".xyz", "Ctrl+O", "Double click", "wheel NOTCHES", "PANX", "Esc", "Exit codes"}) {
        EXPECT_NE(help.text.find(word), std::string::npos) << word;
    }
    const Ending version = endingOf({"--version"});
    EXPECT_EQ(version.code, ExitCode::Success);
    EXPECT_EQ(version.text.rfind("qelview ", 0), 0U);
}

TEST(Options, TakesTheAxisThatPointsUp) {
    EXPECT_FALSE(optionsOf({"a.obj"}).up.has_value());
    EXPECT_EQ(optionsOf({"--up", "y", "a.obj"}).up, qelview::UpAxis::Y);
    EXPECT_EQ(optionsOf({"--up", "z", "a.obj"}).up, qelview::UpAxis::Z);
}

}  // namespace
