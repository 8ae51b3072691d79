#include <gtest/gtest.h>

#include <cstdint>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "host/RecordingDisplay.h"
#include "host/ViewSubject.h"
#include "kit/CallTrace.h"

namespace qel::test {
namespace {

TEST(TrackBallStateFresh, LooksDownOnTheOriginInPerspective) {
    const auto view = newTrackBall();
    EXPECT_FALSE(view->isOrtho());
    EXPECT_EQ(view->getFieldOfView(), 27.0);
    EXPECT_EQ(view->getNearPlane(), 0.001);
    EXPECT_EQ(view->getFarPlane(), 50000.0);
    EXPECT_EQ(view->getWidth(), 0.0F);
    EXPECT_EQ(view->getHeight(), 0.0F);
    EXPECT_TRUE(isExactly(view->getEye(), {0.0, 0.0, 100.0}));
    EXPECT_TRUE(isExactly(view->getTarget(), {0.0, 0.0, 0.0}));
    EXPECT_TRUE(isExactly(view->getUp(), {0.0, 1.0, 0.0}));
}

TEST(TrackBallStateFresh, HasNoDragNoDisplayAndNothingToDo) {
    const auto view = newTrackBall();
    EXPECT_EQ(view->getMode(), -1);
    EXPECT_EQ(view->isBusy(), 0);
    EXPECT_EQ(view->getDragButton(), DragNone);
    EXPECT_FALSE(view->getOverlayOption());
    EXPECT_EQ(view->getDisplay(), nullptr);
    EXPECT_EQ(view->referenceCount(), 1);
}

TEST(TrackBallStateFresh, KnowsAModelFrom10To100) {
    const Enve3d extent = newTrackBall()->getExtent();
    EXPECT_EQ(extent.xmin, 10.0);
    EXPECT_EQ(extent.xmax, 100.0);
    EXPECT_EQ(extent.ymin, 10.0);
    EXPECT_EQ(extent.ymax, 100.0);
    EXPECT_EQ(extent.zmin, 10.0);
    EXPECT_EQ(extent.zmax, 100.0);
}

TEST(TrackBallStateFresh, CallsNothingOfOpenGl) {
    const CallTrace trace;
    {
        const auto view = newTrackBall();
        view->getEye();
        view->getUp();
        view->getTarget();
        view->getExtent();
        view->isPlanView();
        view->isLevelView();
        view->setOverlayOption(true);
        view->setNearPlane(1.0);
        view->setFarPlane(2.0);
        view->onButtonUp();
    }
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

TEST(TrackBallStateFresh, LendsIdentityMatricesWhereOpenGlHasThem) {
    const GlSurface surface(16, 16);
    const auto view = newTrackBall();
    EXPECT_TRUE(matrixIsNear(view->getModelviewMatrix(), glm::dmat4(1.0), 0.0));
    EXPECT_TRUE(matrixIsNear(view->getProjectionMatrix(), glm::dmat4(1.0), 0.0));
}

TEST(TrackBallState, KeepsTheOverlayOption) {
    const auto view = newTrackBall();
    EXPECT_EQ(view->setOverlayOption(true), 0);
    EXPECT_TRUE(view->getOverlayOption());
    EXPECT_EQ(view->setOverlayOption(false), 0);
    EXPECT_FALSE(view->getOverlayOption());
}

TEST(TrackBallState, ForgetsTheDragWhenTheButtonGoesUp) {
    const ViewSubject view;
    for (const std::int32_t button : {1, 2, 3, 7, -5}) {
        EXPECT_EQ(view->onButtonDown(button, 10, 10), 1);
        EXPECT_EQ(view->getDragButton(), button);
        EXPECT_EQ(view->onButtonUp(), 1);
        EXPECT_EQ(view->getDragButton(), DragNone);
    }
}

TEST(TrackBallState, NearAndFarPlaneWaitForTheNextProjection) {
    const ViewSubject view;
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    const GlView before = GlView::current();
    EXPECT_EQ(view->setNearPlane(0.5), 0);
    EXPECT_EQ(view->setFarPlane(250.0), 0);
    EXPECT_EQ(view->getNearPlane(), 0.5);
    EXPECT_EQ(view->getFarPlane(), 250.0);
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, before.projectionMatrix(), 0.0));
    view->updateView();
    const glm::dmat4 expected = glm::perspective(glm::radians(27.0), 2.0, 0.5, 250.0);
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, expected, kGlRounding));
}

struct DirectionCase {
    const char* name;
    XPnt3d eye;
    bool plan;
    bool level;
};

