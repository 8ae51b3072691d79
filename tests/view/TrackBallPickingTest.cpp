#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "CQelTrackBall.h"
#include "ExtremeNumbers.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "ViewTraces.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

TEST(TrackBallPickingProjection, IsGlusWithTheMatricesOpenGlHolds) {
    const ViewSubject view(200, 100);
    RandomCameras random(70);
    for (int round = 0; round < 40; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const GlView held = GlView::current();
        for (int sample = 0; sample < 20; ++sample) {
            const XPnt3d point = random.point(60.0);
            ASSERT_TRUE(isExactly(view->project(point.x, point.y, point.z), held.project(point)));
            ASSERT_TRUE(isExactly(view->projectPnt(point), held.project(point)));
            const XPnt3d window(random.number(0.0, 200.0), random.number(0.0, 100.0),
                                random.number(0.0, 1.0));
            const XPnt3d expected = held.unProject(window.x, window.y, window.z);
            ASSERT_TRUE(isExactly(view->unProject(window.x, window.y, window.z), expected));
            ASSERT_TRUE(isExactly(view->unProjectPnt(window), expected));
        }
    }
}

TEST(TrackBallPickingProjection, AgreesWithAnotherLibrary) {
    const ViewSubject view(200, 100);
    RandomCameras random(71);
    for (int round = 0; round < 40; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const GlView held = GlView::current();
        for (int sample = 0; sample < 20; ++sample) {
            const XPnt3d window(random.number(0.0, 200.0), random.number(0.0, 100.0),
                                random.number(0.05, 0.95));
            const XPnt3d point = view->unProjectPnt(window);
            const glm::dvec3 again =
                glm::project(asGlm(point), held.modelviewMatrix(), held.projectionMatrix(),
                             glm::dvec4(0.0, 0.0, 200.0, 100.0));
            ASSERT_LE(glm::distance(again, asGlm(window)), 1e-8);
        }
    }
}

TEST(TrackBallPickingProjection, ThereAndBackIsTheSamePoint) {
    const ViewSubject view(200, 100);
    RandomCameras random(72);
    for (int round = 0; round < 40; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        for (int sample = 0; sample < 20; ++sample) {
            const XPnt3d window(random.number(-50.0, 250.0), random.number(-50.0, 150.0),
                                random.number(0.0, 1.0));
            const XPnt3d point = view->unProjectPnt(window);
            ASSERT_TRUE(isCloseTo(view->unProjectPnt(view->projectPnt(point)), point, 1e-8));
        }
    }
}

TEST(TrackBallPickingProjection, HasItsOriginAtTheLowerLeftOfTheView) {
    const ViewSubject view(200, 100);
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    const XPnt3d middle = view->project(0.0, 0.0, 0.0);
    EXPECT_NEAR(middle.x, 100.0, 1e-4);
    EXPECT_NEAR(middle.y, 50.0, 1e-4);
    EXPECT_GT(view->project(1.0, 0.0, 0.0).x, 100.0);
    EXPECT_GT(view->project(0.0, 1.0, 0.0).y, 50.0);
    EXPECT_GT(view->project(0.0, 0.0, -1.0).z, middle.z);
}

TEST(TrackBallPickingProjection, OfACameraThatCannotBeInvertedStaysFinite) {
    const ViewSubject view;
    // The up vector lies along the direction of view: the model-view matrix is singular.
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 0.0, 1.0});
    const XPnt3d point = view->unProject(10.0, 10.0, 0.5);
    EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z));
    EXPECT_TRUE(point.isValid());
}

class TrackBallPicking : public CameraTrace {
  protected:
    XPnt3d unProjected(double x, double y, double depth) { return GlView::current().unProject(x, y, depth); }

    /// Mean depth of what is drawn from the lower bounds to just below the upper ones.
    double meanDepthOf(int x0, int y0, int x1, int y1) const {
        double sum = 0.0;
        int drawn = 0;
        for (int y = y0; y < y1; ++y) {
            for (int x = x0; x < x1; ++x) {
                const double depth = static_cast<double>(surface.depth(x, y));
                sum += depth < 1.0 ? depth : 0.0;
                drawn += depth < 1.0 ? 1 : 0;
            }
        }
        return sum / drawn;
    }

    double depthAt(int x, int y) const { return static_cast<double>(surface.depth(x, y)); }
};

TEST_F(TrackBallPicking, ReadsItsPixelWhateverTheHostSetsForItsOwnReads) {
    drawAtDepth(20, 20, 60, 60, 0.5);
    const XPnt3d expected = unProjected(30.6, 40.25, depthAt(30, 40));
    glPixelStorei(GL_PACK_ROW_LENGTH, 1000);
    for (const GLenum setting :
         std::initializer_list<GLenum>{GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS, GL_PACK_SWAP_BYTES}) {
        glPixelStorei(setting, 1);
        EXPECT_TRUE(isExactly(view->pickModelPnt(30.6, 40.25), expected)) << setting;
        GLint kept = 0;
        glGetIntegerv(setting, &kept);
        EXPECT_EQ(kept, 1);
        glPixelStorei(setting, 0);
    }
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
}

