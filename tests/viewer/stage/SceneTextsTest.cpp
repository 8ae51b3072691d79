#include <gtest/gtest.h>

#include "PictureFile.h"
#include "SceneSummary.h"
#include "kit/Picture.h"
#include "viewer/ViewerData.h"

namespace {

TEST(SceneTextsSummary, CountsWithGroupedDigits) {
    qelview::Scene scene;
    EXPECT_EQ(qelview::summaryOf(scene), "");
    qelview::PointCloud cloud;
    cloud.positions.resize(1234567);
    scene.clouds.push_back(cloud);
    EXPECT_EQ(qelview::summaryOf(scene), "1,234,567 points");
    scene.curves.push_back({qelview::Points(100), {}});
    EXPECT_EQ(qelview::summaryOf(scene), "1,234,567 points, 100 line vertices");
}

TEST(SceneTextsSummary, TellsTheOriginOfAMovedScene) {
    qelview::Scene scene;
    scene.points.push_back({{0, 0, 0}});
    scene.origin = qel::XPnt3d(635000.4, -1234.6, 0.2);
    EXPECT_EQ(qelview::summaryOf(scene), "1 points; around 635,000 -1,235 0");
    scene.origin = qel::XPnt3d(-0.5, -0.49, 0.5);
    EXPECT_EQ(qelview::summaryOf(scene), "1 points; around -1 0 1");
    scene.origin = qel::XPnt3d(0.49, -0.49, 0.0);
    EXPECT_EQ(qelview::summaryOf(scene), "1 points");
}

TEST(SceneTextsSummary, CountsWarnings) {
    qelview::Scene scene;
    scene.points.push_back({{0, 0, 0}});
    scene.warnings.emplace_back("odd");
    EXPECT_EQ(qelview::summaryOf(scene), "1 points; 1 warning (W)");
    scene.warnings.emplace_back("strange");
    EXPECT_EQ(qelview::summaryOf(scene), "1 points; 2 warnings (W)");
}

TEST(SceneTextsWritePng, WritesTheLowestRowLast) {
    const qelview::PixelImage image{2, 2, {255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255}};
    const qel::test::TemporaryFile file("rows.png", "");
    ASSERT_TRUE(qelview::writePng(file.path(), image));
    const auto picture = qel::test::Picture::load(file.path());
    EXPECT_EQ(picture.at(0, 0), (qel::test::Rgba{255, 0, 0, 255}));
    EXPECT_EQ(picture.at(1, 0), (qel::test::Rgba{0, 255, 0, 255}));
    EXPECT_EQ(picture.at(0, 1), (qel::test::Rgba{0, 0, 255, 255}));
    EXPECT_EQ(picture.at(1, 1), (qel::test::Rgba{255, 255, 255, 255}));
}

TEST(SceneTextsWritePng, RefusesAnImageWithoutItsPixels) {
    EXPECT_FALSE(qelview::writePng("never.png", {2, 2, {1, 2, 3}}));
    EXPECT_FALSE(qelview::writePng("never.png", {0, 0, {}}));
    EXPECT_FALSE(qelview::writePng("absent-folder/never.png", {1, 1, {1, 2, 3}}));
    EXPECT_FALSE(std::filesystem::exists("never.png"));
}

}  // namespace
