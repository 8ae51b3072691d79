#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "CQelTrackBall.h"
#include "ExtremeNumbers.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "host/ViewSubject.h"
#include "kit/CallTrace.h"

namespace qel::test {
namespace {

TEST(TrackBallCamera, LoadsWhatAnotherLibraryComputes) {
    const ViewSubject view(200, 100);
    RandomCameras random(60);
    for (int round = 0; round < 200; ++round) {
        random.place(*view);
        const GlView held = GlView::current();
        const glm::dmat4 expected = lookAt(view->getEye(), view->getTarget(), view->getUp());
        ASSERT_TRUE(matrixIsNear(held.modelview, expected, 10 * kGlRounding));
        const glm::dmat4 projection = glm::perspective(glm::radians(27.0), 2.0, 1.0, 200.0);
        ASSERT_TRUE(matrixIsNear(held.projection, projection, kGlRounding));
    }
}

TEST(TrackBallCamera, LendsExactlyWhatOpenGlHolds) {
    const ViewSubject view(123, 45);
    RandomCameras random(61);
    for (int round = 0; round < 20; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const GlView held = GlView::current();
        ASSERT_TRUE(matrixIsNear(view->getModelviewMatrix(), held.modelviewMatrix(), 0.0));
        ASSERT_TRUE(matrixIsNear(view->getProjectionMatrix(), held.projectionMatrix(), 0.0));
        const std::int32_t* const viewport = view->getViewport();
        ASSERT_EQ(viewport[0], 0);
        ASSERT_EQ(viewport[1], 0);
        ASSERT_EQ(viewport[2], 123);
        ASSERT_EQ(viewport[3], 45);
    }
}

TEST(TrackBallCamera, KeepsTheUpVectorAsItIsGiven) {
    const ViewSubject view;
    view->setCamera({1.0, 2.0, 30.0}, {4.0, 5.0, 6.0}, {0.0, 7.0, 0.5});
    EXPECT_TRUE(isExactly(view->getUp(), {0.0, 7.0, 0.5}));
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 2.0, 30.0}));
    EXPECT_TRUE(isExactly(view->getTarget(), {4.0, 5.0, 6.0}));
}

TEST(TrackBallCamera, AssignedThroughItsInterfaceKeepsItsFieldsAndReferences) {
    const ViewSubject view;
    const ViewSubject other;
    view->setCamera({1.0, 2.0, 30.0}, {4.0, 5.0, 6.0}, {0.0, 1.0, 0.0});
    const std::int32_t references = view->referenceCount();
    IQelTrackBall& assigned = *view;
    assigned = static_cast<const IQelTrackBall&>(*other);
    EXPECT_EQ(view->referenceCount(), references);
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 2.0, 30.0}));
}

TEST(TrackBallCamera, TakesItsShapeFromTheWindow) {
    const ViewSubject view(100, 100);
    const std::uint32_t sizes[][2] = {{800, 600}, {7, 3}, {3, 1000}, {1920, 1080}, {1, 1}};
    for (const auto& size : sizes) {
        EXPECT_EQ(view->onResize(size[0], size[1]), 1);
        const float width = static_cast<float>(size[0]);
        const float height = static_cast<float>(size[1]);
        EXPECT_EQ(view->getWidth(), width);
        EXPECT_EQ(view->getHeight(), height);
        EXPECT_EQ(view->getViewport()[2], static_cast<std::int32_t>(size[0]));
        EXPECT_EQ(view->getViewport()[3], static_cast<std::int32_t>(size[1]));
        const double aspect = static_cast<double>(width / height);
        const glm::dmat4 expected = glm::perspective(glm::radians(27.0), aspect, 0.001, 50000.0);
        EXPECT_TRUE(matrixIsNear(GlView::current().projection, expected, kGlRounding));
    }
}

TEST(TrackBallCamera, KeepsItsSizeWhenTheWindowIsMinimised) {
    const ViewSubject view(120, 60);
    const GlView before = GlView::current();
    for (const std::uint32_t size : {1U, 50U, 4000000000U}) {
        EXPECT_EQ(view->onResize(0, size), 1);
        EXPECT_EQ(view->onResize(size, 0), 1);
    }
    EXPECT_EQ(view->getWidth(), 120.0F);
    EXPECT_EQ(view->getHeight(), 60.0F);
    const GlView after = GlView::current();
    EXPECT_EQ(after.viewport[2], 120);
    EXPECT_EQ(after.viewport[3], 60);
    view->updateView();
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, before.projectionMatrix(), 0.0));
}

