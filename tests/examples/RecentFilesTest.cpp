#include "RecentFiles.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;
using qelview::RecentFiles;

TEST(RecentFiles, AreListedFromTheNewestEachOnce) {
    RecentFiles recent;
    recent.add("a");
    recent.add("b");
    recent.add("a");
    recent.add("");
    EXPECT_EQ(recent.names(), (Names{"a", "b"}));
}

TEST(RecentFiles, AreEightAtMost) {
    RecentFiles recent;
    for (int i = 0; i < 10; ++i) {
        recent.add(std::to_string(i));
    }
    EXPECT_EQ(recent.names(), (Names{"9", "8", "7", "6", "5", "4", "3", "2"}));
}

TEST(RecentFiles, ComeBackInTheirOrderHoweverTheyWereStored) {
    EXPECT_EQ(RecentFiles({"a", "b", "", "a", "c"}).names(), (Names{"a", "b", "c"}));
    EXPECT_EQ(RecentFiles(Names(20, "same")).names(), Names{"same"});
}

TEST(RecentFiles, LoseWhatIsRemoved) {
    RecentFiles recent({"a", "b"});
    recent.remove("a");
    recent.remove("absent");
    EXPECT_EQ(recent.names(), Names{"b"});
}

}  // namespace
