#include "Tangle.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Contours = std::vector<qelview::Points>;

// Edges overlap if the spans that they cover from left to right have a place in common.
const qelview::Points kSquare{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
/// Two of its edges cross in (1, 1).
const qelview::Points kHourglass{{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}};

/// The same contour with other axes: the one that x becomes is `first`, counted from 0.
qelview::Points turned(const qelview::Points& contour, int first) {
    qelview::Points result;
    for (const qel::XPnt3d& point : contour) {
        result.push_back(first == 1 ? qel::XPnt3d(0, point.x, point.y) : qel::XPnt3d(point.y, 0, point.x));
    }
    return result;
}

struct Cost {
    const char* name;
    Contours contours;
    qel::XPnt3d normal;
    std::uint64_t pairs;
    std::uint64_t crossings;
};

class TangleCostOf : public testing::TestWithParam<Cost> {};

TEST_P(TangleCostOf, IsThePairsThatOverlapAndTheCrossings) {
    qelview::TangleBudget budget{1000, 1000};
    EXPECT_TRUE(qelview::pay(budget, GetParam().contours, GetParam().normal));
    EXPECT_EQ(1000 - budget.pairs, GetParam().pairs);
    EXPECT_EQ(1000 - budget.crossings, GetParam().crossings);
}

const std::vector<Cost> kCosts{
    // All pairs but the left edge and the right one.
    {"ASquare", {kSquare}, {0, 0, 1}, 5, 0},
    {"ASquareSeenFromBelow", {kSquare}, {0, 0, -1}, 5, 0},
    {"AnHourglass", {kHourglass}, {0, 0, 1}, 5, 1},
    {"AnHourglassAcrossX", {turned(kHourglass, 1)}, {1, 0, 0}, 5, 1},
    {"AnHourglassAgainstX", {turned(kHourglass, 1)}, {-3, 2, 2}, 5, 1},
    {"AnHourglassAcrossY", {turned(kHourglass, 2)}, {0, 1, 0}, 5, 1},
    {"AnHourglassAgainstY", {turned(kHourglass, 2)}, {0.5, -1, -0.5}, 5, 1},
    // Each edge lies on its copy, and each pair of edges is there four times; their crossing counts once.
    {"AnHourglassTwice", {kHourglass, kHourglass}, {0, 0, 1}, 24, 1},
    {"TwoSquaresApart", {kSquare, {{5, 0, 0}, {6, 0, 0}, {6, 1, 0}, {5, 1, 0}}}, {0, 0, 1}, 10, 0},
    // The second one stands with a corner on the first one's lowest edge, which it does not cross.
    {"ATriangleOutOfAnother",
     {{{0, 0, 0}, {4, 0, 0}, {2, 2, 0}}, {{2, 0, 0}, {3, 3, 0}, {1, 3, 0}}},
     {0, 0, 1},
     15,
     2},
    {"OneLineEndingOnAnother", {{{0, 0, 0}, {4, 1, 0}}, {{2, 0.5, 0}, {2.5, 3, 0}}}, {0, 0, 1}, 6, 0},
};
INSTANTIATE_TEST_SUITE_P(Contours, TangleCostOf, testing::ValuesIn(kCosts),
                         [](const auto& each) { return each.param.name; });

struct Purse {
    const char* name;
    std::uint64_t pairs;
    std::uint64_t crossings;
    bool isEnough;
};

class TangleBudgetOf : public testing::TestWithParam<Purse> {};

TEST_P(TangleBudgetOf, PaysForAnHourglassIfItIsLargeEnough) {
    qelview::TangleBudget budget{GetParam().pairs, GetParam().crossings};
    const Contours contours{kHourglass};
    EXPECT_EQ(qelview::pay(budget, contours, {0, 0, 1}), GetParam().isEnough);
}

const std::vector<Purse> kPurses{
    {"Enough", 5, 2, true},
    {"APairTooFew", 4, 2, false},
    {"NoPair", 0, 2, false},
    // What is spent before the last pair does not last.
    {"ACrossingAndNoMore", 5, 1, false},
    {"NoCrossing", 5, 0, false},
};
INSTANTIATE_TEST_SUITE_P(Budgets, TangleBudgetOf, testing::ValuesIn(kPurses),
                         [](const auto& each) { return each.param.name; });

TEST(TangleBudget, IsSpentByOneContourAfterTheOther) {
    qelview::TangleBudget budget{9, 9};
    const Contours contours{kSquare};
    EXPECT_TRUE(qelview::pay(budget, contours, {0, 0, 1}));
    EXPECT_FALSE(qelview::pay(budget, contours, {0, 0, 1}));
}

}  // namespace
