#include "WrappedText.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

Lines wrappedText(std::string_view text, std::size_t letters) {
    return qelview::wrappedText(text, [letters](const std::string& line) { return line.size() <= letters; });
}

TEST(WrappedText, BreaksAtBlanksWhereALineIsFull) {
    EXPECT_EQ(wrappedText("2,760 triangles, 11 points", 26), (Lines{"2,760 triangles, 11 points"}));
    EXPECT_EQ(wrappedText("2,760 triangles, 11 points", 25), (Lines{"2,760 triangles, 11", "points"}));
    EXPECT_EQ(wrappedText("2,760 triangles, 11 points", 19), (Lines{"2,760 triangles, 11", "points"}));
    EXPECT_EQ(wrappedText("2,760 triangles, 11 points", 18), (Lines{"2,760 triangles,", "11 points"}));
}

TEST(WrappedText, GivesALongWordALineOfItsOwn) {
    EXPECT_EQ(wrappedText("a long-winded name", 4), (Lines{"a", "long-winded", "name"}));
    EXPECT_EQ(wrappedText("word", 0), (Lines{"word"}));
    EXPECT_EQ(wrappedText("", 10), Lines{});
}

}  // namespace