TEST_F(TrackBallPicking, OnAnObjectTakesItsDepth) {
    drawAtDepth(20, 20, 60, 60, 0.5);
    ASSERT_NEAR(depthAt(30, 40), 0.5, 1e-6);
    const XPnt3d expected = unProjected(30.6, 40.25, depthAt(30, 40));
    EXPECT_TRUE(isExactly(view->getModelPntAt(30.6, 40.25), expected));
    EXPECT_TRUE(isExactly(view->pickModelPnt(30.6, 40.25), expected));
    EXPECT_TRUE(view->getModelPntAt(30.6, 40.25).isValid());
}

TEST_F(TrackBallPicking, OnAnObjectIgnoresWhatIsAround) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.9);
    drawAtDepth(50, 50, 51, 51, 0.25);
    EXPECT_TRUE(isExactly(view->pickModelPnt(50.0, 50.0), unProjected(50.0, 50.0, depthAt(50, 50))));
}

TEST_F(TrackBallPicking, ExactlyOnTheBackgroundFindsNoPoint) {
    drawAtDepth(20, 20, 60, 60, 0.5);
    EXPECT_FALSE(view->getModelPntAt(61.0, 40.0).isValid());
    EXPECT_FALSE(view->getModelPntAt(-10.0, 40.0).isValid());
    EXPECT_FALSE(view->getModelPntAt(40.0, 1e10).isValid());
}

TEST_F(TrackBallPicking, BesideAnObjectSnapsToTheMeanOfWhatLiesAround) {
    drawAtDepth(90, 40, 100, 60, 0.25);
    drawAtDepth(112, 55, 160, 90, 0.75);
    ASSERT_EQ(depthAt(105, 50), 1.0);
    const double mean = meanDepthOf(85, 30, 125, 70);
    ASSERT_GT(mean, 0.3);
    EXPECT_TRUE(isExactly(view->pickModelPnt(105.5, 50.5), unProjected(105.5, 50.5, mean)));
}

TEST_F(TrackBallPicking, LooksTwentyPixelsFarToTheLeftAndNineteenToTheRight) {
    view->refreshDepth();
    const struct {
        const char* name;
        int x, y;
        bool found;
    } pixels[] = {{"left", 80, 50, true},   {"too far left", 79, 50, false},
                  {"right", 119, 50, true}, {"too far right", 120, 50, false},
                  {"below", 100, 30, true}, {"too far below", 100, 29, false},
                  {"above", 100, 69, true}, {"too far above", 100, 70, false}};
    static_cast<void>(view->getMeanDepth());
    const double elsewhere = view->getMeanDepth();
    for (const auto& pixel : pixels) {
        surface.clear();
        drawAtDepth(pixel.x, pixel.y, pixel.x + 1, pixel.y + 1, 0.5);
        ASSERT_NEAR(depthAt(pixel.x, pixel.y), 0.5, 1e-6);
        const double depth = pixel.found ? depthAt(pixel.x, pixel.y) : elsewhere;
        EXPECT_TRUE(isExactly(view->pickModelPnt(100.0, 50.0), unProjected(100.0, 50.0, depth)))
            << pixel.name;
    }
}

TEST_F(TrackBallPicking, FindsNothingAroundThatOpenGlDoesNotRead) {
    drawAtDepth(0, 0, 40, kTraceHeight, 0.7);
    view->refreshDepth();
    static_cast<void>(view->getMeanDepth());
    const double elsewhere = view->getMeanDepth();
    drawAtDepth(90, 40, 100, 60, 0.25);
    const XPnt3d snapped = view->pickModelPnt(105.5, 50.5);
    CallTrace trace;
    trace.answer("glReadPixels", 0);
    // What the pick before left in memory is not taken for depths.
    const XPnt3d unread = view->pickModelPnt(105.5, 50.5);
    EXPECT_FALSE(isExactly(unread, snapped));
    EXPECT_TRUE(isExactly(unread, unProjected(105.5, 50.5, elsewhere)));
}

TEST_F(TrackBallPicking, InEmptySpaceTakesTheMeanDepthOfTheScene) {
    drawAtDepth(0, 0, 40, kTraceHeight, 0.7);
    view->refreshDepth();
    static_cast<void>(view->getMeanDepth());
    const double kept = view->getMeanDepth();
    EXPECT_TRUE(isExactly(view->pickModelPnt(150.0, 50.0), unProjected(150.0, 50.0, kept)));
}

