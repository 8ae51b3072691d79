#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "ViewTraces.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

class TrackBallZoom : public CameraTrace {
  protected:
    /// Fills the view with a scene at a depth and lets the camera see it.
    void showSceneAt(double depth) {
        drawAtDepth(0, 0, kTraceWidth, kTraceHeight, depth);
        view->refreshDepth();
        static_cast<void>(view->getMeanDepth());
    }

    /// The scene point under a pixel, as the camera keeps its depth.
    XPnt3d scenePoint(int x, int y) {
        return GlView::current().unProject(static_cast<double>(x), static_cast<double>(y),
                                           view->getMeanDepth());
    }

    /// Zooms, and expects the camera to move by `share` of the way to the scene point.
    void expectMove(float factor, double share) {
        const XPnt3d from = view->getEye();
        const XPnt3d fromTarget = view->getTarget();
        const XPnt3d delta = (scenePoint(30, 70) - from) * share;
        EXPECT_EQ(view->zoomAt(factor, 30, 70), 1);
        // The factor of a slowed step may be a float.
        const double tolerance = 1e-7 * delta.norm();
        EXPECT_TRUE(isCloseTo(view->getEye(), from + delta, tolerance));
        EXPECT_TRUE(isCloseTo(view->getTarget(), fromTarget + delta, tolerance));
    }
};

TEST_F(TrackBallZoom, AtAPointMovesTheCameraByTheFactor) {
    showSceneAt(0.95);
    for (const float factor : {0.05F, 0.1F, 0.5F, 0.9F, -0.5F, -0.05F, 1.5F}) {
        view->setCamera(eye, target, up);
        expectMove(factor, static_cast<double>(factor));
    }
}

TEST_F(TrackBallZoom, AtAPointSlowsLargeStepsNearTheFarEndOfTheDepthRange) {
    showSceneAt(0.98);
    for (const float factor : {0.11F, 0.5F, 2.0F}) {
        view->setCamera(eye, target, up);
        expectMove(factor, 0.067);
    }
}

TEST_F(TrackBallZoom, AtAPointKeepsSmallStepsAndStepsBackEverywhere) {
    showSceneAt(0.98);
    for (const float factor : {0.05F, 0.099F, 0.0F, -0.5F, -3.0F}) {
        view->setCamera(eye, target, up);
        expectMove(factor, static_cast<double>(factor));
    }
}

TEST_F(TrackBallZoom, AtAPointIsSlowedBeyondADepthOf97HundredthsOnly) {
    showSceneAt(0.9699);
    expectMove(0.5F, 0.5);
    view->setCamera(eye, target, up);
    showSceneAt(0.9701);
    expectMove(0.5F, 0.067);
}

TEST_F(TrackBallZoom, AtAPointIsNotSlowedInOrthographicViews) {
    showSceneAt(0.98);
    view->setOrtho();
    view->refreshDepth();
    expectMove(0.5F, 0.5);
}

TEST_F(TrackBallZoom, AtAPointMovesAlongTheLineToIt) {
    RandomCameras random(90);
    for (int round = 0; round < 50; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        showSceneAt(random.number(0.5, 0.999));
        const int x = static_cast<int>(random.number(0.0, 200.0));
        const int y = static_cast<int>(random.number(0.0, 100.0));
        const XPnt3d from = view->getEye();
        const XPnt3d direction = view->getTarget() - from;
        XPnt3d line = scenePoint(x, y) - from;
        line.normalize();
        view->zoomAt(static_cast<float>(random.number(-0.5, 0.5)), x, y);
        const XPnt3d moved = view->getEye() - from;
        ASSERT_LE(cross(moved, line).norm(), 1e-9 * (1.0 + moved.norm()));
        ASSERT_TRUE(isCloseTo(view->getTarget() - view->getEye(), direction, 1e-9));
    }
}

