#include "Statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace qel::bench {
namespace {

TEST(StatisticsMedianOf, IsTheMiddleValueOrTheMeanOfTheTwoInTheMiddle) {
    EXPECT_EQ(medianOf({7.0}), 7.0);
    EXPECT_EQ(medianOf({9.0, 1.0, 5.0}), 5.0);
    EXPECT_EQ(medianOf({4.0, 1.0, 100.0, 2.0}), 3.0);
}

struct RankCase {
    std::size_t size;
    /// From tables of the sign test: the interval runs from this value of the sorted sample, counted from 1,
    /// to its mirror.
    std::size_t firstRank;
};

TEST(StatisticsRanksOutside, AreThoseOfTheSignTest) {
    constexpr RankCase kCases[] = {{6, 1}, {8, 1}, {9, 2}, {12, 3}, {20, 6}, {25, 8}, {50, 18}, {100, 40}};
    for (const RankCase& sample : kCases) {
        EXPECT_EQ(ranksOutside(sample.size) + 1, sample.firstRank) << sample.size << " values";
    }
}

TEST(StatisticsMedianInterval, OfFewValuesIsAllOfThem) {
    const MedianInterval interval = medianInterval({3.0, 1.0, 2.0, 10.0, 4.0});
    EXPECT_EQ(interval.median, 3.0);
    EXPECT_EQ(interval.low, 1.0);
    EXPECT_EQ(interval.high, 10.0);
}

TEST(StatisticsMedianInterval, DoesNotMindWildValuesAtTheEnds) {
    std::vector<double> values(101);
    std::iota(values.begin(), values.end(), 0.0);
    const MedianInterval tame = medianInterval(values);
    values.front() = -1e9;
    values.back() = 1e9;
    const MedianInterval wild = medianInterval(values);
    EXPECT_EQ(wild.median, 50.0);
    EXPECT_EQ(wild.low, tame.low);
    EXPECT_EQ(wild.high, tame.high);
    EXPECT_LT(tame.width(), 25.0);
}

TEST(StatisticsMedianInterval, HoldsTheTrueMedianInAtLeastNineteenOfTwentySamples) {
    std::mt19937 random(5);
    // Skewed as times are: most are short, some are long. The true median of the distribution is ln 2.
    std::exponential_distribution<double> times(1.0);
    constexpr double kTrueMedian = 0.6931471805599453;
    constexpr int kSamples = 2000;
    int holding = 0;
    for (int sample = 0; sample < kSamples; ++sample) {
        std::vector<double> values(41);
        std::generate(values.begin(), values.end(), [&] { return times(random); });
        const MedianInterval interval = medianInterval(values);
        holding += interval.low <= kTrueMedian && kTrueMedian <= interval.high ? 1 : 0;
    }
    EXPECT_GE(holding, kSamples * 19 / 20);
    // Not by being far too wide.
    EXPECT_LE(holding, kSamples * 99 / 100);
}

}  // namespace
}  // namespace qel::bench
