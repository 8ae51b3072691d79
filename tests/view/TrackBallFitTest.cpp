#include <algorithm>
#include <cmath>

#include "ExtremeNumbers.h"
#include "FitHelp.h"
#include "RandomCameras.h"

namespace qel::test {
namespace {

constexpr double kLowerOfNothing = 2147483647.0;
constexpr double kUpperOfNothing = -2147483647.0;

struct FlatCase {
    const char* name;
    double zmin, zmax;
};

constexpr FlatCase kFlat[] = {{"BothMarkers", kLowerOfNothing, kUpperOfNothing},
                              {"OnlyTheLowerOne", kLowerOfNothing, 5.0},
                              {"OnlyTheUpperOne", 5.0, kUpperOfNothing}};

class TrackBallFitFlatExtent : public Fit, public ::testing::WithParamInterface<FlatCase> {};

TEST_P(TrackBallFitFlatExtent, GetsAZRangeOfZero) {
    EXPECT_EQ(view->setExtent({0.0, 10.0, 0.0, 10.0, GetParam().zmin, GetParam().zmax}, false), 1);
    EXPECT_TRUE(sameBox(view->getExtent(), {0.0, 10.0, 0.0, 10.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(view->getNearPlane(), std::sqrt(200.0) / 800.0);
    EXPECT_NEAR(view->getNearPlane(), 0.0177, 0.0001);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), std::sqrt(200.0) * 20.0);
    EXPECT_NEAR(view->getFarPlane(), 282.8, 0.1);
}

TEST_P(TrackBallFitFlatExtent, IsFittedWhereItLies) {
    for (const bool precise : {false, true}) {
        EXPECT_EQ(view->zoomToExtent({0.0, 10.0, 2.0, 12.0, GetParam().zmin, GetParam().zmax}, precise), 1);
        EXPECT_TRUE(isExactly(view->getTarget(), {5.0, 7.0, 0.0}));
        EXPECT_LT(dist(view->getEye(), view->getTarget()), 100.0);
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackBallFitFlatExtent, ::testing::ValuesIn(kFlat),
                         [](const auto& tested) { return tested.param.name; });

using TrackBallFit = Fit;

TEST_F(TrackBallFit, SetExtentSetsTheClippingDistancesAndNothingElse) {
    const Enve3d box{-1.0, 3.0, 10.0, 14.0, 5.0, 12.0};
    const GlView before = GlView::current();
    EXPECT_EQ(view->setExtent(box, false), 0);
    EXPECT_TRUE(sameBox(view->getExtent(), box));
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 9.0 / 800.0);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 180.0);
    EXPECT_TRUE(isExactly(view->getEye(), eye));
    EXPECT_TRUE(isExactly(rotationCenter(), {1.0, 2.0, 3.0}));
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, before.projectionMatrix(), 0.0));
}

TEST_F(TrackBallFit, SetExtentWithZoomFitsItQuickly) {
    const Enve3d box{-1.0, 3.0, 10.0, 14.0, 5.0, 12.0};
    EXPECT_EQ(view->setExtent(box, true), 0);
    const XPnt3d middle(1.0, 12.0, 8.5);
    EXPECT_TRUE(isExactly(view->getTarget(), middle));
    EXPECT_TRUE(isExactly(rotationCenter(), middle));
    EXPECT_NEAR(dist(view->getEye(), middle), 4.5 / kTanHalf, 1e-12);
    const glm::dmat4 expected = glm::perspective(glm::radians(27.0), 2.0, 9.0 / 800.0, 180.0);
    EXPECT_TRUE(matrixIsNear(GlView::current().projection, expected, kGlRounding));
}

TEST_F(TrackBallFit, KeepsTheDirectionOfAnEyeCloseToItsTarget) {
    view->setCamera({0.0, 0.0, 0.5}, {}, {0.0, 1.0, 0.0});
    EXPECT_EQ(view->zoomToExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false), 1);
    EXPECT_TRUE(isCloseTo(view->getEye(), {0.0, 0.0, std::sqrt(3.0) / kTanHalf}, 1e-9));
}

TEST_F(TrackBallFit, RefusesExtentsThatAreNoneAndChangesNothing) {
    const Enve3d before = view->getExtent();
    for (const Enve3d& box :
         {invalidBox(), Enve3d{1.0, 0.0, 0.0, 1.0, 0.0, 1.0}, Enve3d{0.0, 1.0, 1.0, 0.0, 0.0, 1.0},
          Enve3d{0.0, kInfinity, 0.0, 1.0, 0.0, 1.0}, Enve3d{0.0, 1.0, 0.0, 1.0, 0.0, kNaN},
          Enve3d{-1.7e308, 1.7e308, 0.0, 1.0, 0.0, 1.0}}) {
        EXPECT_EQ(view->setExtent(box, true), -1);
        EXPECT_EQ(view->zoomToExtent(box, false), -1);
        EXPECT_EQ(view->zoomToExtent(box, true), -1);
        EXPECT_TRUE(sameBox(view->getExtent(), before));
        EXPECT_TRUE(isExactly(view->getEye(), eye));
        EXPECT_TRUE(isExactly(rotationCenter(), {1.0, 2.0, 3.0}));
        EXPECT_EQ(view->getNearPlane(), 0.5);
    }
}

