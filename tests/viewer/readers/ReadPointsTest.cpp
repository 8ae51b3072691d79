#include "ReadFormats.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "viewer/ViewerData.h"

namespace {

qelview::Scene readPointsOf(const std::string& text) {
    qelview::Progress progress;
    return qelview::readPoints(text, qelview::ProgressStretch(progress, 0.0, 1.0));
}

struct TextCase {
    const char* name;
    const char* text;
    std::vector<qel::XPnt3d> points;
};

class ReadPointsForms : public testing::TestWithParam<TextCase> {};

TEST_P(ReadPointsForms, GivesThePoints) {
    const qelview::Scene scene = readPointsOf(GetParam().text);
    ASSERT_EQ(scene.clouds.size(), 1U);
    const qelview::Points& points = scene.clouds[0].positions;
    ASSERT_EQ(points.size(), GetParam().points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(points[i].x, GetParam().points[i].x);
        EXPECT_EQ(points[i].y, GetParam().points[i].y);
        EXPECT_EQ(points[i].z, GetParam().points[i].z);
    }
}

const std::vector<TextCase> kForms{
    {"Blanks", "1 2 3\n4  5\t6\n", {{1, 2, 3}, {4, 5, 6}}},
    {"Commas", "1,2,3\n4, 5 ,6", {{1, 2, 3}, {4, 5, 6}}},
    {"Semicolons", "1;2;3\r\n4;5;6\r\n", {{1, 2, 3}, {4, 5, 6}}},
    {"SkippedLines", "# made by hand\n\n1 2 3\n// more\n   \n4 5 6\n", {{1, 2, 3}, {4, 5, 6}}},
    {"Signs", "+1.5 -2e3 .25\n", {{1.5, -2000.0, 0.25}}},
    {"LargeCoordinates", "635578.31 848889.13 406.36\n", {{635578.31, 848889.13, 406.36}}},
    {"NamesInAnotherOrder", "\"Y\",\"X\",\"Z\"\n2,1,3\n", {{1, 2, 3}}},
    {"NamesOfTheField", "id;Northing;Easting;Height\n9;2;1;3\n", {{1, 2, 3}}},
    {"ByteOrderMark", "\xEF\xBB\xBFx y z\n1 2 3\n", {{1, 2, 3}}},
    {"FurtherColumns", "1 2 3 99\n4 5 6 98\n", {{1, 2, 3}, {4, 5, 6}}},
};
INSTANTIATE_TEST_SUITE_P(Texts, ReadPointsForms, testing::ValuesIn(kForms),
                         [](const auto& each) { return each.param.name; });

TEST(ReadPoints, TakesSixColumnsForPositionsAndColours) {
    const qelview::Scene scene = readPointsOf("1 2 3 0 128 255\n");
    ASSERT_EQ(scene.clouds[0].colors.size(), 1U);
    EXPECT_EQ(scene.clouds[0].colors[0].r, 0);
    EXPECT_EQ(scene.clouds[0].colors[0].g, 128);
    EXPECT_EQ(scene.clouds[0].colors[0].b, 255);
}

TEST(ReadPoints, TakesColoursByTheirNames) {
    const qelview::Scene scene = readPointsOf("B,G,R,x,y,z\n3,2,1,10,20,30\n");
    ASSERT_EQ(scene.clouds[0].colors.size(), 1U);
    EXPECT_EQ(scene.clouds[0].colors[0].r, 1);
    EXPECT_EQ(scene.clouds[0].colors[0].b, 3);
    EXPECT_EQ(scene.clouds[0].positions[0].z, 30.0);
}

TEST(ReadPoints, JoinsPointsWithATimeByALine) {
    const qelview::Scene scene = readPointsOf("GpsTime,X,Y,Z\n0,1,2,3\n1,4,5,6\n");
    ASSERT_EQ(scene.polylines.size(), 1U);
    ASSERT_EQ(scene.polylines[0].parts.size(), 1U);
    EXPECT_EQ(scene.polylines[0].parts[0].size(), 2U);
    EXPECT_EQ(scene.clouds[0].positions.size(), 2U);
    EXPECT_TRUE(readPointsOf("1 2 3\n").polylines.empty());
}

struct RefusalCase {
    const char* name;
    const char* text;
    const char* refusal;
};

class ReadPointsRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(ReadPointsRefusals, NameTheLineAndTheReason) {
    EXPECT_EQ(qel::test::refusalOf([] { return readPointsOf(GetParam().text); }), GetParam().refusal);
}

const std::vector<RefusalCase> kRefusals{
    {"Nothing", "# only a remark\n", "end of file: there is no point"},
    {"NamesAlone", "x,y,z\n", "end of file: there is no point"},
    {"FewColumns", "1 2 3\n4 5\n", "line 2: 2 columns instead of 3"},
    {"FewColumnsAtOnce", "1 2\n", "line 1: 2 columns instead of at least 3"},
    {"Words", "1 2 3\na b c\n", "line 2: 'a' is not a number"},
    {"DecimalCommas", "1 2 3\n6,5 7,5 8,5\n", "line 2: '6,5' is not a number"},
    {"NotANumber", "1 nan 3\n", "line 1: the coordinate 'nan' is not finite"},
    {"Infinity", "1 2 -inf\n", "line 1: the coordinate '-inf' is not finite"},
    {"BeyondNumbers", "1e400 2 3\n", "line 1: '1e400' is beyond the range of numbers"},
    {"BeyondDrawing", "1 1e16 3\n",
     "line 1: the coordinate '1e16' is beyond 1e15, the largest coordinate that can be drawn"},
    {"ColourAbove", "1 2 3 0 0 256\n", "line 1: the colour '256' is not from 0 to 255"},
    {"ColourBelow", "1 2 3 -1 0 0\n", "line 1: the colour '-1' is not from 0 to 255"},
    {"Utf16", "\xFF\xFE 1", "line 1: the file is UTF-16 text; save it as UTF-8 or ASCII"},
};
INSTANTIATE_TEST_SUITE_P(Texts, ReadPointsRefusals, testing::ValuesIn(kRefusals),
                         [](const auto& each) { return each.param.name; });

TEST(ReadPoints, RefusesBinaryData) {
    EXPECT_EQ(qel::test::refusalOf([] { return readPointsOf(std::string("1 2 \0 3", 7)); }),
              "byte 4: the file is not text");
}

TEST(ReadPoints, ShowsNothingOfABinaryTokenButQuestionMarks) {
    EXPECT_EQ(qel::test::refusalOf([] { return readPointsOf("1 2 \x01\x1B\x7F\n"); }),
              "line 1: '\?\?\?' is not a number");
}

TEST(ReadPoints, StopsWhenTheUserGivesUp) {
    qelview::Progress progress;
    progress.cancel();
    EXPECT_THROW(
        static_cast<void>(qelview::readPoints("1 2 3\n", qelview::ProgressStretch(progress, 0.0, 1.0))),
        qelview::ReadCancelled);
}

}  // namespace
