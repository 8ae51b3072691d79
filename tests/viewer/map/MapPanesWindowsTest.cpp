#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <memory>

#include "GdiMapPane.h"
#include "GlMapPane.h"
#include "MapStyle.h"
#include "MapTexts.h"
#include "SampleMap.h"
#include "SystemWindow.h"
#include "kit/Picture.h"
#include "kit/TestWindow.h"
#include "viewer/ViewerData.h"

/// The same map in the pane of GDI and in the one of OpenGL.

namespace {

using qel::test::Picture;
using qel::test::Rgba;
using qelview::Line2d;
using qelview::MapColor;

constexpr int kWidth = 640;
constexpr int kHeight = 420;
/// The pixel in the middle.
constexpr double kMiddleColumn = 0.5 * kWidth;
constexpr double kMiddleRow = 0.5 * kHeight;

Rgba rgbaOf(const MapColor& color) {
    return {color.red, color.green, color.blue, 255};
}

Picture pictureOf(const qelview::PixelImage& image) {
    Picture picture(image.width, image.height);
    std::size_t at = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x, at += 3) {
            picture.set(x, y, {image.rgb.at(at), image.rgb.at(at + 1), image.rgb.at(at + 2), 255});
        }
    }
    return picture;
}

/// Pixels of a colour that have none of it in the other picture within a pixel.
std::size_t strayPixels(const Picture& picture, const Picture& other, const Rgba& color) {
    std::size_t strays = 0;
    for (int y = 1; y + 1 < picture.height(); ++y) {
        for (int x = 1; x + 1 < picture.width(); ++x) {
            if (picture.at(x, y) == color) {
                strays += other.countOf(color, 0, {x - 1, y - 1, 3, 3}) == 0 ? 1U : 0U;
            }
        }
    }
    return strays;
}

class MapPanes : public testing::Test {
  protected:
    void SetUp() override {
        gdiWindow.show();
        glWindow.show();
        gdi = std::make_unique<qelview::GdiMapPane>(reinterpret_cast<HWND>(gdiWindow.hwnd()));
        gl = qelview::GlMapPane::open(reinterpret_cast<HWND>(glWindow.hwnd()));
        ASSERT_NE(gl, nullptr);
        view.resize(kWidth, kHeight);
    }
    void TearDown() override {
        gl.reset();
        gdi.reset();
    }

    void show(const qelview::Scene& scene) {
        map = qelview::mapOf(scene);
        view.fit(map.bounds);
    }

    void draw(bool withTexts = false) {
        qelview::MapFrame frame = qelview::makeFrame(map, view);
        if (withTexts) {
            qelview::addTexts(frame, view, "A map", "x 1 y 2", qelview::scaleBarOf(view, map.isGeographic));
        }
        byGdi = pictureOf(gdi->picture(frame, view));
        byGl = pictureOf(gl->picture(frame, view));
    }

    void expectSameLines(const MapColor& color, std::size_t atLeast) {
        const Rgba pixel = rgbaOf(color);
        EXPECT_GE(byGdi.countOf(pixel), atLeast);
        EXPECT_EQ(strayPixels(byGdi, byGl, pixel), 0U) << "of " << byGdi.countOf(pixel) << " by GDI";
        EXPECT_EQ(strayPixels(byGl, byGdi, pixel), 0U) << "of " << byGl.countOf(pixel) << " by OpenGL";
    }

    qel::test::TestWindow gdiWindow{kWidth, kHeight};
    qel::test::TestWindow glWindow{kWidth, kHeight};
    std::unique_ptr<qelview::GdiMapPane> gdi;
    std::unique_ptr<qelview::GlMapPane> gl;
    qelview::MapView view;
    qelview::MapData map;
    Picture byGdi;
    Picture byGl;
};

TEST_F(MapPanes, DrawTheSameLinesToWithinAPixelAtEveryZoom) {
    show(qelview::makeSampleMap());
    map.points.clear();
    const qelview::Rings2d& coasts = map.polygons.at(0);
    const Line2d coast =
        *std::max_element(coasts.begin(), coasts.end(),
                          [](const Line2d& one, const Line2d& other) { return one.size() < other.size(); });
    for (const auto& [corner, factor] : {std::pair{0, 1.0}, {7, 2.0}, {30, 3.7}, {60, 5.3}}) {
        const qel::XPnt2d pixel = view.pixelOf(coast.at(static_cast<std::size_t>(corner)));
        view.zoomAt(pixel.x, pixel.y, factor);
        view.pan(7.3, -3.9);
        draw();
        expectSameLines(qelview::kOutline, 100);
        expectSameLines(qelview::kLineColor, 100);
        expectSameLines(qelview::kGridColor, 100);
    }
}

TEST_F(MapPanes, FramePointsAtTheSamePixels) {
    show(qelview::makeSampleMap());
    draw();
    expectSameLines(qelview::kPointColorOfMap, 8 * 12);
}

