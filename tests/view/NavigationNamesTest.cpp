#include <gtest/gtest.h>

#include <cstdint>

#include "IQelTrackBall.h"

namespace qel::test {
namespace {

TEST(NavigationNamesOfDrags, HaveTheNumbersThatHostsWereBuiltWith) {
    EXPECT_EQ(std::int32_t{qel::DragNone}, 0);
    EXPECT_EQ(std::int32_t{qel::DragPan}, 1);
    EXPECT_EQ(std::int32_t{qel::DragRotate}, 2);
    EXPECT_EQ(std::int32_t{qel::DragZoom}, 3);
}

TEST(NavigationNamesOfStandardViews, CountFromTheTopToTheIsometricViewFromBelow) {
    const std::uint32_t views[] = {qel::ViewTop,       qel::ViewBottom,        qel::ViewBack,
                                   qel::ViewFront,     qel::ViewRight,         qel::ViewLeft,
                                   qel::ViewIsometric, qel::ViewIsometricBelow};
    std::uint32_t next = 0;
    for (const std::uint32_t view : views) {
        EXPECT_EQ(view, next++);
    }
}

}  // namespace
}  // namespace qel::test
