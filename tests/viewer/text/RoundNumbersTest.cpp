#include "RoundNumbers.h"

#include <gtest/gtest.h>

namespace {

struct Rounded {
    double value;
    double atLeast;
    double atMost;
};

TEST(RoundNumbers, AreOneTwoAndFiveTimesPowersOfTen) {
    const Rounded cases[] = {{1, 1, 1},       {1.1, 2, 1},          {2, 2, 2},         {3, 5, 2},
                             {7, 10, 5},      {0.1, 0.1, 0.1},      {0.3, 0.5, 0.2},   {99, 100, 50},
                             {100, 100, 100}, {1.5e-7, 2e-7, 1e-7}, {4e12, 5e12, 2e12}};
    for (const Rounded& tested : cases) {
        EXPECT_NEAR(qelview::roundAtLeast(tested.value), tested.atLeast, 1e-9 * tested.atLeast)
            << tested.value;
        EXPECT_NEAR(qelview::roundAtMost(tested.value), tested.atMost, 1e-9 * tested.atMost) << tested.value;
    }
}

TEST(RoundNumbers, AreWrittenWithTheDecimalsOfTheirStep) {
    EXPECT_EQ(qelview::withStep(1234.5678, 1.0), "1235");
    EXPECT_EQ(qelview::withStep(1234.5678, 0.1), "1234.6");
    EXPECT_EQ(qelview::withStep(1234.5678, 0.02), "1234.57");
    EXPECT_EQ(qelview::withStep(1234.5678, 100.0), "1235");
    EXPECT_EQ(qelview::withStep(1e300, 1e-300).size(), 317U);
}

}  // namespace