TEST_F(MapPanes, FillAreasWithTheSameHatchUpToTheirEdgesAndLeaveLakesOpen) {
    qelview::Scene scene;
    qelview::Polygon& polygon = scene.polygons.emplace_back();
    polygon.rings.push_back({{0, 0, 0}, {90, 0, 0}, {90, 60, 0}, {0, 60, 0}, {0, 0, 0}});
    polygon.rings.push_back({{30, 20, 0}, {60, 20, 0}, {60, 40, 0}, {30, 40, 0}, {30, 20, 0}});
    show(scene);
    draw();
    const Rgba land = rgbaOf(qelview::kLand);
    const Rgba hatch = rgbaOf(qelview::kHatch);
    const Rgba sea = rgbaOf(qelview::kSea);
    EXPECT_GT(byGdi.countOf(land), 50000U);
    // A quarter of the pixels of the pattern are lines.
    EXPECT_NEAR(static_cast<double>(byGdi.countOf(hatch)) / static_cast<double>(byGdi.countOf(land)),
                1.0 / 3.0, 0.02);
    EXPECT_NEAR(static_cast<double>(byGl.countOf(hatch)), static_cast<double>(byGdi.countOf(hatch)), 300.0);
    // The middle is a lake, the corner is sea.
    EXPECT_EQ(byGdi.at(kWidth / 2, kHeight / 2), byGl.at(kWidth / 2, kHeight / 2));
    for (const Picture* const picture : {&byGdi, &byGl}) {
        EXPECT_EQ(picture->at(3, 3), sea);
        EXPECT_EQ(picture->countOf(land, 0, {kWidth / 2 - 40, kHeight / 2 - 30, 80, 60}), 0U);
        EXPECT_EQ(picture->countOf(hatch, 0, {kWidth / 2 - 40, kHeight / 2 - 30, 80, 60}), 0U);
    }
    // All but the pixels along the edges.
    EXPECT_LT(qel::test::compare(byGdi, byGl).share, 0.01);
}

TEST_F(MapPanes, LookAlmostTheSameAsAWhole) {
    show(qelview::makeSampleMap());
    draw();
    EXPECT_LT(qel::test::compare(byGdi, byGl, 8).share, 0.04);
}

TEST_F(MapPanes, WriteTitleCoordinatesAndScaleBar) {
    show(qelview::makeSampleMap());
    draw();
    const Picture bareGdi = byGdi;
    const Picture bareGl = byGl;
    draw(true);
    const auto changedIn = [](const Picture& one, const Picture& other, const qel::test::PixelArea& area) {
        std::size_t count = 0;
        for (int y = area.y; y < area.y + area.height; ++y) {
            for (int x = area.x; x < area.x + area.width; ++x) {
                count += one.at(x, y) == other.at(x, y) ? 0U : 1U;
            }
        }
        return count;
    };
    for (const auto& [bare, written] : {std::pair{&bareGdi, &byGdi}, {&bareGl, &byGl}}) {
        EXPECT_GT(changedIn(*bare, *written, {10, kHeight - 40, 120, 40}), 60U) << "title";
        EXPECT_GT(changedIn(*bare, *written, {10, 0, 120, 34}), 60U) << "coordinates";
        EXPECT_GT(changedIn(*bare, *written, {kWidth - 180, 0, 170, 40}), 120U) << "scale bar";
    }
    const qelview::ScaleBar bar = qelview::scaleBarOf(view, false);
    EXPECT_NEAR(static_cast<double>(byGl.countOf(rgbaOf(qelview::kInk), 0, {kWidth - 190, 14, 180, 1})),
                bar.right - bar.left, 3);
    EXPECT_NEAR(static_cast<double>(byGdi.countOf(rgbaOf(qelview::kInk), 0, {kWidth - 190, 14, 180, 1})),
                bar.right - bar.left, 3);
}

/// Where single precision would put the coordinates metres apart.
TEST_F(MapPanes, KeepLargeCoordinatesCrispAtTheDeepestZoom) {
    qelview::Scene scene;
    constexpr double kFar = 1.9e7;
    scene.polylines.push_back(
        {{{{-kFar, -kFar, 0}, {kFar, kFar, 0}}, {{kFar, -kFar, 0}, {-kFar, kFar, 0}}}, {}});
    // A staircase of steps of 10 cm far from the middle.
    qelview::Points stairs;
    for (int step = 0; step < 40; ++step) {
        const int across = (step + 1) / 2;
        const int up = step / 2;
        stairs.emplace_back(kFar * 0.7 + 0.1 * across, kFar * 0.3 + 0.1 * up, 0.0);
    }
    scene.polylines.push_back({{stairs}, {}});
    show(scene);
    const qel::XPnt2d target(kFar * 0.7 + 1.0, kFar * 0.3 + 1.0);
    for (const double unitsPerPixel : {0.05, 0.01, view.finestUnitsPerPixel()}) {
        SCOPED_TRACE(unitsPerPixel);
        const qel::XPnt2d pixel = view.pixelOf(target);
        view.pan(kMiddleColumn - pixel.x, kMiddleRow - pixel.y);
        view.zoomAt(kMiddleColumn, kMiddleRow, view.unitsPerPixel() / unitsPerPixel);
        ASSERT_NEAR(view.unitsPerPixel(), unitsPerPixel, 1e-9 * unitsPerPixel);
        draw();
        expectSameLines(qelview::kLineColor, 60);
    }
}

TEST_F(MapPanes, ShowTheWorldTheSameWayIfItIsThere) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const std::filesystem::path maps = qel::test::viewerData() / "maps";
    for (const char* const name : {"ne_110m_admin_0_countries.geojson", "coastline_3857.geojson"}) {
        SCOPED_TRACE(name);
        show(qel::test::readWhole(maps / name));
        // All of it, then one of its corners at the deepest zoom.
        draw();
        const MapColor color = map.polygons.empty() ? qelview::kLineColor : qelview::kOutline;
        expectSameLines(color, 3000);
        const qel::XPnt2d corner =
            map.polygons.empty() ? map.lines.at(40).at(3) : map.polygons.at(40).at(0).at(3);
        const qel::XPnt2d pixel = view.pixelOf(corner);
        view.pan(kMiddleColumn - pixel.x, kMiddleRow - pixel.y);
        view.zoomAt(kMiddleColumn, kMiddleRow, 1e30);
        EXPECT_EQ(view.unitsPerPixel(), view.finestUnitsPerPixel());
        draw();
        expectSameLines(color, 100);
    }
}

}  // namespace
