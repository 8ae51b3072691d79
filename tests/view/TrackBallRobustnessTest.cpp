#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "CQelTrackBall.h"
#include "ExtremeNumbers.h"
#include "GlOracle.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {
constexpr double kWild[] = {kNaN,  kInfinity, -kInfinity, 1.7e308, -1.7e308,
                            1e300, 1e39,      -1e20,      1e-40,   std::numeric_limits<double>::denorm_min(),
                            0.0};

struct WildCase {
    const char* name;
    void (*call)(CQelTrackBall& view, double wild);
};

float narrow(double value) {
    return static_cast<float>(value);
}

const WildCase kOperations[] = {
    {"SetCameraEye",
     [](CQelTrackBall& v, double w) {
         v.setCamera({w, 0.0, 5.0}, {}, {0.0, 1.0, 0.0});
     }},
    {"SetCameraTarget",
     [](CQelTrackBall& v, double w) {
         v.setCamera({0.0, 0.0, 5.0}, {0.0, w, 0.0}, {0.0, 1.0, 0.0});
     }},
    {"SetCameraUp",
     [](CQelTrackBall& v, double w) {
         v.setCamera({0.0, 0.0, 5.0}, {}, {0.0, w, 0.0});
     }},
    {"MoveBy", [](CQelTrackBall& v, double w) { v.moveBy(w, 1.0, -w); }},
    {"Pan", [](CQelTrackBall& v, double w) { v.pan(w, w); }},
    {"ZoomAt", [](CQelTrackBall& v, double w) { v.zoomAt(narrow(w), 10, 10); }},
    {"SetFieldOfView", [](CQelTrackBall& v, double w) { v.setFieldOfView(w); }},
    {"SetNearPlane",
     [](CQelTrackBall& v, double w) {
         v.setNearPlane(w);
         v.updateView();
     }},
    {"SetFarPlane",
     [](CQelTrackBall& v, double w) {
         v.setFarPlane(w);
         v.updateView();
     }},
    {"SetRotationCenter", [](CQelTrackBall& v, double w) { v.setRotationCenter(w, 0.0, w); }},
    {"SetExtent",
     [](CQelTrackBall& v, double w) {
         v.setExtent({-1.0, w, 0.0, 1.0, 0.0, 1.0}, true);
     }},
    {"SetExtentInZ",
     [](CQelTrackBall& v, double w) {
         v.setExtent({-1.0, 1.0, 0.0, 1.0, w, -w}, true);
     }},
    {"SetExtentOfAPointFarOut",
     [](CQelTrackBall& v, double w) {
         v.setExtent({w, w, w, w, w, w}, true);
     }},
    {"ZoomToExtent",
     [](CQelTrackBall& v, double w) {
         v.zoomToExtent({-w, w, -w, w, -w, w}, false);
     }},
    {"ZoomPrecisely",
     [](CQelTrackBall& v, double w) {
         v.zoomToExtent({-w, w, -w, w, -w, w}, true);
     }},
    {"SetOrthoViewAlong",
     [](CQelTrackBall& v, double w) {
         v.setOrthoView({w, 0.0, 0.0}, {0.0, 0.0, w}, {0.0, 1.0, 0.0}, {0.0, 1.0, 0.0, 1.0, 0.0, 1.0});
     }},
    {"SetOrthoViewOf",
     [](CQelTrackBall& v, double w) {
         v.setOrthoView({}, {0.0, 0.0, -1.0}, {0.0, w, 0.0}, {0.0, w, 0.0, 1.0, 0.0, 1.0});
     }},
    {"LookAtTriangle",
     [](CQelTrackBall& v, double w) {
         v.lookAtTriangle({w, 0.0, 0.0}, {0.0, w, 0.0}, {0.0, 0.0, w});
         v.updateView();
     }},
    {"StereoModelview", [](CQelTrackBall& v, double w) { v.applyStereoModelview(w); }},
    {"Project", [](CQelTrackBall& v, double w) { v.project(w, w, w); }},
    {"UnProject", [](CQelTrackBall& v, double w) { v.unProject(w, w, w); }},
    {"PickModelPnt", [](CQelTrackBall& v, double w) { v.pickModelPnt(w, w); }},
    {"GetModelPntAt", [](CQelTrackBall& v, double w) { v.getModelPntAt(w, w); }},
    {"IsPntInView", [](CQelTrackBall& v, double w) { v.isPntInView(w, w, w); }},
    {"IsBoxVisible",
     [](CQelTrackBall& v, double w) {
         v.isBoxVisible({-w, w, -w, w, -w, w});
     }},
    {"ScreenCoverage",
     [](CQelTrackBall& v, double w) {
         v.getScreenCoverage({-w, w, -w, w, -w, w});
     }},
    {"RotateDrag",
     [](CQelTrackBall& v, double w) {
         v.onButtonDown(DragRotate, 10.0, w);
         v.onMouseMove(w, 20.0);
         v.onMouseMove(30.0, w);
         v.onButtonUp();
     }},
    {"PanDrag",
     [](CQelTrackBall& v, double w) {
         v.onButtonDown(DragPan, 10.0, 10.0);
         v.onMouseMove(w, w);
         v.onButtonUp();
     }},
    {"ZoomDrag",
     [](CQelTrackBall& v, double w) {
         v.onButtonDown(DragZoom, 10.0, 10.0);
         v.onMouseMove(w, w);
         v.onButtonUp();
     }},
    {"SixAxisMotion",
     [](CQelTrackBall& v, double w) {
         const double values[6] = {w, w, w, w, w, w};
         v.applyMotion(values);
     }},
};