TEST_F(TrackBallFit, RefusesExtentsThatNoFiniteCameraFitsAndChangesNothing) {
    const Enve3d before = view->getExtent();
    const auto expectRefusal = [&](const Enve3d& box, bool precise) {
        const Calls calls = traced([&] { EXPECT_EQ(view->zoomToExtent(box, precise), -1); });
        EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                                [](const std::string& text) { return text.find("gluLookAt") == 0; }),
                  0);
        EXPECT_TRUE(sameBox(view->getExtent(), before));
        EXPECT_TRUE(isExactly(view->getEye(), eye));
        EXPECT_TRUE(isExactly(view->getTarget(), target));
        EXPECT_TRUE(isExactly(rotationCenter(), {1.0, 2.0, 3.0}));
    };
    // Half its diagonal over the tangent of half the field of view does not fit.
    expectRefusal({0.0, 1e308, 0.0, 1e308, 0.0, 1e308}, false);
    view->setFieldOfView(0.0);
    expectRefusal({0.0, 1.0, 0.0, 1.0, 0.0, 1.0}, false);
    expectRefusal({0.0, 1.0, 0.0, 1.0, 0.0, 1.0}, true);
}

TEST_F(TrackBallFit, QuicklyKeepsTheDirectionAtTheDistanceOfTheDiagonal) {
    RandomCameras random(100);
    for (int round = 0; round < 100; ++round) {
        random.place(*view);
        const Enve3d box = random.box(80.0);
        const glm::dvec3 direction = glm::normalize(asGlm(view->getEye()) - asGlm(view->getTarget()));
        const glm::dvec3 expected = middleOf(box) + direction * (diagonalOf(box) * 0.5 / kTanHalf);
        EXPECT_EQ(view->zoomToExtent(box, false), 1);
        ASSERT_TRUE(isCloseTo(view->getTarget(), asPoint(middleOf(box)), 1e-12));
        ASSERT_TRUE(isCloseTo(view->getEye(), asPoint(expected), 1e-11));
        ASSERT_TRUE(isExactly(rotationCenter(), view->getTarget()));
    }
}

TEST_F(TrackBallFit, QuicklyPutsTheModelIntoTheView) {
    RandomCameras random(101);
    // A corner on the near side of the sphere looks larger than the sphere's middle, by this much at most.
    const double largest = 1.0 / std::sqrt(1.0 - kTanHalf * kTanHalf) + 1e-5;
    for (int round = 0; round < 100; ++round) {
        random.place(*view);
        const Enve3d box = random.box(80.0);
        EXPECT_EQ(view->setExtent(box, true), 0);
        const GlView held = GlView::current();
        for (int corner = 0; corner < 8; ++corner) {
            const XPnt3d point((corner & 1) != 0 ? box.xmax : box.xmin,
                               (corner & 2) != 0 ? box.ymax : box.ymin,
                               (corner & 4) != 0 ? box.zmax : box.zmin);
            const glm::dvec4 clip = held.clip(point);
            ASSERT_GT(clip.w, 0.0);
            ASSERT_LE(std::fabs(clip.y / clip.w), largest);
            ASSERT_LE(std::fabs(clip.x / clip.w), largest / 2.0);
            ASSERT_LE(std::fabs(clip.z / clip.w), 1.0);
        }
    }
}

TEST_F(TrackBallFit, QuicklyTakesAnInvalidEyeForTheOrigin) {
    view->setCamera(XPnt3d(7.0, 8.0, 9.0, 1), {0.0, 0.0, -10.0}, up);
    EXPECT_FALSE(view->getEye().isValid());
    EXPECT_EQ(view->zoomToExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false), 1);
    EXPECT_TRUE(view->getEye().isValid());
    EXPECT_TRUE(isCloseTo(view->getEye(), {0.0, 0.0, std::sqrt(12.0) * 0.5 / kTanHalf}, 1e-12));
}

TEST_F(TrackBallFit, WithTheEyeOnTheTargetPutsBothInTheMiddle) {
    view->setCamera(target, target, up);
    EXPECT_EQ(view->zoomToExtent({-1.0, 3.0, -1.0, 1.0, -1.0, 1.0}, false), 1);
    EXPECT_TRUE(isExactly(view->getEye(), {1.0, 0.0, 0.0}));
    EXPECT_TRUE(isExactly(view->getTarget(), {1.0, 0.0, 0.0}));
}

/// The camera of a precise fit, from GLU with the matrices that OpenGL holds before it.
struct PreciseFit {
    glm::dvec3 eye;
    glm::dvec3 target;