const DirectionCase kDirections[] = {
    {"FromAbove", {0.0, 0.0, 10.0}, true, false},
    {"FromBelow", {0.0, 0.0, -10.0}, true, false},
    {"FromTheSide", {10.0, 0.0, 0.0}, false, true},
    {"FromTheFront", {0.0, -10.0, 0.0}, false, true},
    {"FromACorner", {7.0, -3.0, 0.0}, false, true},
    {"Slanting", {1.0, 1.0, 1.0}, false, false},
    {"NearlyFromAbove", {0.9e-6, -0.9e-6, 10.0}, true, false},
    {"JustBesideAboveInX", {1.1e-6, 0.0, 10.0}, false, false},
    {"JustBesideAboveInY", {0.0, -1.1e-6, 10.0}, false, false},
    {"NearlyLevel", {10.0, 0.0, -0.9e-6}, false, true},
    {"JustNotLevel", {10.0, 0.0, -1.1e-6}, false, false},
    {"JustAboveTheTarget", {0.0, 0.0, 1.1e-6}, true, false},
    {"OnTheTarget", {0.0, 0.0, 0.0}, false, true},
};

class TrackBallStateDirection : public ::testing::TestWithParam<DirectionCase> {};

TEST_P(TrackBallStateDirection, IsPlanOrLevelInOrthographicViewsOnly) {
    const ViewSubject view;
    const XPnt3d& eye = GetParam().eye;
    // An up vector that is parallel to no direction above.
    view->setCamera(eye, {0.0, 0.0, 0.0}, {0.3, 0.5, 0.8});
    EXPECT_FALSE(view->isPlanView());
    EXPECT_FALSE(view->isLevelView());
    view->setOrtho();
    EXPECT_EQ(view->isPlanView(), GetParam().plan);
    EXPECT_EQ(view->isLevelView(), GetParam().level);
    view->setPerspective();
    EXPECT_FALSE(view->isPlanView());
    EXPECT_FALSE(view->isLevelView());
}

TEST_P(TrackBallStateDirection, IsTakenFromEyeToTargetWhereverTheyAre) {
    const ViewSubject view;
    const XPnt3d target(1.0, -2.0, 4.0);
    view->setCamera(target + GetParam().eye, target, {0.3, 0.5, 0.8});
    view->setOrtho();
    EXPECT_EQ(view->isPlanView(), GetParam().plan);
    EXPECT_EQ(view->isLevelView(), GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(, TrackBallStateDirection, ::testing::ValuesIn(kDirections),
                         [](const auto& tested) { return tested.param.name; });

class TrackBallStateDisplay : public ::testing::Test {
  protected:
    ref_ptr<CQelTrackBall> view = newTrackBall();
    ref_ptr<RecordingDisplay> display{new RecordingDisplay};
    ref_ptr<RecordingDisplay> other{new RecordingDisplay};
};

TEST_F(TrackBallStateDisplay, IsHeldByOneReference) {
    EXPECT_EQ(view->setDisplay(display.get()), 0);
    EXPECT_EQ(view->getDisplay(), display.get());
    EXPECT_EQ(display->referenceCount(), 2);
}

TEST_F(TrackBallStateDisplay, AttachedAgainIsNotCountedAgain) {
    view->setDisplay(display.get());
    EXPECT_EQ(view->setDisplay(display.get()), 0);
    EXPECT_EQ(display->referenceCount(), 2);
    EXPECT_EQ(view->getDisplay(), display.get());
}

TEST_F(TrackBallStateDisplay, IsGivenBackForAnotherOne) {
    view->setDisplay(display.get());
    EXPECT_EQ(view->setDisplay(other.get()), 0);
    EXPECT_EQ(view->getDisplay(), other.get());
    EXPECT_EQ(display->referenceCount(), 1);
    EXPECT_EQ(other->referenceCount(), 2);
}

TEST_F(TrackBallStateDisplay, IsGivenBackForNull) {
    view->setDisplay(display.get());
    EXPECT_EQ(view->setDisplay(nullptr), 0);
    EXPECT_EQ(view->getDisplay(), nullptr);
    EXPECT_EQ(display->referenceCount(), 1);
    EXPECT_EQ(view->setDisplay(nullptr), 0);
}

TEST_F(TrackBallStateDisplay, IsGivenBackWhenTheCameraGoes) {
    view->setDisplay(display.get());
    view.reset();
    EXPECT_EQ(display->referenceCount(), 1);
}

TEST_F(TrackBallStateDisplay, MayLiveOnTheCameraAlone) {
    view->setDisplay(display.get());
    display.reset();
    EXPECT_EQ(view->getDisplay()->referenceCount(), 1);
    view.reset();
}

TEST_F(TrackBallStateDisplay, ThatOwnsTheCameraIsNotKeptAlive) {
    view->setOwner(display.get());
    view->setDisplay(display.get());
    EXPECT_EQ(view->getDisplay(), display.get());
    EXPECT_EQ(display->referenceCount(), 1);
    view->setDisplay(other.get());
    EXPECT_EQ(display->referenceCount(), 1);
    view->setDisplay(display.get());
    view->setDisplay(nullptr);
    EXPECT_EQ(display->referenceCount(), 1);
    EXPECT_EQ(other->referenceCount(), 1);
}

TEST_F(TrackBallStateDisplay, IsNoMoreOnceTheOwnerGoes) {
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->detachOwner();
    EXPECT_EQ(view->getDisplay(), nullptr);
    EXPECT_EQ(display->referenceCount(), 1);
}

TEST_F(TrackBallStateDisplay, OfTheHostOutlivesTheOwner) {
    view->setOwner(display.get());
    view->setDisplay(other.get());
    view->detachOwner();
    EXPECT_EQ(view->getDisplay(), other.get());
    EXPECT_EQ(other->referenceCount(), 2);
}

TEST_F(TrackBallStateDisplay, GoneWithTheOwnerLeavesACameraThatDrawsNothing) {
    const GlSurface surface(64, 64);
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->onResize(64, 64);
    view->onButtonDown(DragRotate, 10, 10);
    view->detachOwner();
    const CallTrace trace;
    EXPECT_EQ(view->drawTrackBall(), 1);
    EXPECT_EQ(view->drawAxes(), 0);
    EXPECT_EQ(view->drawFrame(0.0, 0.0, 0.0, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 10.0F, false), 0);
    EXPECT_EQ(view->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "text"), -1);
    EXPECT_EQ(view->applyProjection(), 0);
    EXPECT_EQ(view->applyModelview(), 0);
    EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), {}));
}

