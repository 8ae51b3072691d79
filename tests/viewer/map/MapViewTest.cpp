#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "MapTexts.h"
#include "MapView.h"

/// Which part of a map is seen, and how it is described.

namespace {

using qelview::MapView;

MapView viewOf(int width, int height, const qel::Enve2d& bounds) {
    MapView view;
    view.resize(width, height);
    view.fit(bounds);
    return view;
}

TEST(MapView, FitsAMapIntoAPaneOfAnyShapeWithAMargin) {
    for (const auto& [width, height] : {std::pair{800, 600}, {300, 1000}, {1000, 30}}) {
        const MapView view = viewOf(width, height, {100, 200, 500, 400});
        const qel::Enve2d shown = view.extent();
        EXPECT_LT(shown.xmin, 100.0);
        EXPECT_GT(shown.xmax, 500.0);
        EXPECT_LT(shown.ymin, 200.0);
        EXPECT_GT(shown.ymax, 400.0);
        EXPECT_NEAR(shown.Width() / width, shown.Hight() / height, 1e-9);
        // As large as fits: one direction is filled.
        EXPECT_NEAR(std::max(400.0 / shown.Width(), 200.0 / shown.Hight()), 0.94, 1e-9);
        EXPECT_NEAR(shown.MidPoint().x, 300.0, 1e-9);
        EXPECT_NEAR(shown.MidPoint().y, 300.0, 1e-9);
    }
}

TEST(MapView, HasTheCornersOfItsExtentInTheMiddlesOfCornerPixels) {
    const MapView view = viewOf(400, 300, {0, 0, 40, 30});
    const qel::Enve2d shown = view.extent();
    const qel::XPnt2d lowerLeft = view.worldAt(0, 299);
    EXPECT_NEAR(lowerLeft.x, shown.xmin, 1e-12);
    EXPECT_NEAR(lowerLeft.y, shown.ymin, 1e-12);
    const qel::XPnt2d pixel = view.pixelOf({shown.xmin, shown.ymin});
    EXPECT_NEAR(pixel.x, 0.0, 1e-9);
    EXPECT_NEAR(pixel.y, 299.0, 1e-9);
}

TEST(MapView, GoesFromPixelToWorldAndBack) {
    const MapView view = viewOf(640, 480, {-2e7, -2e7, 2e7, 2e7});
    for (const auto& [column, row] : {std::pair{0.0, 0.0}, {639.0, 479.0}, {12.25, 300.5}}) {
        const qel::XPnt2d back = view.pixelOf(view.worldAt(column, row));
        EXPECT_NEAR(back.x, column, 1e-6);
        EXPECT_NEAR(back.y, row, 1e-6);
    }
}

TEST(MapView, MovesTheMapWithTheHand) {
    MapView view = viewOf(400, 300, {0, 0, 40, 30});
    const qel::XPnt2d grabbed = view.worldAt(100, 50);
    view.pan(30, -12);
    const qel::XPnt2d pixel = view.pixelOf(grabbed);
    EXPECT_NEAR(pixel.x, 130.0, 1e-9);
    EXPECT_NEAR(pixel.y, 38.0, 1e-9);
}

TEST(MapView, KeepsWhatIsUnderTheCursorWhileZooming) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    MapView view = viewOf(400, 300, {-2e7, -1e7, 2e7, 1e7});
    for (int step = 0; step < 400; ++step) {
        const double column = share(random) * 400;
        const double row = share(random) * 300;
        const qel::XPnt2d before = view.worldAt(column, row);
        view.zoomAt(column, row, share(random) < 0.7 ? 1.3 : 0.8);
        const qel::XPnt2d pixel = view.pixelOf(before);
        EXPECT_NEAR(pixel.x, column, 0.01);
        EXPECT_NEAR(pixel.y, row, 0.01);
    }
}

TEST(MapView, StopsZoomingWhereNumbersEnd) {
    MapView view = viewOf(400, 300, {-2e7, -1e7, 2e7, 1e7});
    const double fitted = view.unitsPerPixel();
    for (int step = 0; step < 500; ++step) {
        view.zoomAt(3, 3, 2.0);
    }
    EXPECT_EQ(view.unitsPerPixel(), view.finestUnitsPerPixel());
    // Less than a millimetre of Web Mercator, and still some thousand steps of a double.
    EXPECT_LT(view.unitsPerPixel(), 1e-3);
    EXPECT_GT(view.unitsPerPixel(), 1000 * (std::nextafter(2e7, 3e7) - 2e7));
    for (int step = 0; step < 500; ++step) {
        view.zoomAt(3, 3, 0.5);
    }
    EXPECT_NEAR(view.unitsPerPixel(), 4 * fitted, 1e-9 * fitted);
}

TEST(MapView, ShowsAMapOfOnePointAndKeepsItselfForNone) {
    const MapView point = viewOf(400, 300, {5, 6, 5, 6});
    EXPECT_GT(point.unitsPerPixel(), 0.0);
    EXPECT_NEAR(point.pixelOf({5, 6}).x, 200.0, 1e-9);
    qel::Enve2d nothing;
    nothing.setInvalid();
    const MapView none = viewOf(400, 300, nothing);
    EXPECT_EQ(none.unitsPerPixel(), 1.0);
    EXPECT_EQ(viewOf(0, -5, {0, 0, 1, 1}).width(), 1);
}

TEST(MapViewTexts, GiveABarOfARoundLength) {
    const MapView view = viewOf(400, 300, {0, 0, 40, 30});
    const qelview::ScaleBar bar = qelview::scaleBarOf(view, false);
    EXPECT_EQ(bar.units, 10.0);
    EXPECT_NEAR(bar.right - bar.left, 94.0, 1e-6);
    EXPECT_LT(bar.right, 400.0);
    EXPECT_EQ(bar.text, "10 units");
    EXPECT_EQ(qelview::scaleBarOf(view, true).text, "10 deg");
    // A long text begins further to the left than its bar.
    const qelview::ScaleBar wide = qelview::scaleBarOf(viewOf(400, 300, {0, 0, 4e7, 3e7}), false);
    EXPECT_EQ(wide.text, "10000000 units");
    EXPECT_LT(wide.textLeft + 8.5 * static_cast<double>(wide.text.size()), 400.0);
}

TEST(MapViewTexts, GiveCoordinatesAsExactAsAPixel) {
    const MapView view = viewOf(400, 300, {0, 0, 40, 30});
    EXPECT_EQ(qelview::textOf({12.3456, -7.891}, view, false), "x 12.3   y -7.9");
    EXPECT_EQ(qelview::textOf({-12.3456, 7.891}, view, true), "7.9 deg N   12.3 deg W");
}

}  // namespace
