#include "MeshLook.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(MeshLook, GivesNormalsOfAnyLengthTheLengthOfOne) {
    for (const double length : {1e-299, 1e-3, 5.0, 1e150}) {
        const qel::XPnt3f normal = qelview::unitNormal({0.0, 0.6 * length, 0.8 * length});
        EXPECT_NEAR(normal.y, 0.6F, 1e-6F) << length;
        EXPECT_NEAR(normal.z, 0.8F, 1e-6F) << length;
    }
}

TEST(MeshLook, GivesWhatIsNoNormalOneAlongZ) {
    for (const double part : {0.0, 1e-310, kInfinite, kNoNumber}) {
        const qel::XPnt3f normal = qelview::unitNormal({part, 0.0, 0.0});
        EXPECT_EQ(normal.x, 0.0F) << part;
        EXPECT_EQ(normal.z, 1.0F) << part;
    }
}

TEST(MeshLook, ShowsSharesBetweenNothingAndAll) {
    EXPECT_EQ(qelview::shownShare(0.25), 0.25F);
    EXPECT_EQ(qelview::shownShare(-1.0), 0.0F);
    EXPECT_EQ(qelview::shownShare(1e300), 1.0F);
    EXPECT_EQ(qelview::shownShare(kNoNumber), 0.0F);
}

}  // namespace
