#include <gtest/gtest.h>

#include <cmath>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "ViewTraces.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

const double kTanHalf = std::tan(27.0 * 3.141592653589793 / 180.0 * 0.5);

/// The call that loads the box for a distance to the point of interest, in a view of 200 x 100 pixels.
std::string orthoCall(double distance, double nearPlane, double farPlane) {
    const double height = kTanHalf * distance;
    const double width = height * 2.0;
    const double tolerance = kDoubleRounding * width;
    return call("glOrtho", about(-width, tolerance), about(width, tolerance), about(-height, tolerance),
                about(height, tolerance), nearPlane, farPlane);
}

/// The middle of the view at a window depth, as OpenGL's matrices are now.
XPnt3d middleOfView(double depth) {
    return GlView::current().unProject(100.0, 50.0, depth);
}

class TrackBallOrtho : public CameraTrace {
  protected:
    std::string lastOrthoCall(const CallTrace& trace) {
        const Calls calls = trace.callsOf("glOrtho");
        return calls.empty() ? "none" : calls.back();
    }
};

TEST_F(TrackBallOrtho, SpansTheViewAtTheDepthOfTheScene) {
    for (const double depth : {0.2, 0.9, 0.985, 0.999}) {
        surface.clear();
        view->setPerspective();
        drawAtDepth(0, 0, kTraceWidth, kTraceHeight, depth);
        view->setOrtho();
        // The view is orthographic already; what was drawn is placed with the matrices that are loaded now.
        const XPnt3d middle = middleOfView(static_cast<double>(surface.depth(0, 0)));
        const CallTrace trace;
        EXPECT_EQ(view->refreshDepth(), 1);
        EXPECT_TRUE(callMatches(lastOrthoCall(trace), orthoCall(dist(eye, middle), 0.5, 500.0)))
            << lastOrthoCall(trace);
    }
}

TEST_F(TrackBallOrtho, UsesTheDepthAsItIsKeptInSinglePrecision) {
    // Two depths whose mean is no float.
    drawAtDepth(0, 0, 101, kTraceHeight, 0.3);
    drawAtDepth(101, 0, kTraceWidth, kTraceHeight, 0.7);
    view->readDepthBuffer();
    const double near = static_cast<double>(surface.depth(0, 0));
    const double far = static_cast<double>(surface.depth(150, 0));
    const double mean = (11.0 * near + 9.0 * far) / 20.0;
    ASSERT_NE(mean, static_cast<double>(static_cast<float>(mean)));
    const XPnt3d middle = middleOfView(static_cast<double>(static_cast<float>(mean)));
    view->updateOrthoBox(false);
    const CallTrace trace;
    view->setOrtho();
    EXPECT_TRUE(callMatches(lastOrthoCall(trace), orthoCall(dist(eye, middle), 0.5, 500.0)))
        << lastOrthoCall(trace);
}

TEST_F(TrackBallOrtho, MayBeTakenFromTheExtent) {
    view->setExtent({-5.0, 15.0, 0.0, 8.0, 2.0, 6.0}, false);
    view->setNearPlane(0.75);
    view->setFarPlane(99.0);
    EXPECT_EQ(view->updateOrthoBox(true), 0);
    const CallTrace trace;
    view->setOrtho();
    EXPECT_TRUE(callMatches(lastOrthoCall(trace), orthoCall(dist(eye, {5.0, 4.0, 4.0}), 0.75, 99.0)))
        << lastOrthoCall(trace);
}

TEST_F(TrackBallOrtho, KeepsTheApparentSizeAtThePointOfInterest) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.98);
    view->refreshDepth();
    view->updateOrthoBox(false);
    const XPnt3d middle = middleOfView(static_cast<double>(surface.depth(0, 0)));
    XPnt3d side = cross(target - eye, up);
    side.normalize();
    const double inPerspective = (view->projectPnt(middle + side) - view->projectPnt(middle)).norm_2d();
    view->setOrtho();
    const double inOrtho = (view->projectPnt(middle + side) - view->projectPnt(middle)).norm_2d();
    EXPECT_NEAR(inOrtho, inPerspective, 1e-4 * inPerspective);
}

TEST_F(TrackBallOrtho, WaitsForTheNextFrameAfterASwitch) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.98);
    const CallTrace trace;
    view->setOrtho();
    const std::string first = lastOrthoCall(trace);
    view->updateView();
    EXPECT_EQ(lastOrthoCall(trace), first);
    view->refreshDepth();
    EXPECT_NE(lastOrthoCall(trace), first);
}

TEST_F(TrackBallOrtho, IsRebuiltForOneFrameOnly) {
    EXPECT_EQ(view->refreshDepth(), 0);
    view->setOrtho();
    EXPECT_EQ(view->refreshDepth(), 1);
    EXPECT_EQ(view->refreshDepth(), 0);
    view->setPerspective();
    EXPECT_EQ(view->refreshDepth(), 0);
}

TEST_F(TrackBallOrtho, IsNotRebuiltForASwitchThatSwitchedNothing) {
    view->setOrtho();
    EXPECT_EQ(view->refreshDepth(), 1);
    view->setOrtho();
    EXPECT_EQ(view->refreshDepth(), 0);
}

TEST_F(TrackBallOrtho, KeepsItsSizeIfTheSwitchIsAskedForAgainBeforeTheFrame) {
    view->setOrtho();
    view->setOrtho();
    EXPECT_EQ(view->refreshDepth(), 0);
    view->setPerspective();
    view->setOrtho();
    EXPECT_EQ(view->refreshDepth(), 1);
    EXPECT_EQ(view->refreshDepth(), 0);
}

TEST_F(TrackBallOrtho, StaysPendingThroughPerspective) {
    view->setOrtho();
    view->setPerspective();
    const CallTrace trace;
    EXPECT_EQ(view->refreshDepth(), 1);
    EXPECT_EQ(trace.count("gluPerspective"), 1U);
    EXPECT_EQ(trace.count("glOrtho"), 0U);
}

TEST_F(TrackBallOrtho, IsLoadedAsAnotherLibraryComputesIt) {
    view->setExtent({-5.0, 15.0, 0.0, 8.0, 2.0, 6.0}, false);
    view->setNearPlane(0.5);
    view->setFarPlane(500.0);
    view->updateOrthoBox(true);
    view->setOrtho();
    const double height = kTanHalf * dist(eye, {5.0, 4.0, 4.0});
    const glm::dmat4 expected = glm::ortho(-2.0 * height, 2.0 * height, -height, height, 0.5, 500.0);
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, expected, kGlRounding));
}

TEST(TrackBallOrthoOfNothing, IsRefusedByOpenGlAndLeavesTheIdentity) {
    const GlSurface surface(16, 16);
    const auto view = newTrackBall();
    const CallTrace trace;
    EXPECT_EQ(view->setOrtho(), 1);
    EXPECT_TRUE(callsMatch(trace.callsOf("glOrtho"), {call("glOrtho", 0, 0, 0, 0, 0, 0)}));
    const CallTrace::Pause unrecorded;
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, glm::dmat4(1.0), 0.0));
}

}  // namespace
}  // namespace qel::test
