#include <algorithm>

#include "FitHelp.h"
#include "RandomCameras.h"

namespace qel::test {
namespace {

class TrackBallPlacement : public Fit {};

TEST_F(TrackBallPlacement, OrthoViewLooksAlongTheDirectionAtTheWholeExtent) {
    const Enve3d box{-2.0, 4.0, 1.0, 3.0, -3.0, 0.0};
    EXPECT_EQ(view->setOrthoView({100.0, 200.0, 300.0}, {0.0, 0.0, -7.0}, {0.0, 5.0, 0.0}, box), 0);
    EXPECT_TRUE(view->isOrtho());
    EXPECT_TRUE(view->isPlanView());
    EXPECT_TRUE(sameBox(view->getExtent(), box));
    EXPECT_TRUE(isExactly(view->getTarget(), {1.0, 2.0, -1.5}));
    EXPECT_TRUE(isExactly(view->getUp(), {0.0, 1.0, 0.0}));
    // The diagonal is 7 and so is the distance; their quotient is rounded to a float.
    const double factor = static_cast<double>(static_cast<float>(7.0 * 0.5 / kTanHalf / 7.0));
    ASSERT_NE(factor, 7.0 * 0.5 / kTanHalf / 7.0);
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 2.0, -1.5 + 7.0 * factor}));
}

TEST_F(TrackBallPlacement, OrthoViewBuildsItsBoxFromTheDistanceToTheMiddle) {
    const Enve3d box{-2.0, 4.0, 1.0, 3.0, -3.0, 0.0};
    const CallTrace trace;
    view->setOrthoView({}, {0.0, 3.0, -4.0}, {0.0, 0.0, 2.0}, box);
    const double height = kTanHalf * dist(view->getEye(), {1.0, 2.0, -1.5});
    EXPECT_NEAR(height, 3.5, 1e-6);
    const auto side = [&](double value) { return about(value, 1e-14 * height); };
    EXPECT_TRUE(callsMatch(trace.callsOf("glOrtho"), {call("glOrtho", side(-2.0 * height), side(2.0 * height),
                                                           side(-height), side(height), 0.5, 500)}));
}

TEST_F(TrackBallPlacement, OrthoViewIsPendingOnlyWhenItSwitches) {
    const Enve3d box{-2.0, 4.0, 1.0, 3.0, -3.0, 0.0};
    view->setOrthoView({}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, box);
    EXPECT_EQ(view->refreshDepth(), 1);
    view->setOrthoView({}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, box);
    EXPECT_EQ(view->refreshDepth(), 0);
}

TEST_F(TrackBallPlacement, OrthoViewTurnsAboutTheMiddle) {
    view->setOrthoView({}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, {-2.0, 4.0, 1.0, 3.0, -3.0, 0.0});
    view->setPerspective();
    EXPECT_TRUE(isExactly(rotationCenter(), {1.0, 2.0, -1.5}));
}

TEST_F(TrackBallPlacement, OrthoViewAlongNothingStaysFinite) {
    view->setOrthoView({1.0, 1.0, 1.0}, {}, {0.0, 1.0, 0.0}, {-2.0, 4.0, 1.0, 3.0, -3.0, 0.0});
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 2.0, -1.5}));
    EXPECT_TRUE(isExactly(view->getTarget(), {1.0, 2.0, -1.5}));
    glGetError();
}

TEST_F(TrackBallPlacement, OrthoViewThatNoFiniteCameraHasChangesNothing) {
    const Enve3d before = view->getExtent();
    const auto expectRefusal = [&](const XPnt3d& newTarget, const XPnt3d& direction, const Enve3d& box) {
        EXPECT_TRUE(
            callsMatch(traced([&] {
                           EXPECT_EQ(view->setOrthoView(newTarget, direction, {0.0, 1.0, 0.0}, box), 0);
                       }),
                       {}));
        EXPECT_FALSE(view->isOrtho());
        EXPECT_EQ(view->refreshDepth(), 0);
        EXPECT_TRUE(sameBox(view->getExtent(), before));
        EXPECT_TRUE(isExactly(view->getEye(), eye));
        EXPECT_TRUE(isExactly(view->getTarget(), target));
        EXPECT_TRUE(isExactly(view->getUp(), up));
        EXPECT_TRUE(isExactly(rotationCenter(), {1.0, 2.0, 3.0}));
    };
    const Enve3d box{-2.0, 4.0, 1.0, 3.0, -3.0, 0.0};
    expectRefusal({}, {0.0, 0.0, -1.0}, {0.0, 1e308, 0.0, 1e308, 0.0, 1e308});
    expectRefusal({1.7e308, 0.0, 0.0}, {-1.7e308, 0.0, 0.0}, box);
    view->setFieldOfView(0.0);
    settle();
    expectRefusal({}, {0.0, 0.0, -1.0}, box);
}

