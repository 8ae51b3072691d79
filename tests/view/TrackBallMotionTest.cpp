#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <random>

#include "ExtremeNumbers.h"
#include "EyeOracle.h"
#include "WatchedCamera.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {

namespace {

using Values = std::array<double, 6>;

/// A camera 100 units in front of a model of 40 units; the rotation centre lies beside the line of sight.
class TrackBallMotion : public ::testing::Test {
  protected:
    TrackBallMotion() {
        camera->onResize(400, 300);
        camera->setExtent({-20.0, 20.0, -20.0, 20.0, -20.0, 20.0}, false);
        start();
    }

    void start(const XPnt3d& center = {}) {
        camera->setCamera({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0});
        camera->setRotationCenter(center.x, center.y, center.z);
        camera->events.clear();
    }

    double radiusPx() const {
        const double pixelsPerUnit = 1.0 / EyeOracle(*camera).unitsPerPixel(-100.0);
        return std::min(200.0, 20.0 * std::sqrt(3.0) * pixelsPerUnit);
    }

    std::int32_t apply(const Values& values) const { return camera->applyMotion(values.data()); }

    GlSurface surface{400, 300};
    ref_ptr<WatchedCamera> camera{new WatchedCamera};
};

TEST_F(TrackBallMotion, AValueOutOfRangeIsRefusedAndDoesNothing) {
    const Placement before(*camera);
    camera->onButtonDown(5, 1, 1);
    const CallTrace trace;
    for (std::size_t axis = 0; axis < 6; ++axis) {
        for (const double wrong : {1000.5, -1000.5, 1000.0000001, 1e300, kInfinity, -kInfinity, kNaN}) {
            Values values{1.0, 1.0, 1.0, 1.0, 1.0, 1.0};
            values[axis] = wrong;
            EXPECT_EQ(apply(values), -1) << axis << ": " << wrong;
        }
    }
    EXPECT_EQ(camera->applyMotion(nullptr), -1);
    EXPECT_EQ(Placement(*camera), before);
    EXPECT_EQ(camera->getDragButton(), 5);
    EXPECT_TRUE(camera->events.empty());
    EXPECT_TRUE(trace.calls().empty());
}

TEST_F(TrackBallMotion, TheEndsOfTheRangeBelongToIt) {
    for (std::size_t axis = 0; axis < 6; ++axis) {
        for (const double end : {1000.0, -1000.0}) {
            start();
            Values values{};
            values[axis] = end;
            EXPECT_EQ(apply(values), 1) << axis << ": " << end;
            const Placement moved(*camera);
            EXPECT_TRUE(isFinitePlacement(moved));
            start();
            EXPECT_NE(moved, Placement(*camera)) << axis << ": " << end;
        }
    }
}

TEST_F(TrackBallMotion, RunsTwoRotationsAndAPanEvenWithoutAnyMotion) {
    const Placement before(*camera);
    const CallTrace trace;
    EXPECT_EQ(apply({}), 1);
    EXPECT_EQ(camera->events,
              (std::vector<std::string>{"updateView", "onButtonUp of 2", "updateView", "onButtonUp of 2",
                                        "moveBy 0 0 0", "updateView", "updateSphereRadius", "onButtonUp of 1",
                                        "updateView", "updateSphereRadius"}));
    EXPECT_EQ(trace.count("gluLookAt"), 4U);
    EXPECT_EQ(camera->getDragButton(), DragNone);
    EXPECT_EQ(Placement(*camera), before);
}

TEST_F(TrackBallMotion, TheFirstTwoValuesPan) {
    const double unitsPerPixel = EyeOracle(*camera).unitsPerPixel(-100.0);
    // Less than a pixel pans nothing: the difference is cut to whole pixels.
    EXPECT_EQ(apply({24.5, -10.5, 0.0, 0.0, 0.0, 0.0}), 1);
    EXPECT_TRUE(isNear(camera->getEye(), {-24.0 * unitsPerPixel, 10.0 * unitsPerPixel, 100.0}, 1e-4));
    EXPECT_TRUE(isNear(camera->getTarget(), {-24.0 * unitsPerPixel, 10.0 * unitsPerPixel, 0.0}, 1e-4));
    EXPECT_TRUE(isNear(camera->getUp(), {0.0, 1.0, 0.0}, 1e-12));
}

TEST_F(TrackBallMotion, TheThirdGoesTowardsTheCentreInPartsOfTheModel) {
    start({30.0, 0.0, 60.0});
    EXPECT_EQ(apply({0.0, 0.0, 15.0, 0.0, 0.0, 0.0}), 1);
    // A tenth of the diagonal, in the direction (3, 0, -4) / 5.
    const double step = 0.1 * 40.0 * std::sqrt(3.0);
    EXPECT_TRUE(isNear(camera->getEye(), {0.6 * step, 0.0, 100.0 - 0.8 * step}, 1e-12));
    EXPECT_TRUE(isNear(camera->getTarget(), {0.6 * step, 0.0, -0.8 * step}, 1e-12));
    EXPECT_EQ(apply({0.0, 0.0, -15.0, 0.0, 0.0, 0.0}), 1);
    EXPECT_TRUE(isNear(camera->getEye(), {0.0, 0.0, 100.0}, 1e-12));
}

TEST_F(TrackBallMotion, TheFourthAndFifthTurnAboutTheCentre) {
    const double u = 30.0 / radiusPx();
    const double v = -20.0 / radiusPx();
    const glm::dvec3 to(u, v, std::sqrt(1.0 - u * u - v * v));
    const ModelTurn turn{glm::dvec3(0.0), glm::cross(glm::dvec3(0.0, 0.0, 1.0), to), 2.0 * std::acos(to.z)};
    EXPECT_EQ(apply({0.0, 0.0, 0.0, 30.0, -20.0, 0.0}), 1);
    EXPECT_TRUE(isNear(camera->getEye(), asPoint(turn.place({0.0, 0.0, 100.0})), 1e-3));
    EXPECT_TRUE(isNear(camera->getUp(), asPoint(turn.direction({0.0, 1.0, 0.0})), 1e-5));
}

TEST_F(TrackBallMotion, TheSixthRollsAboutTheLineOfSight) {
    for (const double roll : {40.0, -90.0, 700.0}) {
        start();
        // From two radii to the right of the middle straight up, on the rim.
        const double angle = 2.0 * std::atan(roll / (2.0 * radiusPx()));
        EXPECT_EQ(apply({0.0, 0.0, 0.0, 0.0, 0.0, roll}), 1);
        EXPECT_TRUE(isNear(camera->getEye(), {0.0, 0.0, 100.0}, 1e-4));
        // The model turns counter-clockwise, so up leans to the right of it.
        EXPECT_TRUE(isNear(camera->getUp(), {std::sin(angle), std::cos(angle), 0.0}, 1e-5)) << roll;
    }
}

TEST_F(TrackBallMotion, IsTheSameAsTheDragsItStandsFor) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> value(-60.0, 60.0);
    const ref_ptr<CQelTrackBall> hand(new CQelTrackBall);
    hand->onResize(400, 300);
    hand->setExtent(camera->getExtent(), false);
    const XPnt3d center(3.0, -4.0, 5.0);
    for (int round = 0; round < 50; ++round) {
        const Values values{value(random), value(random), 0.0, value(random), value(random), value(random)};
        start(center);
        camera->updateView();
        EXPECT_EQ(apply(values), 1);
        const Placement played(*camera);
        hand->setCamera({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0});
        hand->setRotationCenter(center.x, center.y, center.z);
        const XPnt3d c = hand->projectPnt(center);
        double beside[3] = {};
        hand->mapToSphere(c.x + 0.25, c.y, beside);
        const double edge = c.x + 2.0 * static_cast<double>(static_cast<float>(0.25 / beside[0]));
        hand->onButtonDown(DragRotate, c.x, c.y);
        hand->onMouseMove(c.x + values[3], c.y + values[4]);
        hand->onButtonDown(DragRotate, edge, c.y);
        hand->onMouseMove(edge, c.y + values[5]);
        hand->onButtonDown(DragPan, c.x, c.y);
        hand->onMouseMove(c.x + values[0], c.y + values[1]);
        hand->onButtonUp();
        EXPECT_TRUE(isNear(played.eye, hand->getEye(), 1e-9)) << round;
        EXPECT_TRUE(isNear(played.up, hand->getUp(), 1e-9)) << round;
    }
}

TEST_F(TrackBallMotion, NeverMakesTheCameraNotANumber) {
    std::mt19937 random(8);
    std::uniform_real_distribution<double> value(-1000.0, 1000.0);
    for (int round = 0; round < 400; ++round) {
        const Values values{value(random), value(random), value(random),
                            value(random), value(random), value(random)};
        if (round % 50 == 0) {
            // The centre in the eye, the eye in the target, and an orthographic view on the way.
            const XPnt3d at = round % 100 == 0 ? camera->getEye() : XPnt3d(1.0, 2.0, 3.0);
            camera->setRotationCenter(at.x, at.y, at.z);
            camera->setCamera(at, round % 150 == 0 ? at : XPnt3d(), {0.0, 1.0, 0.0});
            round % 200 == 0 ? camera->setOrtho() : camera->setPerspective();
        }
        EXPECT_EQ(apply(values), 1);
        ASSERT_TRUE(isFinitePlacement(Placement(*camera))) << round << ": " << Placement(*camera);
    }
}

}  // namespace

}  // namespace qel::test
