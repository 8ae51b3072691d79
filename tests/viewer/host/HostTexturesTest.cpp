#include "HostTextures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "FlatView.h"
#include "HostScene.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"
#include "viewer/ImageBytes.h"

namespace {

using qel::test::call;
using qel::test::Calls;
using qel::test::CallTrace;
using qel::test::kBlue;
using qel::test::kGreen;
using qel::test::kRed;
using qel::test::kWhite;
using qel::test::Rgba;
using qelview::HostScene;
using qelview::HostView;
using qelview::Texture;
using qelview::TextureImage;
using qelview::Wrapping;

constexpr int kSide = 64;

/// Pixels from the top row down.
std::shared_ptr<const TextureImage> imageOf(int width, const std::vector<Rgba>& pixels, int channels = 3) {
    TextureImage image;
    image.width = width;
    image.height = static_cast<int>(pixels.size()) / width;
    image.channels = channels;
    for (const Rgba& pixel : pixels) {
        image.pixels.insert(image.pixels.end(), pixel.begin(), pixel.begin() + channels);
    }
    return std::make_shared<const TextureImage>(std::move(image));
}

Texture fourPixels() {
    Texture texture{imageOf(2, {kRed, kGreen, kBlue, kWhite})};
    texture.hasSharpPixels = true;
    return texture;
}

class HostTexturesDrawing : public testing::Test {
  protected:
    void SetUp() override {
        glEnable(GL_DEPTH_TEST);
        // Full light on what faces the view, in the current colour.
        glEnable(GL_LIGHT0);
        glEnable(GL_COLOR_MATERIAL);
    }
    /// A square over the whole surface that shows the image from (0, 0) to (last, last), as the images of
    /// files lie on squares.
    static qelview::TriangleMesh square(const Texture& texture, float last = 1.0F) {
        qelview::TriangleMesh mesh;
        mesh.positions = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
        mesh.indices = {0, 1, 2, 0, 2, 3};
        mesh.normals.assign(4, {0.0F, 0.0F, 1.0F});
        mesh.texCoords = {{0, last}, {last, last}, {last, 0}, {0, 0}};
        mesh.texture = std::make_shared<const Texture>(texture);
        mesh.color = {1.0F, 1.0F, 1.0F};
        return mesh;
    }
    void draw(const qelview::TriangleMesh& mesh) {
        qelview::Scene scene;
        scene.meshes.push_back(mesh);
        surface.clear();
        HostScene(scene).draw(*symbol, qel::test::flatView(kSide, kSide), kept);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }
    /// At shares of the surface from its upper left corner.
    Rgba at(double right, double down) const {
        return surface.pixel(static_cast<int>(right * kSide), static_cast<int>((1.0 - down) * kSide));
    }

