#include "PointColumns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Columns = std::vector<std::string_view>;
using qelview::Separator;

struct Line {
    const char* name;
    std::string_view line;
    Separator separator;
    Columns columns;
};

class PointColumnsColumnsOf : public testing::TestWithParam<Line> {};

TEST_P(PointColumnsColumnsOf, StandBetweenSeparatorsWithoutBlanksAndQuotes) {
    EXPECT_EQ(qelview::separatorOf(GetParam().line), GetParam().separator);
    Columns columns{"old"};
    qelview::splitColumns(GetParam().line, GetParam().separator, columns);
    EXPECT_EQ(columns, GetParam().columns);
}

const std::vector<Line> kLines{
    {"Nothing", "", Separator::Blank, {}},
    {"Blanks", " 1\t2  3 ", Separator::Blank, {"1", "2", "3"}},
    {"QuotesBetweenBlanks", "'a' \"b\"", Separator::Blank, {"a", "b"}},
    {"Commas", "1, 2 ,\"3\"", Separator::Comma, {"1", "2", "3"}},
    {"EmptyColumns", ",1,,", Separator::Comma, {"", "1", "", ""}},
    {"SemicolonsBeforeCommas", "1,5;2,5", Separator::Semicolon, {"1,5", "2,5"}},
};
INSTANTIATE_TEST_SUITE_P(Lines, PointColumnsColumnsOf, testing::ValuesIn(kLines),
                         [](const auto& each) { return each.param.name; });

struct Header {
    const char* name;
    Columns names;
    bool isKnown;
    std::array<std::size_t, 3> position;
    std::optional<std::array<std::size_t, 3>> color;
    bool hasTime;
};

class PointColumnsMeaningOf : public testing::TestWithParam<Header> {};

TEST_P(PointColumnsMeaningOf, FollowsTheNames) {
    const auto meaning = qelview::columnsByName(GetParam().names);
    ASSERT_EQ(meaning.has_value(), GetParam().isKnown);
    if (meaning) {
        EXPECT_EQ(meaning->position, GetParam().position);
        EXPECT_EQ(meaning->color, GetParam().color);
        EXPECT_EQ(meaning->hasTime, GetParam().hasTime);
    }
}

const std::vector<Header> kHeaders{
    {"Letters", {"X", "y", "Z"}, true, {0, 1, 2}, {}, false},
    {"AnotherOrder", {"z", "x", "y"}, true, {1, 2, 0}, {}, false},
    {"Directions", {"Northing", "Easting", "Elevation"}, true, {1, 0, 2}, {}, false},
    {"ShortDirections", {"EAST", "North", "altitude"}, true, {0, 1, 2}, {}, false},
    {"HeightAndColours", {"x", "y", "height", "r", "g", "b"}, true, {0, 1, 2}, {{3, 4, 5}}, false},
    {"NamesOfColours", {"blue", "green", "red", "x", "y", "z"}, true, {3, 4, 5}, {{2, 1, 0}}, false},
    {"TwoColours", {"x", "y", "z", "r", "g"}, true, {0, 1, 2}, {}, false},
    {"ATime", {"x", "y", "z", "GpsTime"}, true, {0, 1, 2}, {}, true},
    {"NoHeight", {"x", "y", "time"}, false, {}, {}, false},
    {"Numbers", {"1", "2", "3"}, false, {}, {}, false},
};
INSTANTIATE_TEST_SUITE_P(Headers, PointColumnsMeaningOf, testing::ValuesIn(kHeaders),
                         [](const auto& each) { return each.param.name; });

TEST(PointColumnsColumnsByPosition, AreColoursWhereThereAreExactlySix) {
    for (const std::size_t count : {3U, 5U, 7U}) {
        EXPECT_FALSE(qelview::columnsByPosition(count).color) << count;
    }
    EXPECT_EQ(qelview::columnsByPosition(6).color, (std::array<std::size_t, 3>{3, 4, 5}));
    EXPECT_EQ(qelview::columnsByPosition(6).position, (std::array<std::size_t, 3>{0, 1, 2}));
}

}  // namespace
