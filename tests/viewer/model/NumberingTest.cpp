#include "Numbering.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <vector>

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

TEST(Numbering, NumbersABlockOfKeysAsItNumbersOneByOne) {
    using Numbers = qelview::Numbering<std::uint32_t, 2>;
    Numbers numbers(0);
    numbers.numberOf({5, 5});
    const std::vector<Numbers::Key> block{{1, 2}, {2, 1}, {1, 2}, {5, 5}, {7, 0}};
    std::vector<std::uint32_t> found(block.size() + 1, 99);
    numbers.numberBlock(block.data(), block.size(), found.data());
    EXPECT_EQ(found, (std::vector<std::uint32_t>{1, 2, 1, 0, 3, 99}));
    EXPECT_EQ(numbers.known().size(), 4U);
}

TEST(Numbering, GrowsWithinABlock) {
    qelview::Numbering<std::uint64_t, 1> numbers(0);
    using Key = qelview::Numbering<std::uint64_t, 1>::Key;
    std::vector<Key> block;
    std::vector<std::uint32_t> found(numbers.kBlock);
    for (std::uint64_t first = 0; first < 3000; first += numbers.kBlock) {
        block.clear();
        for (std::uint64_t i = 0; i < numbers.kBlock; ++i) {
            block.push_back({(first + i) / 2});
        }
        numbers.numberBlock(block.data(), block.size(), found.data());
        for (std::size_t i = 0; i < block.size(); ++i) {
            ASSERT_EQ(found[i], block[i][0]);
        }
    }
}

struct Row {
    const char* name;
    std::size_t count;
    std::size_t expected;
};

class NumberingOfAll : public testing::TestWithParam<Row> {};

/// Many keys are numbered on all cores: the same keys come to each of them, and some to one alone.
TEST_P(NumberingOfAll, NumbersKeysInTheOrderInWhichTheyCome) {
    const auto keyAt = [](std::size_t i) {
        return std::array<std::uint32_t, 2>{static_cast<std::uint32_t>(i * i % 1009),
                                            static_cast<std::uint32_t>(i / 5000)};
    };
    const auto all = qelview::numberAll<std::uint32_t, 2>(GetParam().count, GetParam().expected, keyAt);
    std::map<std::array<std::uint32_t, 2>, std::uint32_t> known;
    ASSERT_EQ(all.numbers.size(), GetParam().count);
    for (std::size_t i = 0; i < GetParam().count; ++i) {
        const auto [at, isNew] = known.emplace(keyAt(i), static_cast<std::uint32_t>(known.size()));
        ASSERT_EQ(all.numbers[i], at->second) << i;
        ASSERT_EQ(all.keys.at(at->second), at->first) << i;
    }
    EXPECT_EQ(all.keys.size(), known.size());
}

const std::vector<Row> kRows{
    {"None", 0, 0},
    {"One", 1, 1},
    {"ABlockAndOne", 65, 100},
    {"ManyOnAllCores", 100'001, 100'001},
    {"ManyMoreThanExpected", 100'001, 0},
};
INSTANTIATE_TEST_SUITE_P(Rows, NumberingOfAll, testing::ValuesIn(kRows),
                         [](const auto& each) { return each.param.name; });

TEST(NumberingOfAll, ThrowsWhatItsKeysThrow) {
    EXPECT_THROW(
        static_cast<void>(qelview::numberAll<std::uint32_t, 1>(100'000, 0,
                                                               [](std::size_t i) {
                                                                   if (i == 99'999) {
                                                                       throw std::runtime_error("bad key");
                                                                   }
                                                                   return std::array<std::uint32_t, 1>{0};
                                                               })),
        std::runtime_error);
}

}  // namespace
