#include <array>
#include <cmath>

#include "ArraysOfAHost.h"
#include "kit/Picture.h"

namespace qel::test {

namespace {

/// Colours of whole steps come out of every renderer as they are; one step for its rounding.
constexpr int kRounding = 1;

constexpr QelColor3f kRedStyle{1.0F, 0.0F, 0.0F};
constexpr QelColor3f kBlueStyle{0.0F, 0.0F, 1.0F};

/// Model units are pixels here, with z towards the viewer.
class SymbolPictures : public SymbolTest {
  protected:
    SymbolPictures() {
        glDisable(GL_LIGHTING);
        glEnable(GL_DEPTH_TEST);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0.0, kSurfaceSize, 0.0, kSurfaceSize, -50.0, 50.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        surface.clear(kBlack);
    }

    /// Where anything is drawn.
    static PixelArea drawnArea() { return Picture::ofFrame().boundsOtherThan(kBlack).value_or(PixelArea{}); }
    static PixelArea areaOf(const Rgba& color) {
        return Picture::ofFrame().boundsOf(color, kRounding).value_or(PixelArea{});
    }
};

void expectArea(const PixelArea& actual, const PixelArea& expected) {
    EXPECT_EQ(actual.x, expected.x);
    EXPECT_EQ(actual.y, expected.y);
    EXPECT_EQ(actual.width, expected.width);
    EXPECT_EQ(actual.height, expected.height);
}

ArrayVertex vertexAt(float x, float y, float z) {
    return {x, y, z, {9.0F, 9.0F, 9.0F, 9.0F}};
}

/// Two triangles that fill a rectangle.
std::vector<ArrayVertex> rectangleAt(float x, float y, float size, float z) {
    return {vertexAt(x, y, z),
            vertexAt(x + size, y, z),
            vertexAt(x + size, y + size, z),
            vertexAt(x + size, y + size, z),
            vertexAt(x, y + size, z),
            vertexAt(x, y, z)};
}

std::vector<ArrayColor4f> colorsOf(std::size_t count, float r, float g, float b) {
    return std::vector<ArrayColor4f>(count, ArrayColor4f{r, g, b, 0.5F});
}

TEST_F(SymbolPictures, AFilledRectangleCoversItsPixelsInItsFillColour) {
    // No outline to see: its colour is the background's.
    symbol->drawFilledRect2d({16.0, 20.0, 48.0, 40.0}, 1.0F, {0.0F, 0.0F, 0.0F}, kBlueStyle, false, false);

    const Picture frame = Picture::ofFrame();
    EXPECT_EQ(frame.countOf(kBlue, kRounding), 32U * 20U);
    expectArea(areaOf(kBlue), {16, 20, 32, 20});
}

TEST_F(SymbolPictures, AFilledRectangleIsFramedByItsOutline) {
    symbol->drawFilledRect2d({16.0, 20.0, 48.0, 40.0}, 3.0F, kRedStyle, kBlueStyle, false, false);

    EXPECT_LE(difference(surface.pixel(32, 30), kBlue), kRounding);
    EXPECT_LE(difference(surface.pixel(15, 30), kRed), kRounding);
    EXPECT_LE(difference(surface.pixel(32, 18), kRed), kRounding);
    // The fill comes later and covers the inner half of the outline.
    EXPECT_LE(difference(surface.pixel(16, 30), kBlue), kRounding);
    EXPECT_EQ(surface.pixel(5, 5), kBlack);
}

TEST_F(SymbolPictures, PointsCoverThePixelsThatHoldThem) {
    const XPnt3d doubles[] = {{10.5, 20.5, 0.0}};
    const float floats[] = {30.5F, 40.5F, 0.0F};
    const float* const pointers[] = {floats};
    symbol->drawPoints(doubles, 1, 1.0, kRedStyle, false, false);
    symbol->drawPointsF(pointers, 1, 1.0, kBlueStyle, false, false);
    symbol->drawPoint(50.5, 5.5, 0.0, 1.0F, {1.0F, 1.0F, 1.0F}, false, false);
    symbol->drawPointF(5.5F, 50.5F, 0.0F, 1.0F, {0.0F, 1.0F, 0.0F}, false, false);

    expectArea(areaOf(kRed), {10, 20, 1, 1});
    expectArea(areaOf(kBlue), {30, 40, 1, 1});
    expectArea(areaOf(kWhite), {50, 5, 1, 1});
    expectArea(areaOf(kGreen), {5, 50, 1, 1});
}

TEST_F(SymbolPictures, APointGeometryIsAGreenSquareOfTwoPixels) {
    const ref_ptr<HostPoint> point(new HostPoint(20.0, 30.0, 0.0));
    symbol->setColor({255, 0, 0, 255});
    symbol->drawGeometry(point.get());
    expectArea(areaOf(kGreen), {19, 29, 2, 2});
    EXPECT_EQ(Picture::ofFrame().countOtherThan(kBlack), 4U);
}

TEST_F(SymbolPictures, ACloudHasTheColourOfEachPointWhere127IsFullIntensity) {
    const ref_ptr<VectorArray<ArrayVertex>> vertices(
        new VectorArray<ArrayVertex>({vertexAt(10.5F, 20.5F, 0.0F), vertexAt(30.5F, 40.5F, 0.0F)}));
    const ref_ptr<VectorArray<ArrayColor3b>> bytes(new VectorArray<ArrayColor3b>({{127, 0, 0}, {0, 0, 127}}));
    symbol->drawPointCloud(vertices, {}, bytes, 1.0F, {1.0F, 1.0F, 1.0F});
    expectArea(areaOf(kRed), {10, 20, 1, 1});
    expectArea(areaOf(kBlue), {30, 40, 1, 1});

    surface.clear(kBlack);
    const ref_ptr<VectorArray<ArrayColor4f>> floats(
        new VectorArray<ArrayColor4f>({{0.0F, 0.0F, 1.0F, 0.0F}, {1.0F, 0.0F, 0.0F, 0.0F}}));
    symbol->drawPointCloudF(vertices, {}, floats, 1.0F, {1.0F, 1.0F, 1.0F});
    expectArea(areaOf(kBlue), {10, 20, 1, 1});
    expectArea(areaOf(kRed), {30, 40, 1, 1});
}

TEST_F(SymbolPictures, ACloudDrawsOnlyWhatItsIndicesName) {
    const ref_ptr<VectorArray<ArrayVertex>> vertices(new VectorArray<ArrayVertex>(
        {vertexAt(10.5F, 20.5F, 0.0F), vertexAt(30.5F, 40.5F, 0.0F), vertexAt(50.5F, 5.5F, 0.0F)}));
    const ref_ptr<VectorArray<ArrayIndex>> indices(new VectorArray<ArrayIndex>({1}));
    symbol->drawPointCloud(vertices, indices, {}, 1.0F, kRedStyle);
    expectArea(drawnArea(), {30, 40, 1, 1});
}

TEST_F(SymbolPictures, PlainMemoryOfDoublesIsDrawnWithItsStride) {
    const XPnt3d points[] = {{10.5, 20.5, 0.0}, {30.5, 40.5, 0.0}};
    symbol->drawVertexArrayPoints(GL_DOUBLE, sizeof(XPnt3d), points, 2, {}, {}, 1.0F, kRedStyle);
    EXPECT_EQ(Picture::ofFrame().countOf(kRed, kRounding), 2U);
    expectArea(areaOf(kRed), {10, 20, 21, 21});
}

TEST_F(SymbolPictures, AMeshIsDrawnInItsColours) {
    std::vector<ArrayVertex> corners = rectangleAt(8.0F, 8.0F, 16.0F, 0.0F);
    const std::vector<ArrayVertex> second = rectangleAt(32.0F, 40.0F, 16.0F, 0.0F);
    corners.insert(corners.end(), second.begin(), second.end());
    std::vector<ArrayColor4f> paint = colorsOf(6, 1.0F, 0.0F, 0.0F);
    const std::vector<ArrayColor4f> secondPaint = colorsOf(6, 0.0F, 0.0F, 1.0F);
    paint.insert(paint.end(), secondPaint.begin(), secondPaint.end());
    const ref_ptr<VectorArray<ArrayVertex>> vertices(new VectorArray<ArrayVertex>(corners));
    const ref_ptr<VectorArray<ArrayColor4f>> colors(new VectorArray<ArrayColor4f>(paint));

    symbol->drawMesh(vertices, {}, {}, colors, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {.lighting = false});

    const Picture frame = Picture::ofFrame();
    EXPECT_EQ(frame.countOf(kRed, kRounding), 16U * 16U);
    EXPECT_EQ(frame.countOf(kBlue, kRounding), 16U * 16U);
    expectArea(areaOf(kRed), {8, 8, 16, 16});
    expectArea(areaOf(kBlue), {32, 40, 16, 16});
}

TEST_F(SymbolPictures, AMeshBehindAnotherIsHiddenUnlessItsStyleSwitchesTheDepthTestOff) {
    const ref_ptr<VectorArray<ArrayVertex>> nearer(
        new VectorArray<ArrayVertex>(rectangleAt(8.0F, 8.0F, 16.0F, 10.0F)));
    const ref_ptr<VectorArray<ArrayVertex>> farther(
        new VectorArray<ArrayVertex>(rectangleAt(16.0F, 8.0F, 16.0F, -10.0F)));
    const ref_ptr<VectorArray<ArrayColor4f>> red(
        new VectorArray<ArrayColor4f>(colorsOf(6, 1.0F, 0.0F, 0.0F)));
    const ref_ptr<VectorArray<ArrayColor4f>> blue(
        new VectorArray<ArrayColor4f>(colorsOf(6, 0.0F, 0.0F, 1.0F)));
    const ref_ptr<VectorArray<ArrayIndex>> indices = indicesOf(6, 6);

    symbol->drawIndexedMesh(nearer, indices, {}, red, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                            {.lighting = false});
    symbol->drawIndexedMesh(farther, indices, {}, blue, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                            {.lighting = false});
    EXPECT_LE(difference(surface.pixel(20, 16), kRed), kRounding);
    EXPECT_LE(difference(surface.pixel(28, 16), kBlue), kRounding);

    symbol->drawIndexedMesh(farther, indices, {}, blue, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                            {.lighting = false, .depthTest = false});
    EXPECT_LE(difference(surface.pixel(20, 16), kBlue), kRounding);
}

TEST_F(SymbolPictures, AMeshShowsItsTextureWhereItsCoordinatesSay) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    const std::array<std::uint8_t, 16> texels{255, 0, 0,   255, 0,   255, 0,   255,
                                              0,   0, 255, 255, 255, 255, 255, 255};
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 2, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    glColor3f(1.0F, 1.0F, 1.0F);
    const ref_ptr<VectorArray<ArrayVertex>> vertices(
        new VectorArray<ArrayVertex>(rectangleAt(16.0F, 16.0F, 32.0F, 0.0F)));
    const ref_ptr<VectorArray<ArrayTexCoord2f>> texCoords(new VectorArray<ArrayTexCoord2f>(
        {{0.0F, 0.0F}, {1.0F, 0.0F}, {1.0F, 1.0F}, {1.0F, 1.0F}, {0.0F, 1.0F}, {0.0F, 0.0F}}));

