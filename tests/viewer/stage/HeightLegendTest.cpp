#include "HeightLegend.h"

#include <gtest/gtest.h>

namespace {

using qelview::HeightRange;
using qelview::LegendTick;
using qelview::legendTicks;

std::vector<std::string> textsOf(const std::vector<LegendTick>& ticks) {
    std::vector<std::string> texts;
    for (const LegendTick& tick : ticks) {
        texts.push_back(tick.text);
    }
    return texts;
}

TEST(HeightLegend, TellsTheEndsAndRoundHeightsBetween) {
    const std::vector<LegendTick> ticks = legendTicks({-420.0, 420.0}, 656.0);
    EXPECT_EQ(textsOf(ticks), (std::vector<std::string>{"236", "400", "600", "800", "1000", "1076"}));
    EXPECT_EQ(ticks.front().share, 0.0);
    EXPECT_EQ(ticks.back().share, 1.0);
    EXPECT_NEAR(ticks[1].share, 164.0 / 840.0, 1e-12);
}

TEST(HeightLegend, HasTheDigitsThatASmallRangeNeeds) {
    EXPECT_EQ(textsOf(legendTicks({0.0, 0.03}, 100.0)),
              (std::vector<std::string>{"100.0000", "100.005", "100.010", "100.015", "100.020", "100.025",
                                        "100.0300"}));
}

TEST(HeightLegend, HasNoSignOnZero) {
    EXPECT_EQ(textsOf(legendTicks({-1.4, 6.1}, 0.0)),
              (std::vector<std::string>{"-1.4", "0", "2", "4", "6.1"}));
}

TEST(HeightLegend, OfAFlatSceneIsItsHeight) {
    EXPECT_EQ(textsOf(legendTicks({2.0, 2.0}, 100.0)), (std::vector<std::string>{"102.00"}));
}

}  // namespace