TEST_F(TrackBallZoom, AtAPointInOrthographicViewsChangesTheBox) {
    view->setOrtho();
    showSceneAt(0.6);
    view->updateOrthoBox(false);
    view->updateView();
    const XPnt3d delta = (scenePoint(30, 70) - eye) * static_cast<double>(0.25F);
    const XPnt3d middle = GlView::current().unProject(100.0, 50.0, view->getMeanDepth());
    const double height = std::tan(27.0 * 3.141592653589793 / 180.0 * 0.5) * dist(eye + delta, middle);
    const CallTrace trace;
    view->zoomAt(0.25F, 30, 70);
    const auto side = [&](double value) { return about(value, 1e-12 * height); };
    EXPECT_TRUE(callsMatch(trace.callsOf("glOrtho"), {call("glOrtho", side(-2.0 * height), side(2.0 * height),
                                                           side(-height), side(height), 0.5, 500)}));
}

TEST_F(TrackBallZoom, AtAPointUsesADepthOffTheEndsOfTheRange) {
    for (const double depth : {0.0, 0.999999}) {
        view->setCamera(eye, target, up);
        showSceneAt(depth);
        const double clamped = depth > 0.5 ? 0.99999 : 0.00001;
        // The depth as it is kept is a float, and may lie beyond the bound by its rounding.
        const double kept = view->getMeanDepth();
        const double used = std::min(std::max(kept, 0.00001), 0.99999);
        ASSERT_NEAR(used, clamped, 1e-7);
        const XPnt3d point = GlView::current().unProject(30.0, 70.0, used);
        view->zoomAt(0.05F, 30, 70);
        const XPnt3d expected = eye + (point - eye) * static_cast<double>(0.05F);
        EXPECT_TRUE(isCloseTo(view->getEye(), expected, 1e-12 * point.norm()));
    }
}

TEST_F(TrackBallZoom, AtAPointAsksForThePixelItIsGiven) {
    const CallTrace trace;
    view->zoomAt(0.01F, -7, 2000000000);
    EXPECT_TRUE(callMatches(trace.callsOf("gluUnProject").at(0), unProjectCall(-7.0, 2000000000.0)[0]));
}

struct RectCase {
    const char* name;
    PixelRect rect;
    float share;
};

const RectCase kRects[] = {
    {"HalfTheWidthAndAQuarterOfTheHeight", {0, 0, 100, 25}, 0.5F},
    {"ElsewhereTheSame", {77, 40, 177, 65}, 0.5F},
    {"FromTheOtherCorner", {177, 65, 77, 40}, 0.5F},
    {"TheHeightCountsWhenItIsMore", {0, 0, 50, 75}, 0.75F},
    {"ALineAcross", {0, 10, 50, 10}, 0.25F},
    {"ALineUp", {10, 0, 10, 25}, 0.25F},
    {"OnePixel", {10, 10, 11, 11}, 1.0F / 100.0F},
    {"TheWholeView", {0, 0, 200, 100}, 1.0F},
    {"LargerThanTheView", {-200, -100, 200, 100}, 2.0F},
    {"AThirdInSinglePrecision", {0, 0, 66, 0}, 66.0F / 200.0F},
    {"WiderThanAnInteger", {INT32_MIN, 0, INT32_MAX, 0}, 4294967295.0F / 200.0F},
};

class TrackBallZoomRect : public TrackBallZoom, public ::testing::WithParamInterface<RectCase> {};

TEST_P(TrackBallZoomRect, InMovesTheEyeTowardsTheTargetByItsSize) {
    EXPECT_EQ(view->zoomInRect(GetParam().rect), 1);
    const double share = static_cast<double>(GetParam().share);
    EXPECT_TRUE(isExactly(view->getEye(), target + (eye - target) * share));
    EXPECT_TRUE(isExactly(view->getTarget(), target));
}

TEST_P(TrackBallZoomRect, OutIsTheInverse) {
    EXPECT_EQ(view->zoomOutRect(GetParam().rect), 1);
    const double share = 1.0 / static_cast<double>(GetParam().share);
    EXPECT_TRUE(isExactly(view->getEye(), target + (eye - target) * share));
    EXPECT_TRUE(isExactly(view->getTarget(), target));
    view->zoomInRect(GetParam().rect);
    // Near the target little of the distance is left in the figures.
    EXPECT_TRUE(isCloseTo(view->getEye(), eye, 1e-14 * std::max(100.0, 1.0 / share)));
}

