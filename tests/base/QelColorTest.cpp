#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "CQelLineSeg.h"
#include "QelColor.h"
#include "XPnt2d.h"

namespace qel::test {
namespace {

TEST(QelColor, OfFloatsStartsBlackAndTakesItsComponents) {
    const QelColor3f black;
    EXPECT_EQ(black.r, 0.0F);
    EXPECT_EQ(black.g, 0.0F);
    EXPECT_EQ(black.b, 0.0F);
    const QelColor3f color(0.25F, 0.5F, 1.0F);
    EXPECT_EQ(color.r, 0.25F);
    EXPECT_EQ(color.g, 0.5F);
    EXPECT_EQ(color.b, 1.0F);
}

TEST(QelColor, OfBytesDropsItsAlpha) {
    EXPECT_EQ(sizeof(QelColor4b), 4U);
    EXPECT_EQ(sizeof(QelColor3b), 3U);
    const QelColor3b opaque = QelColor4b(1, 128, 255, 77).toColor3b();
    EXPECT_EQ(opaque.r, 1);
    EXPECT_EQ(opaque.g, 128);
    EXPECT_EQ(opaque.b, 255);
}

TEST(QelColor, OfBytesStartsOpaqueBlack) {
    const QelColor4b color;
    EXPECT_EQ(color.r + color.g + color.b, 0);
    EXPECT_EQ(color.a, 255);
}

TEST(XPnt2d, StartsAtTheOrigin) {
    for (const XPnt2d& point : std::vector<XPnt2d>(2)) {
        EXPECT_EQ(point.x, 0.0);
        EXPECT_EQ(point.y, 0.0);
    }
}

TEST(CQelLineSeg, KeepsItsEndsAndIsCopied) {
    const CQelLineSeg segment({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    const CQelLineSeg copy(segment);
    EXPECT_EQ(copy.start.x, 1.0);
    EXPECT_EQ(copy.end.z, 6.0);
    EXPECT_TRUE(CQelLineSeg().start.isValid());
}

TEST(CQelLineSeg, IsDestroyedThroughItsOwnType) {
    static_assert(std::has_virtual_destructor_v<CQelLineSeg>);
    struct Counting : CQelLineSeg {
        explicit Counting(int& counter) : gone(counter) {}
        ~Counting() override { ++gone; }
        int& gone;
    };
    int gone = 0;
    const CQelLineSeg* const segment = new Counting(gone);
    delete segment;
    EXPECT_EQ(gone, 1);
}

}  // namespace
}  // namespace qel::test