    qel::test::GlSurface surface{kSide, kSide};
    qel::ref_ptr<IQelSymbol> symbol{newQelSymbol()};
    HostView kept;
};

TEST_F(HostTexturesDrawing, ShowEachPixelAtItsPlace) {
    draw(square(fourPixels()));
    EXPECT_EQ(at(0.25, 0.25), kRed);
    EXPECT_EQ(at(0.75, 0.25), kGreen);
    EXPECT_EQ(at(0.25, 0.75), kBlue);
    EXPECT_EQ(at(0.75, 0.75), kWhite);
    // Sharp ones up to their edges.
    EXPECT_EQ(at(0.48, 0.48), kRed);
    EXPECT_EQ(at(0.52, 0.48), kGreen);
}

TEST_F(HostTexturesDrawing, MultiplyTheColourOfTheMaterial) {
    qelview::TriangleMesh mesh = square(fourPixels());
    mesh.color = {1.0F, 0.0F, 1.0F};
    draw(mesh);
    EXPECT_EQ(at(0.25, 0.25), kRed);
    EXPECT_EQ(at(0.75, 0.25), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(at(0.75, 0.75), (Rgba{255, 0, 255, 255}));
}

TEST_F(HostTexturesDrawing, AreLitAndDrawnWithoutIndicesToo) {
    qelview::TriangleMesh mesh = square(fourPixels());
    mesh.positions = {{-1, -1, 0}, {3, -1, 0}, {-1, 3, 0}};
    mesh.indices.clear();
    mesh.texCoords = {{0, 1}, {2, 1}, {0, -1}};
    // Half turned away from the light.
    const auto half = static_cast<float>(std::sqrt(0.5));
    mesh.normals.assign(3, {half, 0.0F, half});
    draw(mesh);
    const Rgba red = at(0.25, 0.25);
    EXPECT_GT(red[0], 200);
    EXPECT_LT(red[0], 250);
    EXPECT_EQ(red[1], 0);
    EXPECT_EQ(at(0.75, 0.25)[0], 0);
}

TEST_F(HostTexturesDrawing, RepeatOrKeepTheirEdgeOutside) {
    draw(square(fourPixels(), 2.0F));
    EXPECT_EQ(at(0.625, 0.125), kRed);
    EXPECT_EQ(at(0.875, 0.875), kWhite);
    Texture clamped = fourPixels();
    clamped.acrossU = Wrapping::Clamp;
    draw(square(clamped, 2.0F));
    EXPECT_EQ(at(0.625, 0.125), kGreen);
    EXPECT_EQ(at(0.98, 0.625), kGreen);
    clamped.acrossV = Wrapping::Clamp;
    draw(square(clamped, 2.0F));
    EXPECT_EQ(at(0.98, 0.98), kWhite);
    EXPECT_EQ(at(0.125, 0.98), kBlue);
}

TEST_F(HostTexturesDrawing, KeepTheirEdgeUnderOpenGl11Too) {
    Texture clamped = fourPixels();
    clamped.hasSharpPixels = false;
    clamped.acrossU = Wrapping::Clamp;
    clamped.acrossV = Wrapping::Clamp;
    CallTrace trace;
    trace.answerPointer("glGetString", "1.1.0 by a test");
    draw(square(clamped, 2.0F));
    trace.passOn();
    const Calls parameters = trace.calls("glTexParameteri");
    EXPECT_NE(std::find(parameters.begin(), parameters.end(),
                        call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP)),
              parameters.end());
    EXPECT_EQ(at(0.98, 0.98), kWhite);
    EXPECT_EQ(at(0.98, 0.02), kGreen);
    EXPECT_EQ(at(0.02, 0.02), kRed);
}

TEST_F(HostTexturesDrawing, RunIntoEachOtherNearbyAndAfar) {
    Texture smooth{imageOf(2, {kRed, kGreen, kRed, kGreen})};
    smooth.acrossU = Wrapping::Clamp;
    draw(square(smooth));
    const Rgba between = at(0.5, 0.5);
    EXPECT_NEAR(between[0], 128, 8);
    EXPECT_NEAR(between[1], 128, 8);
    // Thousands of pixels for one of the surface are their mean.
    Texture sharp{imageOf(2, {kRed, kGreen, kGreen, kRed})};
    sharp.hasSharpPixels = true;
    draw(square(sharp, 4096.0F));
    EXPECT_NEAR(at(0.3, 0.7)[0], 128, 8);
    EXPECT_NEAR(at(0.3, 0.7)[1], 128, 8);
}

TEST_F(HostTexturesDrawing, HaveHolesWhereAlphaIsBelowTheCutoff) {
    Texture texture{imageOf(2, {{255, 0, 0, 100}, {0, 255, 0, 200}}, 4)};
    texture.hasSharpPixels = true;
    const Rgba back{0, 0, 0, 255};
    texture.alphaCutoff = 0.5F;
    draw(square(texture));
    EXPECT_EQ(at(0.25, 0.5), back);
    EXPECT_EQ(at(0.75, 0.5)[1], 255);
    // A hole hides nothing behind it.
    EXPECT_EQ(surface.depth(kSide / 4, kSide / 2), 1.0F);
    texture.alphaCutoff = 0.3F;
    draw(square(texture));
    EXPECT_EQ(at(0.25, 0.5)[0], 255);
    texture.alphaCutoff = 0.0F;
    draw(square(texture));
    EXPECT_EQ(at(0.25, 0.5)[0], 255);
    EXPECT_EQ(glIsEnabled(GL_ALPHA_TEST), GL_FALSE);
}

TEST_F(HostTexturesDrawing, MayHaveAnySize) {
    for (const int width : {1, 3, 37}) {
        std::vector<Rgba> pixels(static_cast<std::size_t>(width), kBlue);
        pixels.insert(pixels.end(), static_cast<std::size_t>(width) * 2, kGreen);
        Texture texture{imageOf(width, pixels)};
        texture.acrossV = Wrapping::Clamp;
        draw(square(texture));
        EXPECT_EQ(at(0.5, 0.02), kBlue) << width;
        EXPECT_EQ(at(0.5, 0.98), kGreen) << width;
    }
}

TEST_F(HostTexturesDrawing, MayBeLargerThanTheDriverTakes) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    const Texture texture{
        imageOf(largest * 2, std::vector<Rgba>(static_cast<std::size_t>(largest) * 2, kBlue))};
    draw(square(texture));
    EXPECT_EQ(at(0.5, 0.5), kBlue);
    glBindTexture(GL_TEXTURE_2D, kept.textures.nameOf(texture));
    GLint width = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    EXPECT_GT(width, 0);
    EXPECT_LE(width, largest);
}

