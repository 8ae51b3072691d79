#include "HeightColors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "HostScene.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"
#include "viewer/host/FlatView.h"

namespace {

using qelview::colorOfHeight;
using qelview::Colouring;
using qelview::HeightRange;
using qelview::HostScene;
using qelview::UpAxis;

TEST(HeightColors, GoFromBlueToRedInSmallSteps) {
    EXPECT_GT(colorOfHeight(0.0).b, 2.0F * colorOfHeight(0.0).r);
    EXPECT_GT(colorOfHeight(1.0).r, 2.0F * colorOfHeight(1.0).b);
    for (int step = 0; step < 100; ++step) {
        const qel::QelColor3f low = colorOfHeight(step * 0.01);
        const qel::QelColor3f high = colorOfHeight((step + 1) * 0.01);
        EXPECT_LT(std::abs(high.r - low.r) + std::abs(high.g - low.g) + std::abs(high.b - low.b), 0.06F)
            << step;
    }
}

TEST(HeightColors, StayWithinTheRampBeyondItsEndsAndWithoutANumber) {
    const auto same = [](const qel::QelColor3f& a, const qel::QelColor3f& b) {
        return a.r == b.r && a.g == b.g && a.b == b.b;
    };
    EXPECT_TRUE(same(colorOfHeight(-3.0), colorOfHeight(0.0)));
    EXPECT_TRUE(same(colorOfHeight(1e300), colorOfHeight(1.0)));
    EXPECT_TRUE(same(colorOfHeight(std::numeric_limits<double>::quiet_NaN()), colorOfHeight(0.5)));
}

class HeightColorsOfAScene : public testing::Test {
  protected:
    static constexpr int kSize = 32;

    /// A square over the whole surface.
    HeightColorsOfAScene() {
        qelview::TriangleMesh mesh;
        mesh.positions = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
        mesh.indices = {0, 1, 2, 0, 2, 3};
        mesh.color = {0.0F, 0.0F, 0.0F};
        mesh.normals.assign(4, {0.0F, 0.0F, 1.0F});
        scene.meshes.push_back(mesh);
        // Full light on what faces the view, in the current colour.
        glEnable(GL_LIGHT0);
        glEnable(GL_COLOR_MATERIAL);
    }
    qel::test::Picture drawn(HostScene& host) {
        surface.clear();
        host.draw(*symbol, qel::test::flatView(kSize, kSize), kept);
        return qel::test::Picture::ofFrame();
    }

    qel::test::GlSurface surface{kSize, kSize};
    qel::ref_ptr<IQelSymbol> symbol{newQelSymbol()};
    qelview::HostView kept;
    qelview::Scene scene;
};

TEST_F(HeightColorsOfAScene, SpanTheHeightsAlongTheAxisThatPointsUp) {
    HostScene host(scene);
    const HeightRange range = host.heights(UpAxis::Y);
    EXPECT_EQ(range.low, -1.0);
    EXPECT_EQ(range.high, 1.0);
    EXPECT_EQ(host.heights(UpAxis::Z).high, 0.0);
    EXPECT_FALSE(HostScene(qelview::Scene()).heights(UpAxis::Z).isValid());
}

TEST_F(HeightColorsOfAScene, ReplaceItsOwnColoursUntilTheseReturn) {
    HostScene host(scene);
    const qel::test::Picture own = drawn(host);
    host.setColouring(Colouring::Height, host.heights(UpAxis::Y));
    const qel::test::Picture byHeight = drawn(host);
    EXPECT_GT(byHeight.at(16, 1)[2], byHeight.at(16, 1)[0]);
    EXPECT_GT(byHeight.at(16, 30)[0], byHeight.at(16, 30)[2]);
    EXPECT_EQ(byHeight.at(5, 20), byHeight.at(25, 20)) << "of one height";
    host.setColouring(Colouring::Plain, {});
    EXPECT_EQ(drawn(host).at(16, 1), drawn(host).at(16, 30));
    EXPECT_NE(drawn(host).at(16, 16), own.at(16, 16));
    host.setColouring(Colouring::Own, {});
    EXPECT_EQ(qel::test::compare(drawn(host), own).pixels, 0U);
}

TEST_F(HeightColorsOfAScene, ColourCloudsToo) {
    qelview::PointCloud cloud;
    cloud.positions = {{-0.5, -0.5, -0.5}, {0.5, 0.5, -0.5}};
    cloud.size = 5.0F;
    qelview::Scene points;
    points.clouds.push_back(cloud);
    HostScene host(points);
    host.setColouring(Colouring::Height, host.heights(UpAxis::Y));
    const qel::test::Picture byHeight = drawn(host);
    EXPECT_GT(byHeight.at(8, 8)[2], byHeight.at(8, 8)[0]);
    EXPECT_GT(byHeight.at(24, 24)[0], byHeight.at(24, 24)[2]);
}

TEST_F(HeightColorsOfAScene, GrowTheirPointsWithinBounds) {
    qelview::PointCloud cloud;
    cloud.positions = {{0, 0, 0}};
    qelview::Scene points;
    points.clouds.push_back(cloud);
    HostScene host(points);
    const std::size_t before = drawn(host).countOtherThan(qel::test::kBlack);
    EXPECT_EQ(host.growPoints(3.0F), 5.0F);
    EXPECT_GT(drawn(host).countOtherThan(qel::test::kBlack), 2U * before);
    EXPECT_EQ(host.growPoints(100.0F), 16.0F);
    EXPECT_EQ(host.growPoints(-100.0F), 1.0F);
    EXPECT_EQ(HostScene(scene).growPoints(1.0F), 0.0F);
}

}  // namespace
