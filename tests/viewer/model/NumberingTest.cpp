#include "Numbering.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

TEST(Numbering, GivesEqualKeysTheSameNumberAndNewOnesTheNext) {
    qelview::Numbering<std::uint32_t, 2> numbers(0);
    EXPECT_EQ(numbers.numberOf({7, 1}), 0U);
    EXPECT_EQ(numbers.numberOf({1, 7}), 1U);
    EXPECT_EQ(numbers.numberOf({7, 1}), 0U);
    EXPECT_EQ(numbers.numberOf({7, 2}), 2U);
    ASSERT_EQ(numbers.known().size(), 3U);
    EXPECT_EQ(numbers.known()[1][1], 7U);
}

TEST(Numbering, KnowsItsKeysAgainAfterManyOthers) {
    qelview::Numbering<std::uint64_t, 1> numbers(10);
    constexpr std::uint64_t kCount = 100000;
    for (int time = 0; time < 2; ++time) {
        for (std::uint64_t i = 0; i < kCount; ++i) {
            // Alike in their lower half.
            ASSERT_EQ(numbers.numberOf({i << 32U}), i);
        }
    }
    EXPECT_EQ(numbers.known().size(), kCount);
}

}  // namespace
