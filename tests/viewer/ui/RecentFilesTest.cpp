#include "RecentFiles.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;
using qelview::RecentFiles;
using qelview::UpAxis;

TEST(RecentFiles, AreListedFromTheNewestEachOnce) {
    RecentFiles recent;
    recent.add("a", UpAxis::Z);
    recent.add("b", UpAxis::Z);
    recent.add("a", UpAxis::Z);
    recent.add("", UpAxis::Z);
    EXPECT_EQ(recent.names(), (Names{"a", "b"}));
}

TEST(RecentFiles, AreEightAtMost) {
    RecentFiles recent;
    for (int i = 0; i < 10; ++i) {
        recent.add(std::to_string(i), UpAxis::Z);
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

TEST(RecentFiles, KeepWhichAxisPointsUp) {
    RecentFiles recent;
    recent.add("a", UpAxis::Y);
    recent.add("b", UpAxis::Z);
    recent.add("c", UpAxis::Y);
    recent.add("c", UpAxis::Z);
    EXPECT_EQ(recent.stored(), (Names{"c", "b", "a|y"}));
    const RecentFiles again(recent.stored());
    EXPECT_EQ(again.names(), (Names{"c", "b", "a"}));
    EXPECT_EQ(again.upOf("a"), UpAxis::Y);
    EXPECT_EQ(again.upOf("b"), UpAxis::Z);
    EXPECT_EQ(again.upOf("unknown"), UpAxis::Z);
}

}  // namespace