    symbol->drawMesh(vertices, {}, {}, {}, texCoords, texture, GL_SMOOTH, GL_FILL, GL_FILL,
                     {.lighting = false});

    EXPECT_LE(difference(surface.pixel(24, 24), kRed), kRounding);
    EXPECT_LE(difference(surface.pixel(40, 24), kGreen), kRounding);
    EXPECT_LE(difference(surface.pixel(24, 40), kBlue), kRounding);
    EXPECT_LE(difference(surface.pixel(40, 40), kWhite), kRounding);
    glDeleteTextures(1, &texture);
}

TEST_F(SymbolPictures, AMeshIsShadedByItsNormals) {
    // One white light from the viewer: a normal towards it is lit, one across it is not.
    glEnable(GL_LIGHT0);
    const GLfloat towardsViewer[] = {0.0F, 0.0F, 1.0F, 0.0F};
    const GLfloat white[] = {1.0F, 1.0F, 1.0F, 1.0F};
    const GLfloat black[] = {0.0F, 0.0F, 0.0F, 1.0F};
    glLightfv(GL_LIGHT0, GL_POSITION, towardsViewer);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white);
    const ref_ptr<VectorArray<ArrayVertex>> vertices(
        new VectorArray<ArrayVertex>(rectangleAt(16.0F, 16.0F, 32.0F, 0.0F)));
    const auto indices = indicesOf(6, 6);
    const auto byteNormals = arrayOf<ArrayNormal3b>(6);
    const auto floatNormals = arrayOf<ArrayNormal4f>(6);
    const auto litPixel = [&] { return int{surface.pixel(32, 32)[0]}; };