TEST(TrackBallCamera, DrawsIntoAPartOfTheWindowAndGoesBack) {
    const ViewSubject view(120, 60);
    EXPECT_EQ(view->setViewport(10, 20, 30, 40), 0);
    const std::int32_t* const viewport = view->getViewport();
    EXPECT_EQ(viewport[0], 10);
    EXPECT_EQ(viewport[1], 20);
    EXPECT_EQ(viewport[2], 30);
    EXPECT_EQ(viewport[3], 40);
    EXPECT_EQ(view->getWidth(), 120.0F);
    EXPECT_EQ(view->getHeight(), 60.0F);
    // The target lies in the middle of what is drawn into.
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    const XPnt3d middle = view->project(0.0, 0.0, 0.0);
    EXPECT_NEAR(middle.x, 25.0, 1e-4);
    EXPECT_NEAR(middle.y, 40.0, 1e-4);
}

TEST(TrackBallCamera, RestoresTheWholeViewport) {
    const GlSurface surface(120, 60);
    const auto view = newTrackBall();
    view->onResize(120, 60);
    view->setViewport(10, 20, 30, 40);
    EXPECT_EQ(view->restoreViewport(), 0);
    const std::int32_t* const viewport = view->getViewport();
    EXPECT_EQ(viewport[0], 0);
    EXPECT_EQ(viewport[1], 0);
    EXPECT_EQ(viewport[2], 120);
    EXPECT_EQ(viewport[3], 60);
}

TEST(TrackBallCamera, ReadsTheViewportOfTheContextItIsAttachedTo) {
    const GlSurface surface(77, 33);
    const auto view = newTrackBall();
    const std::int32_t* const viewport = view->getViewport();
    EXPECT_EQ(viewport[2], 77);
    EXPECT_EQ(viewport[3], 33);
}

TEST(TrackBallCamera, KeepsTheShapeOfTheViewWhenTheFieldOfViewChanges) {
    const ViewSubject view(200, 100);
    for (const double degrees : {0.5, 10.0, 45.0, 90.0, 179.0}) {
        EXPECT_EQ(view->setFieldOfView(degrees), 0);
        EXPECT_EQ(view->getFieldOfView(), degrees);
        const glm::dmat4 expected = glm::perspective(glm::radians(degrees), 2.0, 0.001, 50000.0);
        EXPECT_TRUE(matrixIsNear(GlView::current().projection, expected, kGlRounding));
    }
}

TEST(TrackBallCamera, RefusesAFieldOfViewThatIsNoNumber) {
    const ViewSubject view;
    for (const double degrees : {kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
        const CallTrace trace;
        EXPECT_EQ(view->setFieldOfView(degrees), 0);
        EXPECT_EQ(view->getFieldOfView(), 27.0);
        EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    }
}

TEST(TrackBallCamera, TakesEveryFiniteFieldOfViewAndStaysFinite) {
    const ViewSubject view(200, 100);
    const glm::dmat4 usual = GlView::current().projectionMatrix();
    for (const double degrees : {0.0, -10.0, 180.0, 360.0, 1e-300, -1e20, 1e300, 1.7e308}) {
        SCOPED_TRACE(degrees);
        const CallTrace trace;
        EXPECT_EQ(view->setFieldOfView(degrees), 0);
        EXPECT_EQ(view->getFieldOfView(), degrees);
        EXPECT_TRUE(
            callsMatch(trace.callsOf("gluPerspective"), {call("gluPerspective", degrees, 2, any, any)}));
        EXPECT_EQ(trace.count("gluLookAt"), 1U);
        view->zoomToModel(false);
        view->zoomToModel(true);
        view->zoomAt(0.05F, 20, 20);
        for (const XPnt3d& point : {view->getEye(), view->getTarget(), view->getUp()}) {
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z));
        }
        EXPECT_TRUE(std::isfinite(view->getPixelsPerUnit()));
        EXPECT_EQ(view->setFieldOfView(27.0), 0);
        EXPECT_TRUE(matrixIsNear(GlView::current().projection, usual, 0.0));
    }
}

TEST(TrackBallCamera, OfAnyFieldOfViewHasAFiniteBoxInOrthographicViews) {
    const ViewSubject view(200, 100);
    view->setOrtho();
    for (const double degrees : {0.0, -10.0, 180.0, 360.0, 1e300, 1.7e308}) {
        SCOPED_TRACE(degrees);
        const CallTrace trace;
        EXPECT_EQ(view->setFieldOfView(degrees), 0);
        double sides[4] = {};
        const std::string box = trace.callsOf("glOrtho").back();
        ASSERT_EQ(std::sscanf(box.c_str(), "glOrtho(%lf, %lf, %lf, %lf", &sides[0], &sides[1], &sides[2],
                              &sides[3]),
                  4);
        for (const double side : sides) {
            EXPECT_TRUE(std::isfinite(side));
        }
        glGetError();
    }
}