    PreciseFit(const GlView& held, const XPnt3d& from, const Enve3d& box, double aspect)
        : target(middleOf(box)) {
        const double depth = held.project(asPoint(target)).z;
        double left = 1e300, right = -1e300, bottom = 1e300, top = -1e300;
        for (int corner = 0; corner < 8; ++corner) {
            const XPnt3d window = held.project({(corner & 1) != 0 ? box.xmax : box.xmin,
                                                (corner & 2) != 0 ? box.ymax : box.ymin,
                                                (corner & 4) != 0 ? box.zmax : box.zmin});
            left = std::min(left, window.x);
            right = std::max(right, window.x);
            bottom = std::min(bottom, window.y);
            top = std::max(top, window.y);
        }
        const glm::dvec3 first = asGlm(held.unProject(left, bottom, depth));
        const double width = glm::distance(first, asGlm(held.unProject(right, bottom, depth))) / aspect;
        const double height = glm::distance(first, asGlm(held.unProject(left, top, depth)));
        const double distance = std::max(width, height) * 0.5 / kTanHalf;
        eye = target + glm::normalize(asGlm(from) - target) * distance;
    }
};

TEST_F(TrackBallFit, PreciselyMeasuresTheImageAtTheDepthOfTheMiddle) {
    RandomCameras random(102);
    for (int round = 0; round < 100; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const Enve3d box = random.box(20.0);
        view->zoomToExtent(box, false);
        const PreciseFit expected(GlView::current(), view->getEye(), box, 2.0);
        EXPECT_EQ(view->zoomToExtent(box, true), 1);
        ASSERT_TRUE(isCloseTo(view->getTarget(), asPoint(expected.target), 1e-12));
        ASSERT_TRUE(isCloseTo(view->getEye(), asPoint(expected.eye), 1e-9));
    }
}

TEST_F(TrackBallFit, PreciselyTurnsTheCameraFromWhereTheEyeIsToTheMiddle) {
    view->setCamera({0.0, 0.0, 50.0}, {}, {0.0, 1.0, 0.0});
    const Enve3d box{4.0, 6.0, 3.0, 5.0, -1.0, 1.0};
    const PreciseFit expected(GlView::current(), {0.0, 0.0, 50.0}, box, 2.0);
    EXPECT_EQ(view->zoomToExtent(box, true), 1);
    EXPECT_TRUE(isExactly(view->getTarget(), {5.0, 4.0, 0.0}));
    EXPECT_TRUE(isCloseTo(view->getEye(), asPoint(expected.eye), 1e-9));
    XPnt3d direction = view->getEye() - view->getTarget();
    EXPECT_TRUE(
        isCloseTo(direction.normalize(), asPoint(glm::normalize(glm::dvec3(-5.0, -4.0, 50.0))), 1e-12));
}

TEST_F(TrackBallFit, PreciselyFillsTheViewWithAFlatModelSeenFromAbove) {
    const struct { double width, height; } sizes[] = {{10.0, 1.0}, {1.0, 10.0}, {20.0, 10.0}, {7.0, 7.0}};
    for (const auto& size : sizes) {
        const Enve3d box{3.0, 3.0 + size.width, -4.0, -4.0 + size.height, 2.0, 2.0};
        const XPnt3d middle = asPoint(middleOf(box));
        view->setCamera(middle + XPnt3d(0.0, 0.0, 60.0), middle, {0.0, 1.0, 0.0});
        EXPECT_EQ(view->zoomToExtent(box, true), 1);
        const XPnt3d low = view->project(box.xmin, box.ymin, 2.0);
        const XPnt3d high = view->project(box.xmax, box.ymax, 2.0);
        const double filled = std::max((high.x - low.x) / kTraceWidth, (high.y - low.y) / kTraceHeight);
        EXPECT_NEAR(filled, 1.0, 1e-4);
        EXPECT_NEAR(low.x + high.x, kTraceWidth, 1e-2);
        EXPECT_NEAR(low.y + high.y, kTraceHeight, 1e-2);
    }
}

TEST_F(TrackBallFit, PreciselyLooksThroughWhatTheHostHasLoadedMeanwhile) {
    settle();
    glMatrixMode(GL_MODELVIEW);
    glScaled(3.0, 3.0, 3.0);
    const Enve3d box{0.0, 2.0, 1.0, 3.0, 2.0, 4.0};
    const PreciseFit expected(GlView::current(), eye, box, 2.0);
    view->zoomToExtent(box, true);
    EXPECT_TRUE(isCloseTo(view->getEye(), asPoint(expected.eye), 1e-9));
}

TEST_F(TrackBallFit, ToTheModelIsToACopyOfItsExtent) {
    const Enve3d box{-1.0, 3.0, 10.0, 14.0, 5.0, 12.0};
    view->setExtent(box, false);
    EXPECT_EQ(view->zoomToModel(false), 1);
    EXPECT_TRUE(isExactly(view->getTarget(), {1.0, 12.0, 8.5}));
    const PreciseFit expected(GlView::current(), view->getEye(), box, 2.0);
    EXPECT_EQ(view->zoomToModel(true), 1);
    EXPECT_TRUE(isCloseTo(view->getEye(), asPoint(expected.eye), 1e-9));
    EXPECT_TRUE(sameBox(view->getExtent(), box));
}

}  // namespace
}  // namespace qel::test