class TrackBallRobustnessWildArguments : public ::testing::TestWithParam<WildCase> {
  protected:
    TrackBallRobustnessWildArguments() {
        view->onResize(64, 32);
        view->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, true);
    }

    // The matrices print when they cannot be inverted; that is shown only with a failure.
    void SetUp() override { ::testing::internal::CaptureStdout(); }
    void TearDown() override {
        const std::string printed = ::testing::internal::GetCapturedStdout();
        if (HasFailure()) {
            std::puts(printed.c_str());
        }
        // A wild camera makes OpenGL refuse projections; that is its business.
        glGetError();
    }

    static bool isFinite(const XPnt3d& p) {
        return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
    }

    void expectFiniteCamera(double wild) {
        EXPECT_TRUE(isFinite(view->getEye())) << wild;
        EXPECT_TRUE(isFinite(view->getTarget())) << wild;
        EXPECT_TRUE(isFinite(view->getUp())) << wild;
    }

    /// A host that goes on with its work afterwards finds a camera that works.
    void expectRecovery(double wild) {
        view->setFieldOfView(27.0);
        view->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false);
        view->setStandardView(ViewRight);
        view->refreshDepth();
        // An orthographic box is measured with the matrices before it, so the first zoom still sees the wild
        // ones.
        view->zoomAt(0.0F, 32, 16);
        view->zoomAt(0.01F, 32, 16);
        view->setRotationCenter(0.0, 0.0, 0.0);
        expectFiniteCamera(wild);
        const XPnt3d middle = view->project(0.0, 0.0, 0.0);
        EXPECT_NEAR(middle.x, 32.0, 2.0) << wild;
        EXPECT_NEAR(middle.y, 16.0, 2.0) << wild;
        EXPECT_TRUE(view->isPntInView(0.0, 0.0, 0.0)) << wild;
        EXPECT_GT(view->getPixelsPerUnit(), 0.0F) << wild;
        EXPECT_TRUE(std::isfinite(view->getPixelsPerUnit())) << wild;
    }

    GlSurface surface{64, 32};
    ref_ptr<CQelTrackBall> view = newTrackBall();
};

TEST_P(TrackBallRobustnessWildArguments, LeaveACameraThatIsFiniteAndRecovers) {
    for (const bool ortho : {false, true}) {
        for (const double wild : kWild) {
            ortho ? view->setOrtho() : view->setPerspective();
            GetParam().call(*view, wild);
            expectFiniteCamera(wild);
            // What follows meets whatever matrices that has left.
            view->refreshDepth();
            view->zoomAt(0.05F, 5, 5);
            view->setRotationCenterAt(5, 5);
            view->onButtonDown(DragRotate, 3, 3);
            view->onMouseMove(13, 13);
            view->onButtonUp();
            view->zoomToModel(true);
            expectFiniteCamera(wild);
            ortho ? view->setOrtho() : view->setPerspective();
            expectRecovery(wild);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackBallRobustnessWildArguments, ::testing::ValuesIn(kOperations),
                         [](const auto& tested) { return tested.param.name; });

class TrackBallRobustness : public TrackBallRobustnessWildArguments {};

TEST_F(TrackBallRobustness, OfNaNChangeNothing) {
    const XPnt3d eye = view->getEye();
    for (const double wrong : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(view->setCamera({wrong, 0.0, 0.0}, {}, {0.0, 1.0, 0.0}), 0);
        EXPECT_EQ(view->moveBy(0.0, wrong, 0.0), 1);
        EXPECT_EQ(view->pan(wrong, 0.0), 1);
        EXPECT_EQ(view->zoomAt(narrow(wrong), 1, 1), 1);
        EXPECT_EQ(view->setNearPlane(wrong), 0);
        EXPECT_EQ(view->setFarPlane(wrong), 0);
        EXPECT_EQ(view->setRotationCenter(wrong, 0.0, 0.0), 1);
        EXPECT_EQ(view->applyStereoModelview(wrong), 0);
        EXPECT_TRUE(isExactly(view->getEye(), eye));
        EXPECT_TRUE(std::isfinite(view->getNearPlane()));
        EXPECT_TRUE(std::isfinite(view->getFarPlane()));
    }
}

TEST_F(TrackBallRobustness, ThatFitTheEyeAloneMoveNothing) {
    view->setCamera({1e308, 0.0, 5.0}, {-1e308, 0.0, 0.0}, {0.0, 1.0, 0.0});
    const XPnt3d eye = view->getEye();
    const XPnt3d target = view->getTarget();
    view->moveBy(1e308, 0.0, 0.0);
    EXPECT_TRUE(isExactly(view->getEye(), eye));
    EXPECT_TRUE(isExactly(view->getTarget(), target));
}

TEST_F(TrackBallRobustness, ThatCannotBeTurnedStayFiniteInARotation) {
    const XPnt3d farOut(1.7e308, 1.7e308, 0.0);
    const XPnt3d up(0.0, 1.0, 0.0);
    for (const bool isEyeFarOut : {false, true}) {
        isEyeFarOut ? view->setCamera(farOut, {}, up) : view->setCamera({0.0, 0.0, 5.0}, {}, farOut);
        view->onButtonDown(DragRotate, 32, 16);
        view->onMouseMove(45, 20);
        view->onMouseMove(20, 25);
        view->onButtonUp();
        expectFiniteCamera(farOut.x);
    }
}

TEST_F(TrackBallRobustness, OfSizesThatNoWindowHasChangeNothing) {
    EXPECT_EQ(view->onResize(0x80000000U, 10), 1);
    EXPECT_EQ(view->onResize(10, 0xFFFFFFFFU), 1);
    EXPECT_EQ(view->getWidth(), 64.0F);
    EXPECT_EQ(view->getHeight(), 32.0F);
}

}  // namespace
}  // namespace qel::test