TEST_P(TrackBallZoomRect, LeavesOrthographicCamerasWhereTheyAre) {
    view->setOrtho();
    EXPECT_EQ(view->zoomInRect(GetParam().rect), 1);
    EXPECT_EQ(view->zoomOutRect(GetParam().rect), 1);
    EXPECT_TRUE(isExactly(view->getEye(), eye));
    EXPECT_TRUE(isExactly(view->getTarget(), target));
}

INSTANTIATE_TEST_SUITE_P(, TrackBallZoomRect, ::testing::ValuesIn(kRects),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(TrackBallZoom, InToARectangleWithoutASizePutsTheEyeOnTheTarget) {
    EXPECT_EQ(view->zoomInRect({10, 10, 10, 10}), 1);
    EXPECT_TRUE(isExactly(view->getEye(), target));
    EXPECT_TRUE(isExactly(view->getTarget(), target));
}

TEST_F(TrackBallZoom, OutToARectangleWithoutASizeMovesNothing) {
    EXPECT_EQ(view->zoomOutRect({10, 10, 10, 10}), 1);
    EXPECT_TRUE(isExactly(view->getEye(), eye));
    view->zoomInRect({10, 10, 10, 10});
    EXPECT_EQ(view->zoomOutRect({10, 10, 10, 10}), 1);
    EXPECT_TRUE(isExactly(view->getEye(), target));
}

struct NextCall {
    const char* name;
    void (*call)(CQelTrackBall& view);
};

const NextCall kNextCalls[] = {
    {"nothing", [](CQelTrackBall&) {}},
    {"onResize", [](CQelTrackBall& v) { v.onResize(100, 100); }},
    {"moveBy", [](CQelTrackBall& v) { v.moveBy(1.0, 2.0, 3.0); }},
    {"pan", [](CQelTrackBall& v) { v.pan(1.0, 2.0); }},
    {"zoomAt", [](CQelTrackBall& v) { v.zoomAt(0.05F, 30, 70); }},
    {"zoomOutRect",
     [](CQelTrackBall& v) {
         v.zoomOutRect({0, 0, 50, 50});
     }},
    {"zoomToModel", [](CQelTrackBall& v) { v.zoomToModel(false); }},
    {"zoomToModel, precise", [](CQelTrackBall& v) { v.zoomToModel(true); }},
    {"setOrtho",
     [](CQelTrackBall& v) {
         v.setOrtho();
         v.refreshDepth();
     }},
    {"setFieldOfView", [](CQelTrackBall& v) { v.setFieldOfView(40.0); }},
    {"setRotationCenterAt", [](CQelTrackBall& v) { v.setRotationCenterAt(20, 20); }},
    {"applyStereoModelview", [](CQelTrackBall& v) { v.applyStereoModelview(3.0); }},
    {"a rotation",
     [](CQelTrackBall& v) {
         v.onButtonDown(DragRotate, 20, 20);
         v.onMouseMove(60, 30);
         v.onButtonUp();
     }},
    {"a pan",
     [](CQelTrackBall& v) {
         v.onButtonDown(DragPan, 20, 20);
         v.onMouseMove(60, 30);
         v.onButtonUp();
     }},
    {"applyMotion",
     [](CQelTrackBall& v) {
         const double values[] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
         v.applyMotion(values);
     }},
    {"the overlays",
     [](CQelTrackBall& v) {
         v.drawAxes();
         v.drawLabel(0.0, 0.0, 0.0, 1.0, 1.0, "text");
     }},
};

TEST_F(TrackBallZoom, OfAnEyeOnItsTargetGoesOnWithWhateverComesNext) {
    for (const NextCall& next : kNextCalls) {
        SCOPED_TRACE(next.name);
        view->onResize(kTraceWidth, kTraceHeight);
        view->setPerspective();
        view->setCamera(eye, target, up);
        view->zoomInRect({10, 10, 10, 10});
        // The matrices print when they cannot be inverted.
        ::testing::internal::CaptureStdout();
        next.call(*view);
        ::testing::internal::GetCapturedStdout();
        for (const XPnt3d& point : {view->getEye(), view->getTarget(), view->getUp()}) {
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z));
        }
        EXPECT_TRUE(std::isfinite(view->getPixelsPerUnit()));
        view->setPerspective();
        EXPECT_EQ(view->setStandardView(ViewFront), 1);
        const XPnt3d middle = view->getTarget();
        EXPECT_TRUE(view->isPntInView(middle.x, middle.y, middle.z));
        EXPECT_GT(view->getPixelsPerUnit(), 0.0F);
        view->setFieldOfView(27.0);
        glGetError();
    }
}