/// The eye turned about the up vector through the target, computed by glm.
glm::dmat4 stereoLookAt(IQelTrackBall& view, double offset) {
    const glm::dvec3 target = asGlm(view.getTarget());
    const glm::dvec3 direction = asGlm(view.getEye()) - target;
    const double angle = std::atan(offset / glm::length(direction));
    const glm::dmat4 turn = glm::rotate(glm::dmat4(1.0), angle, asGlm(view.getUp()));
    const glm::dvec3 eye = target + glm::dvec3(turn * glm::dvec4(direction, 0.0));
    return glm::lookAt(eye, target, asGlm(view.getUp()));
}

TEST(TrackBallCameraStereo, TurnsTheEyeAboutTheUpVector) {
    const GlSurface surface(200, 100);
    const auto view = newTrackBall();
    view->onResize(200, 100);
    RandomCameras random(62);
    for (int round = 0; round < 50; ++round) {
        random.place(*view);
        for (const double offset : {3.0, -3.0, 40.0, 0.0}) {
            EXPECT_EQ(view->applyStereoModelview(offset), 0);
            ASSERT_TRUE(
                matrixIsNear(GlView::current().modelview, stereoLookAt(*view, offset), 10 * kGlRounding));
        }
    }
}

TEST(TrackBallCameraStereo, ChangesNoFieldAndLeavesTheCachedMatrix) {
    const GlSurface surface(200, 100);
    const auto view = newTrackBall();
    view->onResize(200, 100);
    view->setCamera({1.0, 2.0, 30.0}, {4.0, 5.0, 6.0}, {0.0, 1.0, 0.0});
    const glm::dmat4 mono = glm::make_mat4(view->getModelviewMatrix());
    view->applyStereoModelview(5.0);
    EXPECT_FALSE(matrixIsNear(GlView::current().modelview, mono, 1e-3));
    EXPECT_TRUE(matrixIsNear(view->getModelviewMatrix(), mono, 0.0));
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 2.0, 30.0}));
    view->applyModelview();
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, mono, 0.0));
}

TEST(TrackBallCameraStereo, AtItsTargetHasNothingToTurnAndStaysFinite) {
    const GlSurface surface(200, 100);
    const auto view = newTrackBall();
    view->onResize(200, 100);
    view->setCamera({4.0, 5.0, 6.0}, {4.0, 5.0, 6.0}, {0.0, 1.0, 0.0});
    EXPECT_EQ(view->applyStereoModelview(3.0), 0);
    const glm::dmat4 loaded = GlView::current().modelviewMatrix();
    for (int index = 0; index < 16; ++index) {
        EXPECT_TRUE(std::isfinite(loaded[index / 4][index % 4])) << index;
    }
    EXPECT_TRUE(isExactly(view->getEye(), {4.0, 5.0, 6.0}));
}

TEST(TrackBallCameraStereo, WithoutOffsetIsTheMonoCamera) {
    const GlSurface surface(200, 100);
    const auto view = newTrackBall();
    view->onResize(200, 100);
    view->setCamera({1.0, 2.0, 32.0}, {4.0, 8.0, 16.0}, {0.0, 1.0, 0.0});
    const glm::dmat4 mono = GlView::current().modelviewMatrix();
    view->applyStereoModelview(0.0);
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, mono, 0.0));
}

TEST(TrackBallCamera, CountsPixelsPerUnitAtTheRotationCentre) {
    const ViewSubject view(200, 100);
    RandomCameras random(63);
    for (int round = 0; round < 50; ++round) {
        random.place(*view);
        view->setPerspective();
        const XPnt3d center = view->getTarget();
        view->setRotationCenter(center.x, center.y, center.z);
        const double distance = dist(view->getEye(), center);
        // Half the height of the view spans half the field of view at that distance.
        const double expected = 50.0 / (std::tan(glm::radians(13.5)) * distance);
        ASSERT_NEAR(static_cast<double>(view->getPixelsPerUnit()), expected, 1e-4 * expected);
    }
}

TEST(TrackBallCamera, CountsPixelsPerUnitEverywhereTheSameInOrthographicViews) {
    const ViewSubject view(200, 100);
    view->setCamera({0.0, 0.0, 50.0}, {}, {0.0, 1.0, 0.0});
    view->setOrtho();
    view->refreshDepth();
    const double halfWidth = 1.0 / GlView::current().projection[0];
    const float expected = static_cast<float>(200.0 / (2.0 * halfWidth));
    EXPECT_NEAR(view->getPixelsPerUnit(), expected, 1e-6 * static_cast<double>(expected));
    view->setRotationCenter(100.0, 200.0, -300.0);
    EXPECT_NEAR(view->getPixelsPerUnit(), expected, 1e-6 * static_cast<double>(expected));
}

TEST(TrackBallCamera, WithoutASizeCoversNoPixels) {
    const GlSurface surface(16, 16);
    const auto view = newTrackBall();
    view->setOrtho();
    glGetError();
    EXPECT_EQ(view->getPixelsPerUnit(), 0.0F);
}

}  // namespace
}  // namespace qel::test
