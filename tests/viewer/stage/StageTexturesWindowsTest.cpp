#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "QelGl.h"
#include "ReadImage.h"
#include "Stage.h"
#include "SystemWindow.h"
#include "kit/CallTrace.h"
#include "viewer/BitmapReader.h"
#include "viewer/ImageBytes.h"

namespace {

using qel::test::CallTrace;
using qel::test::kBlue;
using qel::test::kGreen;
using qel::test::kRed;
using qel::test::kWhite;
using qel::test::Rgba;
using qelview::PixelImage;
using qelview::Scene;
using qelview::Stage;

/// A square that shows four pixels, as files lie on squares: the first one at its upper left.
Scene squareOf(const std::vector<Rgba>& pixels) {
    Scene scene;
    qelview::TriangleMesh& mesh = scene.meshes.emplace_back();
    mesh.positions = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
    mesh.indices = {0, 1, 2, 0, 2, 3};
    mesh.normals.assign(4, {0.0F, 0.0F, 1.0F});
    mesh.texCoords = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
    mesh.color = {1.0F, 1.0F, 1.0F};
    qelview::Texture texture{
        std::make_shared<const qelview::TextureImage>(qelview::readImage(qel::test::tgaOf(2, pixels)))};
    texture.hasSharpPixels = true;
    mesh.texture = std::make_shared<const qelview::Texture>(texture);
    return scene;
}

Scene fourColours() {
    return squareOf({kRed, kGreen, kBlue, kWhite});
}

class StageTextures : public testing::Test {
  protected:
    void SetUp() override { open(fourColours()); }
    void TearDown() override { stage.reset(); }

    void open(const Scene& scene) {
        stage.reset();
        window = qelview::createHiddenWindow({320, 200});
        ASSERT_TRUE(window);
        stage = Stage::open(window.get(), scene);
        ASSERT_NE(stage, nullptr);
        stage->resize({320, 200});
        stage->setView(0);
    }
    /// Where the view from the top shows a quarter of the square; which channels are bright there, as three
    /// letters: light makes a surface that faces the viewer nearly white.
    std::string shown(const PixelImage& image, double x, double y) {
        const qel::XPnt3d place = stage->camera().projectPnt({x, y, 0.0});
        const auto pixel =
            static_cast<std::size_t>(static_cast<int>(place.y) * image.width + static_cast<int>(place.x));
        std::string bright;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const std::uint8_t value = image.rgb.at(pixel * 3 + channel);
            bright += value > 170 ? "rgb"[channel] : value < 20 ? '-' : '?';
        }
        return bright;
    }
    void expectFourColours(const PixelImage& image) {
        EXPECT_EQ(shown(image, -0.5, 0.5), "r--");
        EXPECT_EQ(shown(image, 0.5, 0.5), "-g-");
        EXPECT_EQ(shown(image, -0.5, -0.5), "--b");
        EXPECT_EQ(shown(image, 0.5, -0.5), "rgb");
        // Up to the edges of the pixels.
        EXPECT_EQ(shown(image, -0.05, 0.05), "r--");
        EXPECT_EQ(shown(image, 0.05, 0.05), "-g-");
    }
    PixelImage captured() { return stage->capturedPixels().value_or(PixelImage()); }

    qelview::OwnedWindow window;
    std::unique_ptr<Stage> stage;
};

TEST_F(StageTextures, ShowEachPixelAtItsPlaceInTheWindowAndInCaptures) {
    expectFourColours(stage->picture());
    expectFourColours(captured());
    // The window keeps its own.
    expectFourColours(stage->picture());
    expectFourColours(captured());
}

TEST_F(StageTextures, AreMadeOnceForTheWindowAndOnceForEachCapture) {
    CallTrace trace;
    stage->show();
    stage->show();
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 1U);
    static_cast<void>(captured());
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 2U);
    EXPECT_EQ(trace.count("glDeleteTextures"), 1U);
    stage->show();
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 2U);
}

TEST_F(StageTextures, OfAnotherSceneReplaceThem) {
    stage->show();
    CallTrace trace;
    stage->setScene(squareOf({kBlue, kRed, kRed, kRed}));
    EXPECT_EQ(trace.count("glDeleteTextures"), 1U);
    const PixelImage image = stage->picture();
    EXPECT_EQ(shown(image, -0.5, 0.5), "--b");
    EXPECT_EQ(shown(image, 0.5, 0.5), "r--");
}

TEST_F(StageTextures, MoveToAnotherWindow) {
    stage->show();
    const qelview::OwnedWindow other = qelview::createHiddenWindow({320, 200});
    std::unique_ptr<Stage> moved = stage->viewOn(other.get(), false);
    ASSERT_NE(moved, nullptr);
    stage = std::move(moved);
    expectFourColours(stage->picture());
    expectFourColours(captured());
    stage.reset();
}

TEST_F(StageTextures, AreCutOutWhereTheyAreTransparent) {
    open(squareOf({kRed, {0, 255, 0, 0}, kBlue, kWhite}));
    for (const PixelImage& image : {stage->picture(), captured()}) {
        EXPECT_EQ(shown(image, -0.5, 0.5), "r--");
        EXPECT_EQ(shown(image, 0.5, 0.5), "???") << "the background";
    }
    stage->show();
    EXPECT_FALSE(stage
                     ->pointAt({static_cast<int>(stage->camera().project(0.5, 0.5, 0.0).x),
                                static_cast<int>(stage->camera().project(0.5, 0.5, 0.0).y)})
                     .isValid());
}

TEST_F(StageTextures, ColourNothingElse) {
    Scene scene = fourColours();
    scene.segments.push_back({{-1.5, 0.0, 0.0}, {-1.2, 0.0, 0.0}, {{255, 255, 255}, 5.0F}});
    scene.meshes.push_back(scene.meshes.front());
    qelview::TriangleMesh& plain = scene.meshes.back();
    plain.texture = nullptr;
    plain.texCoords.clear();
    for (qel::XPnt3d& position : plain.positions) {
        position.x += 2.5;
    }
    open(scene);
    const PixelImage image = stage->picture();
    EXPECT_EQ(shown(image, -1.3, 0.0), "rgb");
    for (const double x : {2.0, 3.0}) {
        for (const double y : {-0.5, 0.5}) {
            EXPECT_EQ(shown(image, x, y), "rgb") << x << " " << y;
        }
    }
}

}  // namespace
