#include "Verdict.h"

#include <gtest/gtest.h>

#include "Bounds.h"

namespace qel::bench {
namespace {

struct VerdictCase {
    const char* name;
    MedianInterval ratio;
    bool stayedWide;
    double bound;
    Verdict expected;
};

TEST(VerdictOf, ARatioDependsOnWhereItsIntervalLies) {
    const VerdictCase cases[] = {
        {"below the bound", {1.01, 1.00, 1.02}, false, 1.05, Verdict::Ok},
        {"narrow and at the bound", {1.05, 1.04, 1.06}, false, 1.05, Verdict::Ok},
        {"narrow and above the bound", {1.06, 1.04, 1.07}, false, 1.05, Verdict::TooSlow},
        {"wide with the bound in it", {1.20, 0.90, 1.50}, true, 1.05, Verdict::Unclear},
        {"wide with the bound at its end", {0.95, 0.85, 1.05}, true, 1.05, Verdict::Ok},
        {"wide and wholly above the bound", {1.40, 1.10, 1.80}, true, 1.05, Verdict::TooSlow},
        {"without a bound", {9.00, 8.00, 10.0}, true, 0.0, Verdict::NotHeld},
    };
    for (const VerdictCase& one : cases) {
        EXPECT_EQ(verdictOf(one.ratio, one.stayedWide, one.bound), one.expected) << one.name;
    }
}

TEST(VerdictOf, AValueIsTooLargeAboveItsBoundAlone) {
    EXPECT_EQ(verdictOf(150.0, 150.0), Verdict::Ok);
    EXPECT_EQ(verdictOf(150.1, 150.0), Verdict::TooSlow);
    EXPECT_EQ(verdictOf(1e9, 0.0), Verdict::NotHeld);
}

TEST(VerdictOf, OrdersFromGoodToBadSoThatTheWorstOfSeveralIsTheLargest) {
    EXPECT_LT(Verdict::NotHeld, Verdict::Ok);
    EXPECT_LT(Verdict::Ok, Verdict::Unclear);
    EXPECT_LT(Verdict::Unclear, Verdict::TooSlow);
}

TEST(VerdictBoundOf, IsAMarginOfATenthAtMostForWhateverIsHeldAgainstBareCalls) {
    for (const Kind kind : {Kind::Mesh, Kind::Cloud, Kind::Polyline, Kind::Polygon, Kind::Ball, Kind::Marker,
                            Kind::FrameBracket, Kind::Capture, Kind::Projection}) {
        EXPECT_GT(boundOf(kind).ratio, 1.0) << static_cast<int>(kind);
        EXPECT_LE(boundOf(kind).ratio, 1.10) << static_cast<int>(kind);
    }
    EXPECT_EQ(boundOf(Kind::Marker).ownNanoseconds, 150.0);
    EXPECT_EQ(boundOf(Kind::Drag).ownNanoseconds, 3000.0);
}

}  // namespace
}  // namespace qel::bench