TEST_F(TrackBallZoom, ToARectangleOfAViewWithoutASizeMovesNothing) {
    const auto fresh = newTrackBall();
    EXPECT_EQ(fresh->zoomInRect({0, 0, 10, 10}), 1);
    EXPECT_EQ(fresh->zoomOutRect({0, 0, 10, 10}), 1);
    EXPECT_TRUE(isExactly(fresh->getEye(), {0.0, 0.0, 100.0}));
}

TEST_F(TrackBallZoom, MoveByMovesTheSceneAndSoTheCameraAgainstIt) {
    EXPECT_EQ(view->moveBy(1.5, -2.25, 1e-3), 1);
    EXPECT_TRUE(isExactly(view->getEye(), {10.0 - 1.5, -20.0 + 2.25, 30.0 - 1e-3}));
    EXPECT_TRUE(isExactly(view->getTarget(), {1.0 - 1.5, 2.0 + 2.25, 3.0 - 1e-3}));
    const glm::dmat4 expected = lookAt(view->getEye(), view->getTarget(), up);
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, expected, 10 * kGlRounding));
}

/// The shift of a pan: right and up of the screen, with the up vector as it is.
glm::dvec3 panShift(IQelTrackBall& view, double dx, double dy, float smallerSide) {
    const double step = static_cast<double>(smallerSide / 100.0F);
    const glm::dvec3 up = asGlm(view.getUp());
    const glm::dvec3 side = glm::normalize(glm::cross(asGlm(view.getEye()) - asGlm(view.getTarget()), up));
    return side * (dx * step) + up * -(dy * step);
}

TEST_F(TrackBallZoom, PanMovesByHundredthsOfTheSmallerSide) {
    RandomCameras random(91);
    const std::uint32_t sizes[][2] = {{200, 100}, {130, 170}, {33, 77}};
    for (const auto& size : sizes) {
        view->onResize(size[0], size[1]);
        for (int round = 0; round < 20; ++round) {
            random.place(*view);
            const double dx = random.number(-5.0, 5.0);
            const double dy = random.number(-5.0, 5.0);
            const glm::dvec3 shift = panShift(*view, dx, dy, static_cast<float>(std::min(size[0], size[1])));
            const glm::dvec3 eyeAfter = asGlm(view->getEye()) + shift;
            const glm::dvec3 targetAfter = asGlm(view->getTarget()) + shift;
            EXPECT_EQ(view->pan(dx, dy), 1);
            ASSERT_LE(glm::distance(asGlm(view->getEye()), eyeAfter), 1e-12);
            ASSERT_LE(glm::distance(asGlm(view->getTarget()), targetAfter), 1e-12);
        }
    }
}

TEST_F(TrackBallZoom, PanCountsTheUpVectorAsItIsStored) {
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 4.0, 0.0});
    view->pan(0.0, 2.0);
    EXPECT_TRUE(isExactly(view->getEye(), {0.0, -8.0, 10.0}));
    view->pan(3.0, 0.0);
    EXPECT_TRUE(isExactly(view->getEye(), {-3.0, -8.0, 10.0}));
}

}  // namespace
}  // namespace qel::test