TEST_F(HostTexturesDrawing, AreMadeOnceForAllMeshesWithTheirImage) {
    const Texture texture = fourPixels();
    CallTrace trace;
    draw(square(texture));
    draw(square(texture));
    Texture other = texture;
    other.alphaCutoff = 0.25F;
    draw(square(other));
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 1U);
    other.acrossU = Wrapping::Clamp;
    draw(square(other));
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 2U);
}

TEST_F(HostTexturesDrawing, AreReleasedAndMadeAgain) {
    const Texture texture = fourPixels();
    const GLuint name = kept.textures.nameOf(texture);
    EXPECT_EQ(glIsTexture(name), GL_TRUE);
    kept.textures.release();
    EXPECT_EQ(glIsTexture(name), GL_FALSE);
    draw(square(texture));
    EXPECT_EQ(at(0.25, 0.25), kRed);
}

TEST_F(HostTexturesDrawing, LeaveThePlainColourIfTheyCannotBeMade) {
    CallTrace trace;
    trace.answer("gluBuild2DMipmaps", GLU_OUT_OF_MEMORY);
    qelview::TriangleMesh mesh = square(fourPixels());
    mesh.color = {0.0F, 1.0F, 1.0F};
    draw(mesh);
    draw(mesh);
    EXPECT_EQ(at(0.25, 0.25), (Rgba{0, 255, 255, 255}));
    EXPECT_EQ(trace.count("gluBuild2DMipmaps"), 1U);
    EXPECT_EQ(trace.count("glDeleteTextures"), 1U);
}

TEST_F(HostTexturesDrawing, LeaveNoTextureBoundAndThePixelStoreAsItWas) {
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
    draw(square(fourPixels()));
    EXPECT_EQ(at(0.75, 0.25), kGreen);
    GLint number = 0;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &number);
    EXPECT_EQ(number, 8);
    glGetIntegerv(GL_UNPACK_ROW_LENGTH, &number);
    EXPECT_EQ(number, 7);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &number);
    EXPECT_EQ(number, 0);
}

TEST_F(HostTexturesDrawing, CostMeshesWithoutThemNothing) {
    qelview::TriangleMesh mesh = square(fourPixels());
    mesh.texture = nullptr;
    mesh.texCoords.clear();
    CallTrace trace;
    draw(mesh);
    for (const char* const function :
         {"glGenTextures", "glBindTexture", "glAlphaFunc", "glTexCoordPointer"}) {
        EXPECT_EQ(trace.count(function), 0U) << function;
    }
}

}  // namespace
