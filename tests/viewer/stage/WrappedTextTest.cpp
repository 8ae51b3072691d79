#include "WrappedText.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;
using qelview::wrappedText;

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
