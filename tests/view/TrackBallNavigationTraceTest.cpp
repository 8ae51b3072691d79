#include <vector>

#include "ViewTraces.h"

/// Which calls the operations that move the camera end in, and those that only look.

namespace qel::test {
namespace {

const XPnt3d kCenter(1.0, 2.0, 3.0);

using TrackBallNavigationTrace = CameraTrace;

TEST_F(TrackBallNavigationTrace, MovesLoadTheViewAndMeasureTheSphere) {
    const auto expected = [&] { return joined({loadView(), measureSphere(kCenter)}); };
    expectCalls([&] { EXPECT_EQ(view->moveBy(1.0, 2.0, 3.0), 1); }, expected);
    expectCalls([&] { EXPECT_EQ(view->pan(1.0, 2.0), 1); }, expected);
    view->setOrtho();
    expectCalls([&] { EXPECT_EQ(view->moveBy(1.0, 2.0, 3.0), 1); }, expected);
    expectCalls([&] { EXPECT_EQ(view->pan(1.0, 2.0), 1); }, expected);
}

TEST_F(TrackBallNavigationTrace, ZoomAtFindsThePointThenMovesThenRebuildsBoxViewAndSphere) {
    const Calls calls = traced([&] { EXPECT_EQ(view->zoomAt(0.05F, 30, 40), 1); });
    EXPECT_TRUE(callsMatch(
        calls, joined({unProjectCall(30.0, 40.0), findMiddle(), loadView(), measureSphere(kCenter)})));
}

TEST_F(TrackBallNavigationTrace, RectangleZoomsOnlyLoadTheView) {
    const auto expected = [&] { return loadView(); };
    for (int round = 0; round < 2; ++round) {
        expectCalls([&] { EXPECT_EQ(view->zoomInRect({0, 0, 100, 25}), 1); }, expected);
        expectCalls([&] { EXPECT_EQ(view->zoomOutRect({0, 0, 100, 25}), 1); }, expected);
        view->setOrtho();
    }
}

TEST_F(TrackBallNavigationTrace, SetRotationCenterOnlyMeasuresTheSphere) {
    const Calls calls = traced([&] { EXPECT_EQ(view->setRotationCenter(4.0, 5.0, 6.0), 1); });
    EXPECT_TRUE(callsMatch(calls, joined({projectCall({4.0, 5.0, 6.0}), unProjectCall(0.0, 0.0),
                                          unProjectCall(0.0, static_cast<double>(kTraceWidth))})));
}

const Enve3d kBox{-1.0, 3.0, 10.0, 12.0, 5.0, 8.0};
const XPnt3d kMiddle(1.0, 11.0, 6.5);

TEST_F(TrackBallNavigationTrace, QuickFitLooksAtNothing) {
    const Calls calls = traced([&] { EXPECT_EQ(view->zoomToExtent(kBox, false), 1); });
    EXPECT_TRUE(callsMatch(calls, joined({{"makeCurrent"}, loadView(), measureSphere(kMiddle)})));
}

TEST_F(TrackBallNavigationTrace, PreciseFitProjectsTheCornersThroughWhatOpenGlHoldsNow) {
    const Calls calls = traced([&] { EXPECT_EQ(view->zoomToExtent(kBox, true), 1); });
    Calls corners;
    for (const double x : {-1.0, 3.0}) {
        for (const double y : {10.0, 12.0}) {
            for (const double z : {5.0, 8.0}) {
                corners = joined({corners, projectCall({x, y, z})});
            }
        }
    }
    const Calls anyUnProject{call("gluUnProject", anyArguments)};
    EXPECT_TRUE(callsMatch(calls, joined({{"makeCurrent"},
                                          readBack("mpv"),
                                          projectCall(kMiddle),
                                          corners,
                                          anyUnProject,
                                          anyUnProject,
                                          anyUnProject,
                                          loadView(),
                                          measureSphere(kMiddle)})));
}

TEST_F(TrackBallNavigationTrace, RefusedExtentsCallNothing) {
    Enve3d invalid;
    invalid.setInvalid();
    EXPECT_TRUE(callsMatch(traced([&] {
                               EXPECT_EQ(view->zoomToExtent(invalid, false), -1);
                               EXPECT_EQ(view->zoomToExtent(invalid, true), -1);
                               EXPECT_EQ(view->setExtent(invalid, true), -1);
                               EXPECT_EQ(view->getScreenCoverage(invalid), -1.0F);
                           }),
                           {}));
}

TEST_F(TrackBallNavigationTrace, SetExtentLoadsNothingUnlessItZooms) {
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->setExtent(kBox, false), 0); }), {}));
    const Calls calls = traced([&] { EXPECT_EQ(view->setExtent(kBox, true), 0); });
    EXPECT_TRUE(callsMatch(calls, joined({{"makeCurrent"}, loadView(), measureSphere(kMiddle)})));
}

TEST_F(TrackBallNavigationTrace, StandardViewsFitTheModel) {
    view->setExtent(kBox, false);
    const Calls calls = traced([&] { EXPECT_EQ(view->setStandardView(ViewFront), 1); });
    EXPECT_TRUE(callsMatch(calls, joined({{"makeCurrent"}, loadView(), measureSphere(kMiddle)})));
}

TEST_F(TrackBallNavigationTrace, OrthographicViewsOfAnExtentMeasureTheSphereInTheirBox) {
    const Calls calls = traced([&] {
        EXPECT_EQ(view->setOrthoView({}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}, kBox), 0);
    });
    EXPECT_TRUE(callsMatch(calls, joined({loadView(), measureSphere(kMiddle)})));
}

