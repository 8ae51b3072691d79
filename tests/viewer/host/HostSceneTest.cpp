#include "HostScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "FlatView.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "SampleScene.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"

namespace {

using qel::test::call;
using qel::test::Calls;
using qel::test::CallTrace;
using qel::test::flatView;
using qel::test::GlSurface;
using qelview::HostScene;
using qelview::Scene;

constexpr int kSize = 64;

class HostSceneDrawing : public testing::Test {
  protected:
    void draw(const Scene& scene) {
        glEnable(GL_DEPTH_TEST);
        HostScene(scene).draw(*symbol, flatView(kSize, kSize), kept);
    }
    /// The calls of a drawing that carry vertices or colours of a scene.
    Calls drawnOf(const Scene& scene) {
        CallTrace trace;
        draw(scene);
        return trace.calls("glDraw", "gluSphere", "glVertex3d", "glColor3ub", "glColor3f", "glLineWidth");
    }

    GlSurface surface{kSize, kSize};
    qel::ref_ptr<IQelSymbol> symbol{newQelSymbol()};
    qelview::HostView kept;
};

constexpr qelview::LineStyle kRedWide{{255, 0, 0}, 3.0F};

TEST_F(HostSceneDrawing, DrawsEachPartOfAPolylineAsAStripInItsStyle) {
    Scene scene;
    scene.polylines.push_back({{{{0, 0, 0}, {1, 0, 0}}, {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}}}, kRedWide});
    EXPECT_EQ(drawnOf(scene),
              (Calls{call("glColor3f", 1.0F, 0.0F, 0.0F), call("glLineWidth", 3.0F),
                     call("glDrawArrays", GL_LINE_STRIP, 0, 2), call("glColor3f", 1.0F, 0.0F, 0.0F),
                     call("glLineWidth", 3.0F), call("glDrawArrays", GL_LINE_STRIP, 0, 3)}));
}

TEST_F(HostSceneDrawing, DrawsEachRingOfAPolygonAndClosesRingsAlone) {
    Scene scene;
    scene.polygons.push_back({{{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}, {{0, 1, 0}, {1, 1, 0}}}, kRedWide});
    scene.rings.push_back({{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}, kRedWide});
    scene.curves.push_back({{{0, 0, 0}, {1, 0, 0}}, kRedWide});
    CallTrace trace;
    draw(scene);
    EXPECT_EQ(trace.calls("glDrawArrays"),
              (Calls{call("glDrawArrays", GL_LINE_STRIP, 0, 3), call("glDrawArrays", GL_LINE_STRIP, 0, 2),
                     call("glDrawArrays", GL_LINE_LOOP, 0, 4), call("glDrawArrays", GL_LINE_STRIP, 0, 2)}));
}

TEST_F(HostSceneDrawing, GivesSegmentsAndBallsTheColourAndWidthThatTheyDoNotSet) {
    Scene scene;
    scene.segments.push_back({{-0.5, 0, 0}, {0.5, 0, 0}, kRedWide});
    draw(scene);
    EXPECT_EQ(surface.pixel(kSize / 2, kSize / 2), (qel::test::Rgba{255, 0, 0, 255}));
    EXPECT_EQ(surface.pixel(kSize / 2, kSize / 2 + 4), (qel::test::Rgba{0, 0, 0, 255}));
    surface.clear();
    Scene ball;
    ball.balls.push_back({{0, 0, 0}, 0.8, kRedWide});
    draw(ball);
    const auto picture = qel::test::Picture::ofFrame();
    EXPECT_GT(picture.countOf({255, 0, 0, 255}, 0), 200U);
}

TEST_F(HostSceneDrawing, DrawsPointsThatSymbolsMakeGreen) {
    Scene scene;
    scene.points.push_back({{0.01, 0.01, 0}});
    draw(scene);
    EXPECT_EQ(surface.pixel(kSize / 2, kSize / 2), (qel::test::Rgba{0, 255, 0, 255}));
}

/// A triangle over the lower left of the surface.
qelview::TriangleMesh triangle(double z) {
    qelview::TriangleMesh mesh;
    mesh.positions = {{-1, -1, z}, {1, -1, z}, {-1, 1, z}};
    mesh.normals.assign(3, {0.0F, 0.0F, 1.0F});
    mesh.color = {0.0F, 0.0F, 1.0F};
    return mesh;
}

TEST_F(HostSceneDrawing, DrawsMeshesByTheirIndicesOrByTheirVertices) {
    Scene scene;
    scene.meshes = {triangle(0.0), triangle(0.0)};
    scene.meshes[0].indices = {0, 1, 2};
    scene.meshes[1].faceted = true;
    CallTrace trace;
    draw(scene);
    EXPECT_EQ(trace.count("glDrawElements"), 1U);
    EXPECT_EQ(trace.calls("glDrawArrays"), (Calls{call("glDrawArrays", GL_TRIANGLES, 0, 3)}));
    EXPECT_EQ(trace.calls("glNormalPointer").size(), 2U);
    const Calls shading = trace.calls("glShadeModel");
    EXPECT_EQ(std::count(shading.begin(), shading.end(), call("glShadeModel", GL_FLAT)), 1);
}

TEST_F(HostSceneDrawing, HidesPointsOfCloudsBehindMeshes) {
    Scene scene;
    scene.meshes.push_back(triangle(0.0));
    qelview::PointCloud cloud;
    // Behind the triangle, before it, and beside it.
    cloud.positions = {{-0.5, -0.5, 0.5}, {-0.25, -0.5, -0.5}, {0.5, 0.5, 0.5}};
    cloud.colors = {{255, 0, 0}, {255, 0, 0}, {255, 0, 0}};
    cloud.size = 3.0F;
    scene.clouds.push_back(cloud);
    draw(scene);
    const auto redAt = [this](double x, double y) {
        const auto pixel = [](double share) { return static_cast<int>((share * 0.5 + 0.5) * kSize); };
        return surface.pixel(pixel(x), pixel(y))[0];
    };
    EXPECT_LT(redAt(-0.5, -0.5), 50);
    EXPECT_EQ(redAt(-0.25, -0.5), 255);
    EXPECT_EQ(redAt(0.5, 0.5), 255);
}

TEST_F(HostSceneDrawing, LeavesTheStateOfSurfacesBehind) {
    Scene scene;
    scene.meshes.push_back(triangle(0.0));
    draw(scene);
    EXPECT_EQ(glIsEnabled(GL_POLYGON_OFFSET_FILL), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_VERTEX_ARRAY), GL_FALSE);
}

TEST_F(HostSceneDrawing, DrawsTheWholeSampleSceneWithoutAnOpenGlError) {
    Scene scene = qelview::makeSampleScene();
    glMatrixMode(GL_MODELVIEW);
    glScaled(0.05, 0.05, -0.05);
    qelview::PixelView view = flatView(kSize, kSize);
    glGetDoublev(GL_MODELVIEW_MATRIX, view.modelview.data());
    glEnable(GL_DEPTH_TEST);
    HostScene(scene).draw(*symbol, view, kept);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_GT(qel::test::Picture::ofFrame().countOtherThan({0, 0, 0, 255}), std::size_t{kSize * kSize / 4});
}

}  // namespace