TEST_F(TrackBallPicking, OfAnEmptySceneLandsWhereTheModelLies) {
    const struct {
        const char* name;
        Enve3d extent;
        XPnt3d middle;
    } models[] = {
        {"in view", {0.0, 2.0, 1.0, 3.0, 2.0, 4.0}, {1.0, 2.0, 3.0}},
        {"behind the eye", {9.0, 12.0, -30.0, -20.0, 30.0, 40.0}, {10.5, -25.0, 35.0}},
        {"too far", {-2000.0, -1000.0, 2000.0, 3000.0, -4000.0, -3000.0}, {-1500.0, 2500.0, -3500.0}}};
    for (const auto& model : models) {
        view->setExtent(model.extent, false);
        view->refreshDepth();
        const double depth = std::min(std::max(GlView::current().project(model.middle).z, 0.00001), 0.99999);
        const XPnt3d picked = view->pickModelPnt(150.0, 50.0);
        EXPECT_TRUE(isExactly(picked, unProjected(150.0, 50.0, depth))) << model.name;
        EXPECT_TRUE(picked.isValid()) << model.name;
    }
}

struct OutsideCase {
    const char* name;
    double x, y;
};

const OutsideCase kOutside[] = {{"left", -100.0, 50.0},   {"right", 400.0, 50.0}, {"below", 50.0, -100.0},
                                {"above", 50.0, 400.0},   {"far", 1e12, -1e12},   {"just right", 219.5, 50.0},
                                {"just left", -20.5, 5.0}};

TEST_F(TrackBallPicking, OutsideTheViewTakesTheMeanDepthOfTheScene) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.5);
    view->refreshDepth();
    const double mean = view->getMeanDepth();
    for (const OutsideCase& outside : kOutside) {
        EXPECT_TRUE(
            isExactly(view->pickModelPnt(outside.x, outside.y), unProjected(outside.x, outside.y, mean)))
            << outside.name;
    }
}

TEST_F(TrackBallPicking, JustOutsideTheViewStillSnaps) {
    drawAtDepth(0, 0, 5, kTraceHeight, 0.5);
    EXPECT_TRUE(isExactly(view->pickModelPnt(-5.5, 50.0), unProjected(-5.5, 50.0, depthAt(2, 50))));
}

TEST_F(TrackBallPicking, WithNumbersThatAreNoneAnswersWithoutReading) {
    const CallTrace trace;
    for (const double wrong : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_FALSE(view->getModelPntAt(wrong, 1.0).isValid());
        EXPECT_FALSE(view->getModelPntAt(1.0, wrong).isValid());
        const XPnt3d picked = view->pickModelPnt(wrong, 1.0);
        EXPECT_TRUE(picked.isValid());
        EXPECT_TRUE(isExactly(picked, target));
    }
    EXPECT_TRUE(callsMatch(trace.callsOf("glReadPixels"), {}));
}

TEST_F(TrackBallPicking, IsTheSameWhateverTheHostsPixelStore) {
    drawAtDepth(90, 40, 100, 60, 0.25);
    const XPnt3d beside = view->pickModelPnt(105.0, 50.0);
    const XPnt3d on = view->getModelPntAt(95.0, 50.0);
    glPixelStorei(GL_PACK_ROW_LENGTH, 500);
    glPixelStorei(GL_PACK_SKIP_ROWS, 30);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 200);
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_TRUE);
    EXPECT_TRUE(isExactly(view->pickModelPnt(105.0, 50.0), beside));
    EXPECT_TRUE(isExactly(view->getModelPntAt(95.0, 50.0), on));
    GLint skipped = 0;
    glGetIntegerv(GL_PACK_SKIP_PIXELS, &skipped);
    EXPECT_EQ(skipped, 200);
}

TEST_F(TrackBallPicking, SetsTheRotationCentreUnderAPixel) {
    drawAtDepth(20, 20, 60, 60, 0.5);
    const XPnt3d expected = unProjected(30.0, 40.0, depthAt(30, 40));
    const CallTrace trace;
    EXPECT_EQ(view->setRotationCenterAt(30, 40), 1);
    const Calls projected = trace.callsOf("gluProject");
    ASSERT_EQ(projected.size(), 1U);
    EXPECT_TRUE(callMatches(projected[0], projectCall(expected)[0])) << projected[0];
}

TEST_F(TrackBallPicking, ReadsOpenGlsModelviewForRowVectors) {
    matrix<double> m(4, 4);
    view->getModelViewMatrix(m);
    const GlView held = GlView::current();
    for (std::int32_t index = 0; index < 16; ++index) {
        EXPECT_EQ(m.element(index / 4, index % 4), held.modelview[index]);
    }
    const glm::dvec4 eyeSpace = held.modelviewMatrix() * glm::dvec4(4.0, 5.0, 6.0, 1.0);
    EXPECT_TRUE(isCloseTo(transformPoint({4.0, 5.0, 6.0}, m), {eyeSpace.x, eyeSpace.y, eyeSpace.z}, 1e-12));
}

}  // namespace
}  // namespace qel::test
