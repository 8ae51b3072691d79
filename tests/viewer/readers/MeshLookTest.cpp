#include "MeshLook.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(MeshLook, ShowsSharesBetweenNothingAndAll) {
    EXPECT_EQ(qelview::shownShare(0.25), 0.25F);
    EXPECT_EQ(qelview::shownShare(-1.0), 0.0F);
    EXPECT_EQ(qelview::shownShare(1e300), 1.0F);
    EXPECT_EQ(qelview::shownShare(kNoNumber), 0.0F);
}

}  // namespace