    std::fill(byteNormals->elements.begin(), byteNormals->elements.end(), ArrayNormal3b{0, 0, 127});
    symbol->drawMesh(vertices, {}, byteNormals, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {});
    EXPECT_GE(litPixel(), 250);
    surface.clear(kBlack);
    std::fill(byteNormals->elements.begin(), byteNormals->elements.end(), ArrayNormal3b{127, 0, 0});
    symbol->drawMesh(vertices, {}, byteNormals, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {});
    EXPECT_LE(litPixel(), 5);

    surface.clear(kBlack);
    std::fill(floatNormals->elements.begin(), floatNormals->elements.end(),
              ArrayNormal4f{0.0F, 0.0F, 1.0F, 9.0F});
    symbol->drawIndexedMesh(vertices, indices, floatNormals, {}, {}, 0, GL_SMOOTH, GL_FILL, GL_FILL, {});
    EXPECT_GE(litPixel(), 250);
}

TEST_F(SymbolPictures, ABallStaysWithinItsCircleAndReachesItsEdge) {
    const XPnt3d center(32.0, 30.0, 5.0);
    constexpr double kRadius = 20.0;
    const ref_ptr<HostBall> ball(new HostBall(center, kRadius));
    glColor3f(1.0F, 1.0F, 1.0F);
    glLineWidth(1.0F);

    symbol->drawGeometry(ball.get());

    const Picture frame = Picture::ofFrame();
    int drawn = 0;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            if (frame.at(x, y) != kBlack) {
                ++drawn;
                // A pixel of a thin line lies within one pixel of it.
                EXPECT_LE(std::hypot(x + 0.5 - center.x, y + 0.5 - center.y), kRadius + 1.0)
                    << x << ", " << y;
            }
        }
    }
    EXPECT_GT(drawn, 200);
    const PixelArea area = drawnArea();
    EXPECT_NEAR(area.x, 12, 1);
    EXPECT_NEAR(area.y, 10, 1);
    EXPECT_NEAR(area.width, 40, 1);
    EXPECT_NEAR(area.height, 40, 1);
}

