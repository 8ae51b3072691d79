#include "TextLines.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "viewer/ViewerData.h"

namespace {

using qel::test::refusalOf;
using qelview::TextLines;
using Words = std::vector<std::string_view>;

/// The lines of a text, with the number of each and the place of the next one.
std::vector<std::string> linesOf(const std::string& text) {
    qelview::Progress progress;
    TextLines lines(text, qelview::ProgressStretch(progress, 0.0, 1.0));
    std::vector<std::string> found;
    while (lines.next()) {
        found.push_back(std::to_string(lines.number()) + "[" + std::string(lines.line()) + "]" +
                        std::to_string(lines.position()));
    }
    return found;
}

TEST(TextLines, EndInEitherWayOrWithTheText) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(linesOf(""), Lines{});
    EXPECT_EQ(linesOf("a\r\n\nb c\n\r\nd"), (Lines{"1[a]3", "2[]4", "3[b c]8", "4[]10", "5[d]12"}));
    EXPECT_EQ(linesOf("a\r\r\n"), (Lines{"1[a\r]4"}));
}

TEST(TextLines, ReportWhereTheyAreEachFewThousandLines) {
    qelview::Progress progress;
    const std::string text(10'000, '\n');
    TextLines lines(text, qelview::ProgressStretch(progress, 0.5, 1.0));
    for (int line = 0; line < 4097; ++line) {
        ASSERT_TRUE(lines.next());
    }
    EXPECT_EQ(progress.done(), 0.5 + 0.5 * 0.4096);
    progress.cancel();
    EXPECT_TRUE(lines.next());
    EXPECT_THROW(while (lines.next()){}, qelview::ReadCancelled);
}

TEST(TextLines, NameTheLineOfARefusal) {
    qelview::Progress progress;
    TextLines lines("a\nb\n", qelview::ProgressStretch(progress, 0.0, 1.0));
    lines.next();
    lines.next();
    EXPECT_EQ(refusalOf([&]() -> int { lines.refuseLine("odd"); }), "line 2: odd");
}

struct Splitting {
    const char* name;
    std::string_view line;
    Words words;
    std::string_view behindFirst;
};

class TextLinesWordsOf : public testing::TestWithParam<Splitting> {};

TEST_P(TextLinesWordsOf, StandBetweenBlanks) {
    Words words{"old"};
    qelview::splitWords(GetParam().line, words);
    EXPECT_EQ(words, GetParam().words);
    EXPECT_EQ(qelview::behindFirstWord(GetParam().line), GetParam().behindFirst);
}

const std::vector<Splitting> kSplittings{
    {"NoWord", "", {}, ""},
    {"BlanksAlone", " \t\v\f", {}, ""},
    {"OneWord", "usemtl", {"usemtl"}, ""},
    {"OneWordBetweenBlanks", " usemtl\t", {"usemtl"}, ""},
    {"SeveralWords", "usemtl dark  red\t", {"usemtl", "dark", "red"}, "dark  red"},
    {"EachKindOfBlank", "a b\tc\vd\fe", {"a", "b", "c", "d", "e"}, "b\tc\vd\fe"},
    {"OtherControlCharactersAndLetters", "a\x01 \xC3\xA4!", {"a\x01", "\xC3\xA4!"}, "\xC3\xA4!"},
};
INSTANTIATE_TEST_SUITE_P(Lines, TextLinesWordsOf, testing::ValuesIn(kSplittings),
                         [](const auto& each) { return each.param.name; });

struct Number {
    const char* name;
    std::string_view word;
    std::optional<double> value;
    std::string_view refusal;
};

class TextLinesNumberIn : public testing::TestWithParam<Number> {};

TEST_P(TextLinesNumberIn, IsTheWholeWord) {
    qelview::Progress progress;
    const TextLines lines("", qelview::ProgressStretch(progress, 0.0, 1.0));
    EXPECT_EQ(qelview::numberIn(GetParam().word), GetParam().value);
    EXPECT_EQ(refusalOf([&] { return qelview::readNumber(GetParam().word, lines); }), GetParam().refusal);
    if (GetParam().value) {
        EXPECT_EQ(qelview::readNumber(GetParam().word, lines), *GetParam().value);
    }
}

const std::vector<Number> kNumbers{
    {"Whole", "12", 12.0, ""},
    {"Negative", "-1.5e3", -1500.0, ""},
    {"WithAPlus", "+1.5", 1.5, ""},
    {"APlusAlone", "+", std::nullopt, "line 0: '+' is not a number"},
    {"TwoSigns", "+-1", std::nullopt, "line 0: '+-1' is not a number"},
    {"LettersBehind", "1x", std::nullopt, "line 0: '1x' is not a number"},
    {"Nothing", "", std::nullopt, "line 0: '' is not a number"},
    {"TooLarge", "1e999", std::nullopt, "line 0: '1e999' is beyond the range of numbers"},
    {"Infinity", "inf", std::numeric_limits<double>::infinity(), ""},
};
INSTANTIATE_TEST_SUITE_P(Words, TextLinesNumberIn, testing::ValuesIn(kNumbers),
                         [](const auto& each) { return each.param.name; });

TEST(TextLinesReadCoordinate, TakesWhatCanBeDrawn) {
    qelview::Progress progress;
    const TextLines lines("", qelview::ProgressStretch(progress, 0.0, 1.0));
    EXPECT_EQ(qelview::readCoordinate("1e15", lines), 1e15);
    EXPECT_EQ(qelview::readCoordinate("-1e15", lines), -1e15);
    EXPECT_EQ(refusalOf([&] { return qelview::readCoordinate("-1.1e15", lines); }),
              "line 0: the coordinate '-1.1e15' is beyond 1e15, the largest coordinate that can be drawn");
    EXPECT_EQ(refusalOf([&] { return qelview::readCoordinate("nan", lines); }),
              "line 0: the coordinate 'nan' is not finite");
}

TEST(TextLinesFaultOfCoordinate, IsEmptyUpToTheLargest) {
    EXPECT_EQ(qelview::faultOfCoordinate(1e15), "");
    EXPECT_EQ(qelview::faultOfCoordinate(-1e15), "");
    EXPECT_EQ(qelview::faultOfCoordinate(-1.1e15),
              "is beyond 1e15, the largest coordinate that can be drawn");
    EXPECT_EQ(qelview::faultOfCoordinate(-std::numeric_limits<double>::infinity()), "is not finite");
}

TEST(TextLinesReadWhole, TakesWholeNumbersAlone) {
    qelview::Progress progress;
    const TextLines lines("", qelview::ProgressStretch(progress, 0.0, 1.0));
    EXPECT_EQ(qelview::readWhole("-17", lines), -17);
    EXPECT_EQ(qelview::readWhole("+17", lines), 17);
    for (const char* const word : {"1.0", "99999999999999999999", "x", ""}) {
        EXPECT_EQ(refusalOf([&] { return qelview::readWhole(word, lines); }),
                  "line 0: '" + std::string(word) + "' is not an integer");
    }
}

TEST(TextLinesRequireText, RefusesBothByteOrdersOfUtf16AndBytesOfZero) {
    const auto refusal = [](std::string_view text) {
        return refusalOf([text] {
            qelview::requireText(text);
            return 0;
        });
    };
    EXPECT_EQ(refusal("plain"), "");
    EXPECT_EQ(refusal("\xFF\xFE"
                      "a"),
              "line 1: the file is UTF-16 text; save it as UTF-8 or ASCII");
    EXPECT_EQ(refusal("\xFE\xFF"
                      "a"),
              "line 1: the file is UTF-16 text; save it as UTF-8 or ASCII");
    EXPECT_EQ(refusal(std::string_view("ab\0", 3)), "byte 2: the file is not text");
}

}  // namespace