TEST_F(TrackBallNavigationTrace, LookAtTriangleWaitsForTheCallerToLoadTheView) {
    const PNT3D a{0.0, 0.0, 0.0};
    const PNT3D b{1.0, 0.0, 0.0};
    const PNT3D c{0.0, 1.0, 0.0};
    EXPECT_TRUE(callsMatch(traced([&] { EXPECT_EQ(view->lookAtTriangle(a, b, c), 1); }), {}));
}

TEST_F(TrackBallNavigationTrace, ProjectionHelpersReadBackWhatIsDirtyAndAskGlu) {
    view->updateView();
    EXPECT_TRUE(callsMatch(traced([&] { view->project(1.5, 2.5, 3.5); }),
                           joined({readBack("mp"), projectCall({1.5, 2.5, 3.5})})));
    EXPECT_TRUE(callsMatch(traced([&] { view->projectPnt({1.5, 2.5, 3.5}); }), projectCall({1.5, 2.5, 3.5})));
    view->updateView();
    EXPECT_TRUE(callsMatch(traced([&] { view->unProject(1.5, 2.5, 0.5); }),
                           joined({readBack("mp"), unProjectCall(1.5, 2.5, 0.5)})));
    EXPECT_TRUE(callsMatch(traced([&] {
                               view->unProjectPnt({1.5, 2.5, 0.5});
                           }),
                           unProjectCall(1.5, 2.5, 0.5)));
}

TEST_F(TrackBallNavigationTrace, BoxesAreProjectedCornerByCornerAroundEachEnd) {
    Calls corners;
    for (const double z : {5.0, 8.0}) {
        corners = joined({corners, projectCall({-1.0, 10.0, z}), projectCall({3.0, 10.0, z}),
                          projectCall({3.0, 12.0, z}), projectCall({-1.0, 12.0, z})});
    }
    EXPECT_TRUE(callsMatch(traced([&] { view->isBoxInRect(Enve2d(0.0, 0.0, 10.0, 10.0), kBox); }), corners));
    EXPECT_TRUE(callsMatch(traced([&] { view->isBoxVisible(kBox); }), corners));
}

TEST_F(TrackBallNavigationTrace, PointsAreJudgedByTheUnprojectedCornersOfTheView) {
    Calls corners;
    for (const double depth : {0.0, 1.0}) {
        corners = joined({corners, unProjectCall(0.0, 0.0, depth), unProjectCall(kTraceWidth, 0.0, depth),
                          unProjectCall(0.0, kTraceHeight, depth),
                          unProjectCall(kTraceWidth, kTraceHeight, depth)});
    }
    EXPECT_TRUE(callsMatch(traced([&] { view->isPntInView(1.0, 2.0, 3.0); }), corners));
}

Calls pixelReads(const CallTrace& trace) {
    return trace.calls("glReadBuffer", "glReadPixels", "glu");
}

std::string readDepthCall(int x, int y, int width, int height) {
    return call("glReadPixels", x, y, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, any);
}

TEST_F(TrackBallNavigationTrace, ExactPicksReadOnePixelAndKeepTheFractions) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.5);
    const CallTrace trace;
    view->getModelPntAt(30.9, 40.7);
    EXPECT_TRUE(callsMatch(
        pixelReads(trace),
        joined({{call("glReadBuffer", GL_BACK), readDepthCall(30, 40, 1, 1)}, unProjectCall(30.9, 40.7)})));
}

TEST_F(TrackBallNavigationTrace, ExactPicksOfTheBackgroundAskNothingMore) {
    const CallTrace trace;
    view->getModelPntAt(-0.9, 40.0);
    EXPECT_TRUE(callsMatch(pixelReads(trace), {call("glReadBuffer", GL_BACK), readDepthCall(0, 40, 1, 1)}));
}

struct SquareCase {
    const char* name;
    double x, y;
    int readX, readY, width, height;
};

const SquareCase kSquares[] = {
    {"in the middle", 100.0, 50.0, 80, 30, 40, 40},
    {"with fractions", 100.7, 50.2, 80, 30, 40, 40},
    {"at the left border", 5.0, 50.0, 0, 30, 25, 40},
    {"on the left border", 0.0, 50.0, 0, 30, 20, 40},
    {"at the lower border", 100.0, 5.0, 80, 0, 40, 25},
    {"at the right border", 190.0, 50.0, 170, 30, 29, 40},
    {"where the right border just cuts", 179.5, 50.0, 159, 30, 40, 40},
    {"at the upper border", 100.0, 99.0, 80, 79, 40, 20},
    {"in the upper right corner", 199.0, 99.0, 179, 79, 20, 20},
    {"left of the view", -5.0, 50.0, 0, 30, 15, 40},
};

TEST_F(TrackBallNavigationTrace, PicksOfTheBackgroundReadTheSquareAroundWithinTheView) {
    for (const SquareCase& square : kSquares) {
        const CallTrace trace;
        view->pickModelPnt(square.x, square.y);
        const Calls expected = {
            call("glReadBuffer", GL_BACK),
            readDepthCall(static_cast<int>(square.x), static_cast<int>(square.y), 1, 1),
            readDepthCall(square.readX, square.readY, square.width, square.height),
        };
        EXPECT_TRUE(callsMatch(pixelReads(trace), joined({expected, unProjectCall(square.x, square.y)})))
            << square.name;
    }
}

TEST_F(TrackBallNavigationTrace, PicksOfAnObjectReadOnePixel) {
    drawAtDepth(0, 0, kTraceWidth, kTraceHeight, 0.5);
    const CallTrace trace;
    view->pickModelPnt(30.9, 40.7);
    EXPECT_TRUE(callsMatch(
        pixelReads(trace),
        joined({{call("glReadBuffer", GL_BACK), readDepthCall(30, 40, 1, 1)}, unProjectCall(30.9, 40.7)})));
}

}  // namespace
}  // namespace qel::test
