#include "ReadError.h"

#include <gtest/gtest.h>

#include <string>

#include "viewer/ViewerData.h"

namespace {

TEST(ReadError, NamesThePlaceBeforeTheReason) {
    EXPECT_EQ(qel::test::refusalOf([]() -> int { qelview::refuse(qelview::atLine(7), "odd"); }),
              "line 7: odd");
}

TEST(ReadErrorQuoted, ShowsTheFirstLettersAndNothingUnreadable) {
    EXPECT_EQ(qelview::inQuotes(""), "''");
    EXPECT_EQ(qelview::inQuotes(" ~\x1F\x7F\xC3"), "' ~\?\?\?'");
    EXPECT_EQ(qelview::inQuotes(std::string(32, 'a')), "'" + std::string(32, 'a') + "'");
    EXPECT_EQ(qelview::inQuotes(std::string(33, 'a')), "'" + std::string(32, 'a') + "...'");
}

}  // namespace
