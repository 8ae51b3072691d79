#include "DetailBudget.h"

#include <gtest/gtest.h>

namespace {

using qelview::DetailBudget;

TEST(DetailBudget, DrawsAllOfASceneThatKeepsToItsTime) {
    DetailBudget budget;
    EXPECT_EQ(budget.thinning(true), 1U);
    budget.addFrameTime(50.0, 1);
    EXPECT_EQ(budget.thinning(true), 1U);
}

TEST(DetailBudget, ThinsWhileTheCameraMovesAndOnlyThen) {
    DetailBudget budget;
    budget.addFrameTime(120.0, 1);
    EXPECT_EQ(budget.thinning(true), 3U);
    EXPECT_EQ(budget.thinning(false), 1U);
}

TEST(DetailBudget, ThinsFurtherWhenThinnedFramesAreStillTooLong) {
    DetailBudget budget;
    budget.addFrameTime(120.0, 1);
    budget.addFrameTime(80.0, 3);
    EXPECT_EQ(budget.thinning(true), 6U);
    // Short thinned frames do not bring parts back: the picture would flicker.
    budget.addFrameTime(10.0, 6);
    EXPECT_EQ(budget.thinning(true), 6U);
}

TEST(DetailBudget, JudgesEachFullFrameAnew) {
    DetailBudget budget;
    budget.addFrameTime(500.0, 1);
    EXPECT_EQ(budget.thinning(true), 10U);
    budget.addFrameTime(30.0, 1);
    EXPECT_EQ(budget.thinning(true), 1U);
}

TEST(DetailBudget, HasALimitAndCanBeReset) {
    DetailBudget budget;
    budget.addFrameTime(1e12, 1);
    EXPECT_EQ(budget.thinning(true), DetailBudget::kThinnest);
    budget.addFrameTime(1e12, DetailBudget::kThinnest);
    EXPECT_EQ(budget.thinning(true), DetailBudget::kThinnest);
    budget.reset();
    EXPECT_EQ(budget.thinning(true), 1U);
}

}  // namespace
