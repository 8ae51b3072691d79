#include "MotionFile.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "viewer/ViewerData.h"

namespace {

using qelview::MotionStep;
using qelview::parseMotion;

TEST(MotionFile, ReadsSixNumbersALineAndRepeatsThem) {
    const std::vector<MotionStep> steps = parseMotion("# pan\n1 2 3 4 5 6\n\n-1000 0.5 0 0 0 1e3 3\n");
    ASSERT_EQ(steps.size(), 4U);
    EXPECT_EQ(steps[0], (MotionStep{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(steps[1], (MotionStep{-1000, 0.5, 0, 0, 0, 1000}));
    EXPECT_EQ(steps[3], steps[1]);
}

TEST(MotionFile, RefusesMoreThanNineHours) {
    std::string hours;
    for (int line = 0; line < 100; ++line) {
        hours += "1 0 0 0 0 0 10000\n";
    }
    EXPECT_EQ(parseMotion(hours).size(), 1'000'000U);
    hours += "1 0 0 0 0 0\n";
    EXPECT_EQ(qel::test::refusalOf([&hours] { return parseMotion(hours); }),
              "line 101: more than 1000000 steps");
}

TEST(MotionFile, RefusesWhatIsNotText) {
    EXPECT_EQ(qel::test::refusalOf([] {
                  return parseMotion(
                      std::string_view("\xFF\xFE"
                                       "1\0",
                                       4));
              }),
              "line 1: the file is UTF-16 text; save it as UTF-8 or ASCII");
    EXPECT_EQ(qel::test::refusalOf([] { return parseMotion(std::string_view("# \0\n", 4)); }),
              "byte 2: the file is not text");
}

struct WrongMotion {
    const char* name;
    const char* line;
    const char* mentioned;
};

class MotionFileWrong : public testing::TestWithParam<WrongMotion> {};

TEST_P(MotionFileWrong, NamesTheLineAndTheReason) {
    const std::string refusal = qel::test::refusalOf([] { return parseMotion(GetParam().line); });
    EXPECT_EQ(refusal.rfind("line 1: ", 0), 0U) << refusal;
    EXPECT_NE(refusal.find(GetParam().mentioned), std::string::npos) << refusal;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, MotionFileWrong,
    testing::Values(WrongMotion{"FiveNumbers", "1 2 3 4 5", "six numbers"},
                    WrongMotion{"EightNumbers", "1 2 3 4 5 6 7 8", "six numbers"},
                    WrongMotion{"AWord", "1 2 left 4 5 6", "'left' is not a number"},
                    WrongMotion{"TooFar", "1 2 3 4 5 1000.5", "'1000.5' is out of range"},
                    WrongMotion{"NotANumber", "nan 2 3 4 5 6", "'nan' is out of range"},
                    WrongMotion{"Never", "1 2 3 4 5 6 0", "'0' is out of range (1"},
                    WrongMotion{"TooOften", "1 2 3 4 5 6 10001", "'10001' is out of range (1"},
                    WrongMotion{"HalfATime", "1 2 3 4 5 6 0.5", "'0.5' is not an integer"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
