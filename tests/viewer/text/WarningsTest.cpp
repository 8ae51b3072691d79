#include "Warnings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(Warnings, KeepAReasonOnceWithItsFirstPlace) {
    qelview::Warnings warnings;
    EXPECT_TRUE(warnings.lines().empty());
    warnings.add("line 3", "odd");
    warnings.add("line 4", "strange");
    warnings.add("line 7", "odd");
    EXPECT_EQ(warnings.lines(), (std::vector<std::string>{"line 3: odd (2 times)", "line 4: strange"}));
}

TEST(Warnings, CountReasonsBeyondTheFirstTwenty) {
    qelview::Warnings warnings;
    for (int i = 0; i < 25; ++i) {
        warnings.add("line 1", std::to_string(i));
    }
    warnings.add("line 2", "19");
    ASSERT_EQ(warnings.lines().size(), 21U);
    EXPECT_EQ(warnings.lines()[19], "line 1: 19 (2 times)");
    EXPECT_EQ(warnings.lines()[20], "and 5 more");
}

}  // namespace
