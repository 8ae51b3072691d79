#include <cmath>
#include <random>

#include "ExtremeNumbers.h"
#include "GdiFixtureWindows.h"

namespace qel::test {
namespace {

void expectExtent(const Enve2d& actual, const Enve2d& expected) {
    EXPECT_DOUBLE_EQ(actual.xmin, expected.xmin);
    EXPECT_DOUBLE_EQ(actual.xmax, expected.xmax);
    EXPECT_DOUBLE_EQ(actual.ymin, expected.ymin);
    EXPECT_DOUBLE_EQ(actual.ymax, expected.ymax);
}

void expectPixel(const PixelPoint& actual, std::int32_t column, std::int32_t row) {
    EXPECT_EQ(actual.x, column);
    EXPECT_EQ(actual.y, row);
}

struct Scaled {
    Enve2d extent;
    std::int32_t width;
    std::int32_t height;
    double scale;
};

TEST(GdiDisplayMapping, TakesTheLargerOfBothScalesAndNoneForWhatHasNoSize) {
    const HeldGdiDisplay display;
    const Scaled cases[] = {{{0, 0, 100, 100}, 200, 100, 1.0}, {{0, 0, 100, 100}, 100, 200, 1.0},
                            {{0, 0, 300, 100}, 100, 100, 3.0}, {{5, 5, 5, 50}, 100, 100, 0.0},
                            {{5, 5, 50, 5}, 100, 100, 0.0},    {{0, 0, 0, 0}, 100, 100, 0.0},
                            {{0, 0, 10, 10}, 0, 100, 0.0},     {{0, 0, 10, 10}, 100, 0, 0.0},
                            {{-7, 1, 1, 3}, 16, 16, 0.5}};
    for (const Scaled& tested : cases) {
        display->setPixelSize(tested.width, tested.height);
        EXPECT_EQ(display.own().computeScale(tested.extent), tested.scale)
            << tested.width << " x " << tested.height;
    }
}

TEST(GdiDisplayMapping, WidensAnExtentToTheShapeOfTheWindow) {
    const HeldGdiDisplay display;
    display->setPixelSize(200, 100);
    Enve2d extent(0, 0, 100, 100);
    EXPECT_EQ(display.own().fitExtent(extent), 0);
    expectExtent(extent, {-50, 0, 150, 100});
    EXPECT_EQ(display->setViewExtent({0, 0, 100, 100}), 0);
    expectExtent(display->getViewExtent(), {-50, 0, 150, 100});
}

TEST(GdiDisplayMapping, CollapsesAnEmptyExtentToItsCentre) {
    const HeldGdiDisplay display;
    display->setPixelSize(200, 100);
    Enve2d extent(10, 20, 10, 40);
    display.own().fitExtent(extent);
    expectExtent(extent, {10, 30, 10, 30});
}

TEST(GdiDisplayMapping, ShowsTheFullExtentAgain) {
    const HeldGdiDisplay display;
    display->setPixelSize(100, 100);
    Enve2d full(0, 0, 50, 100);
    display->setFullExtent(full);
    // A copy is kept.
    full = {7, 7, 8, 8};
    expectExtent(display->getViewExtent(), {0, 0, 0, 0});
    display->setViewExtent({0, 0, 1, 1});
    EXPECT_EQ(display->zoomToFull(), 0);
    expectExtent(display->getViewExtent(), {-25, 0, 75, 100});
}

TEST(GdiDisplayMapping, CountsRowsFromTheUpperEdge) {
    const HeldGdiDisplay display;
    display->setPixelSize(200, 100);
    display->setViewExtent({0, 0, 400, 200});
    expectPixel(display->worldToScreen({0, 0}), 0, 99);
    expectPixel(display->worldToScreen({2, 2}), 1, 98);
    expectPixel(display->worldToScreen({398, 198}), 199, 0);
    // Half a pixel to either side is the same pixel.
    expectPixel(display->worldToScreen({2.9, 2.9}), 1, 98);
    expectPixel(display->worldToScreen({1.1, 1.1}), 1, 98);
    expectPixel(display->worldToScreen3d({398, 198, 1e9}), 199, 0);
    EXPECT_EQ(display->screenToWorld(0, 99).x, 0.0);
    EXPECT_EQ(display->screenToWorld(0, 99).y, 0.0);
    EXPECT_EQ(display->screenToWorldPoint({199, 0}).x, 398.0);
    EXPECT_EQ(display->screenToWorldPoint({199, 0}).y, 198.0);
}

TEST(GdiDisplayMapping, TruncatesTowardZeroLeftOfAndBelowTheWindow) {
    const HeldGdiDisplay display;
    display->setPixelSize(100, 100);
    display->setViewExtent({0, 0, 100, 100});
    // (0.5 - 1.4) / 1 is cut to 0, (0.5 - 1.6) / 1 to -1.
    expectPixel(display->worldToScreen({-1.4, -1.4}), 0, 99);
    expectPixel(display->worldToScreen({-1.6, -1.6}), -1, 100);
    expectPixel(display->worldToScreen({-1000.0, 1000.0}), -999, -901);
}

TEST(GdiDisplayMapping, ComesBackToWithinAPixelOverRandomExtentsAndShapes) {
    const HeldGdiDisplay display;
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (int round = 0; round < 500; ++round) {
        const auto width = static_cast<std::int32_t>(1 + random() % 3000);
        const auto height = static_cast<std::int32_t>(1 + random() % 3000);
        display->setPixelSize(width, height);
        const double size = std::pow(10.0, share(random) * 12.0 - 4.0);
        const double left = (share(random) - 0.5) * size * 1e4;
        const double bottom = (share(random) - 0.5) * size * 1e4;
        display->setViewExtent({left, bottom, left + size * (0.01 + share(random)), bottom + size});
        const Enve2d shown = display->getViewExtent();
        const double scale = shown.Width() / width;
        for (int point = 0; point < 20; ++point) {
            const XPnt2d p{shown.xmin + share(random) * shown.Width(),
                           shown.ymin + share(random) * shown.Hight()};
            const XPnt2d back = display->screenToWorldPoint(display->worldToScreen(p));
            EXPECT_NEAR(back.x, p.x, scale * 1.0001);
            EXPECT_NEAR(back.y, p.y, scale * 1.0001);
        }
    }
}

TEST(GdiDisplayMapping, PutsPointsThatHaveNoPixelFarOutside) {
    const HeldGdiDisplay display;
    display->setPixelSize(100, 100);
    display->setViewExtent({0, 0, 100, 100});
    for (const double wild : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 4e9, -4e9}) {
        const PixelPoint pixel = display->worldToScreen({wild, wild});
        expectPixel(pixel, kSmallest, kSmallest);
        expectPixel(display->worldToScreen3d({wild, wild, wild}), kSmallest, kSmallest);
    }
    // One coordinate does not spoil the other.
    expectPixel(display->worldToScreen({kNaN, 5}), kSmallest, 94);
    expectPixel(display->worldToScreen({5, kNaN}), 5, kSmallest);
    // The row of a point far below fits an integer only just.
    expectPixel(display->worldToScreen({0, -2147483000.0}), 0, 2147483098);
    EXPECT_EQ(display->screenToWorld(kSmallest, kSmallest).x, -2147483648.0);
    EXPECT_EQ(display->screenToWorld(kSmallest, kSmallest).y, 2147483747.0);
}

TEST(GdiDisplayMapping, WithoutAScaleHasNoPixelsAndOnePlace) {
    const HeldGdiDisplay display;
    display->setPixelSize(100, 100);
    display->setViewExtent({3, 4, 3, 4});
    for (const XPnt2d& point : {XPnt2d{3, 4}, XPnt2d{0, 0}, XPnt2d{1e300, -1e300}}) {
        expectPixel(display->worldToScreen(point), kSmallest, kSmallest);
    }
    EXPECT_EQ(display->screenToWorld(50, 50).x, 3.0);
    EXPECT_EQ(display->screenToWorld(50, 50).y, 4.0);
    // And recovers with the next extent.
    display->setViewExtent({0, 0, 100, 100});
    expectPixel(display->worldToScreen({10, 10}), 10, 89);
}

}  // namespace
}  // namespace qel::test