TEST_F(SymbolPictures, OnlyARingIsClosedAndOnlyByDrawGeometry) {
    const std::vector<XPnt3d> corners{
        {10.5, 10.5, 0.0}, {50.5, 10.5, 0.0}, {50.5, 50.5, 0.0}, {10.5, 50.5, 0.0}};
    const ref_ptr<HostRing> ring(new HostRing(corners));
    const ref_ptr<HostCurve> curve(new HostCurve(corners));
    const auto isClosingEdgeDrawn = [&] { return surface.pixel(10, 30) != kBlack; };

    symbol->drawGeometry(curve.get());
    EXPECT_FALSE(isClosingEdgeDrawn());
    EXPECT_NE(surface.pixel(50, 30), kBlack);
    symbol->drawGeometryWith(ring.get(), 1.0, {255, 255, 255});
    EXPECT_FALSE(isClosingEdgeDrawn());
    symbol->drawGeometry(ring.get());
    EXPECT_TRUE(isClosingEdgeDrawn());
}

TEST_F(SymbolPictures, AStippledLineHasItsPatternAStippledPolylineOnlyIfTheCallerSwitchedItOn) {
    const ref_ptr<IQelArray<XPnt3d>> points(new VectorArray<XPnt3d>({{0.0, 20.5, 0.0}, {64.0, 20.5, 0.0}}));
    const auto litInRow = [&](int y) {
        return Picture::ofFrame().countOf(kRed, kRounding, {0, y, kSurfaceSize, 1});
    };

    // Half of the pattern's bits are set: half of the pixels are drawn, one more or less at the ends.
    symbol->drawStippledLine({0.0, 10.5, 0.0}, {64.0, 10.5, 0.0}, 1.0, kRedStyle, false, false, 0x00FF);
    EXPECT_NEAR(static_cast<double>(litInRow(10)), 32.0, 1.0);
    symbol->drawStippledPolyline(points, 1.0, kRedStyle, false, false, 0x00FF);
    EXPECT_GE(litInRow(20), 63U);
}

}  // namespace

}  // namespace qel::test