TEST_F(TrackBallPlacement, LooksAtATriangleFromFiftyUnits) {
    EXPECT_EQ(view->lookAtTriangle({1.0, 2.0, 3.0}, {5.0, 2.0, 3.0}, {5.0, 8.0, 3.0}), 1);
    EXPECT_TRUE(isExactly(view->getTarget(), {11.0, 12.0, 9.0}));
    EXPECT_TRUE(isExactly(view->getEye(), {11.0, 12.0, 59.0}));
    EXPECT_TRUE(isExactly(view->getUp(), up));
    view->lookAtTriangle({1.0, 2.0, 3.0}, {5.0, 8.0, 3.0}, {5.0, 2.0, 3.0});
    EXPECT_TRUE(isExactly(view->getEye(), {11.0, 12.0, -41.0}));
}

TEST_F(TrackBallPlacement, LooksAtATriangleOnceTheViewIsLoaded) {
    const GlView before = GlView::current();
    view->lookAtTriangle({0.0, 0.0, 0.0}, {0.0, 4.0, 0.0}, {0.0, 4.0, 6.0});
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, before.modelviewMatrix(), 0.0));
    view->updateView();
    const glm::dmat4 expected = lookAt({50.0, 8.0, 6.0}, {0.0, 8.0, 6.0}, up);
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, expected, 10 * kGlRounding));
}

TEST_F(TrackBallPlacement, LooksAtATriangleWithoutAnArea) {
    EXPECT_EQ(view->lookAtTriangle({1.0, 1.0, 1.0}, {2.0, 2.0, 2.0}, {3.0, 3.0, 3.0}), 1);
    EXPECT_TRUE(isExactly(view->getTarget(), {6.0, 6.0, 6.0}));
    EXPECT_TRUE(isExactly(view->getEye(), {6.0, 6.0, 6.0}));
}

TEST_F(TrackBallPlacement, CoverageIsTheShareOfTheWidthThatTheDiagonalTakes) {
    RandomCameras random(103);
    int measured = 0;
    for (int round = 0; round < 200; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const Enve3d box = random.box(10.0);
        const XPnt3d middle = asPoint(middleOf(box));
        const GlView held = GlView::current();
        const XPnt3d rim = middle + view->getUp() * (diagonalOf(box) * 0.5);
        const double share = 2.0 * (held.project(rim) - held.project(middle)).norm_2d() / kTraceWidth;
        const float coverage = view->getScreenCoverage(box);
        ASSERT_LE(coverage, 1.0F);
        if (view->isBoxVisible(box)) {
            ASSERT_FLOAT_EQ(coverage, static_cast<float>(std::min(share, 1.0)));
            ++measured;
        } else {
            ASSERT_EQ(coverage, 0.0F);
        }
    }
    EXPECT_GT(measured, 20);
}

TEST_F(TrackBallPlacement, CoverageNeverExceeds1) {
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    EXPECT_EQ(view->getScreenCoverage({-1000.0, 1000.0, -1000.0, 1000.0, -1.0, 1.0}), 1.0F);
    const float small = view->getScreenCoverage({-0.1, 0.1, -0.1, 0.1, -0.1, 0.1});
    EXPECT_GT(small, 0.0F);
    EXPECT_LT(small, 0.2F);
    EXPECT_EQ(view->getScreenCoverage(invalidBox()), -1.0F);
}

}  // namespace
}  // namespace qel::test