TEST_F(TrackBallStateDisplay, GoneWithTheOwnerLeavesTheStateOfOtherViewsAlone) {
    const GlSurface surface(64, 64);
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->onResize(64, 64);
    view->detachOwner();
    const CallTrace trace;
    view->onResize(32, 32);
    view->setViewport(1, 2, 3, 4);
    view->restoreViewport();
    view->setStandardView(ViewIsometric);
    view->zoomToModel(true);
    view->zoomAt(0.05F, 10, 10);
    view->setRotationCenterAt(10, 10);
    view->applyStereoModelview(3.0);
    view->setOrtho();
    view->refreshDepth();
    EXPECT_EQ(view->getWidth(), 32.0F);
    // Computing is allowed; OpenGL is neither changed nor asked.
    const Calls computing = trace.calls("gluProject", "gluUnProject");
    EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), computing));
    EXPECT_FALSE(computing.empty());
}

TEST_F(TrackBallStateDisplay, GoneWithTheOwnerLeavesTheMatricesThatTheCameraHas) {
    const GlSurface surface(64, 64);
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->onResize(64, 64);
    view->setCamera({3.0, 4.0, 5.0}, {}, {0.0, 1.0, 0.0});
    const glm::dmat4 modelview = glm::make_mat4(view->getModelviewMatrix());
    const glm::dmat4 projection = glm::make_mat4(view->getProjectionMatrix());
    const XPnt3d pixel = view->project(1.0, 1.0, 1.0);
    view->setViewport(1, 2, 30, 40);
    view->detachOwner();
    // Another view's matrices.
    const GlSurface ofAnotherView(32, 16);
    glMatrixMode(GL_MODELVIEW);
    glTranslated(7.0, 8.0, 9.0);
    const CallTrace trace;
    EXPECT_TRUE(matrixIsNear(view->getModelviewMatrix(), modelview, 0.0));
    EXPECT_TRUE(matrixIsNear(view->getProjectionMatrix(), projection, 0.0));
    EXPECT_EQ(view->getViewport()[2], 64);
    EXPECT_TRUE(isExactly(view->project(1.0, 1.0, 1.0), pixel));
    matrix<double> forRowVectors(4, 4);
    view->getModelViewMatrix(forRowVectors);
    EXPECT_TRUE(matrixIsNear(forRowVectors.elements(), modelview, 0.0));
    EXPECT_EQ(view->updateGlMatrices(), 1);
    EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), {call("gluProject", anyArguments)}));
}

TEST_F(TrackBallStateDisplay, ThatComesAfterTheOwnerIsAskedForItsMatrices) {
    const GlSurface surface(64, 32);
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->onResize(64, 32);
    view->getViewport();
    view->detachOwner();
    const GlSurface ofTheHost(20, 10);
    view->setDisplay(other.get());
    EXPECT_EQ(view->getViewport()[2], 20);
    EXPECT_TRUE(matrixIsNear(view->getModelviewMatrix(), glm::dmat4(1.0), 0.0));
}

TEST_F(TrackBallStateDisplay, GoneWithTheOwnerStaysGoneUntilThereIsAnother) {
    const GlSurface surface(64, 64);
    view->onResize(64, 64);
    view->setOwner(display.get());
    view->setDisplay(display.get());
    view->detachOwner();
    view->setDisplay(nullptr);
    const CallTrace trace;
    view->drawAxes();
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    view->setDisplay(other.get());
    view->drawAxes();
    EXPECT_GT(trace.count("glBegin"), 0U);
}

TEST_F(TrackBallStateDisplay, IsMissingAndTheCameraGoesOn) {
    const GlSurface surface(64, 64);
    const CallTrace trace;
    view->onResize(64, 64);
    view->setCamera({3.0, 4.0, 5.0}, {}, {0.0, 1.0, 0.0});
    EXPECT_EQ(trace.calls("makeCurrent").size(), 0U);
    const glm::dmat4 expected = lookAt({3.0, 4.0, 5.0}, {}, {0.0, 1.0, 0.0});
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, expected, kGlRounding));
}

}  // namespace
}  // namespace qel::test
