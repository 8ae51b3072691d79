#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "ExtremeNumbers.h"
#include "EyeOracle.h"
#include "QelGl.h"
#include "WatchedCamera.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {

namespace {

/// Sphere vectors are formed from window coordinates that OpenGL's single-precision matrices give.
constexpr double kSphere = 1e-5;

/// A camera 100 units in front of a model of 40 units, in a view of 400 x 300 pixels.
class TrackBallRotation : public ::testing::Test {
  protected:
    TrackBallRotation() {
        camera->onResize(400, 300);
        camera->setExtent({-20.0, 20.0, -20.0, 20.0, -20.0, 20.0}, false);
        place({0.0, 0.0, 100.0}, {0.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
    }

    void place(const XPnt3d& eye, const XPnt3d& target, const XPnt3d& up) {
        camera->setCamera(eye, target, up);
        camera->updateSphereRadius();
    }

    XPnt3d sphere(double x, double y) const {
        double vector[3] = {9.0, 9.0, 9.0};
        camera->mapToSphere(x, y, vector);
        return {vector[0], vector[1], vector[2]};
    }

    /// The radius of the sphere's outline in pixels, from where a pixel beside its middle is mapped.
    double radiusPx(const XPnt3d& center = {}) const {
        const XPnt3d image = camera->projectPnt(center);
        return static_cast<double>(static_cast<float>(0.25 / sphere(image.x + 0.25, image.y).x));
    }

    /// The vertices of the two lines from the middle of the sphere, which begin with the rotation centre.
    Calls radiusLines() const {
        camera->onButtonDown(DragRotate, 10, 10);
        camera->onMouseMove(20, 10);
        CallTrace trace;
        camera->drawTrackBall();
        camera->onButtonUp();
        const Calls all = trace.calls("glVertex3d");
        return Calls(all.end() - 4, all.end());
    }

    GlSurface surface{400, 300};
    ref_ptr<CQelTrackBall> camera{new CQelTrackBall};
};

TEST_F(TrackBallRotation, TheMiddleOfTheSphereFacesTheViewer) {
    const XPnt3d image = camera->projectPnt({});
    EXPECT_TRUE(same(sphere(image.x, image.y), {0.0, 0.0, 1.0}));
}

TEST_F(TrackBallRotation, APositionOutsideTheSphereLiesOnItsRim) {
    const XPnt3d image = camera->projectPnt({});
    const double radius = radiusPx();
    EXPECT_TRUE(isNear(sphere(image.x + 2.0 * radius, image.y), {1.0, 0.0, 0.0}, 1e-12));
    EXPECT_TRUE(isNear(sphere(image.x, image.y - 2.0 * radius), {0.0, -1.0, 0.0}, 1e-12));
    const XPnt3d slanted = sphere(image.x - 3.0 * radius, image.y + 4.0 * radius);
    EXPECT_TRUE(isNear(slanted, {-0.6, 0.8, 0.0}, 1e-7));
    EXPECT_EQ(slanted.z, 0.0);
}

TEST_F(TrackBallRotation, PositionsInsideTheSphereAreItsFrontHalf) {
    const XPnt3d image = camera->projectPnt({});
    const double radius = radiusPx();
    for (const auto& [u, v] : {std::pair{0.5, 0.0}, {0.0, -0.5}, {-0.3, 0.4}, {0.6, 0.79}, {0.123, -0.456}}) {
        const XPnt3d mapped = sphere(image.x + u * radius, image.y + v * radius);
        EXPECT_TRUE(isNear(mapped, {u, v, std::sqrt(1.0 - u * u - v * v)}, 2e-7)) << u << ", " << v;
    }
}

TEST_F(TrackBallRotation, TheDepthOnTheSphereIsARootInSinglePrecision) {
    const XPnt3d image = camera->projectPnt({});
    const double radius = radiusPx();
    int unlikeDouble = 0;
    for (int step = 1; step < 40; ++step) {
        const double x = image.x + radius * step / 40.0;
        const double u = (x - image.x) / radius;
        const double z = sphere(x, image.y).z;
        EXPECT_EQ(z, static_cast<double>(std::sqrt(static_cast<float>(1.0 - u * u)))) << step;
        unlikeDouble += z != std::sqrt(1.0 - u * u) ? 1 : 0;
    }
    EXPECT_GT(unlikeDouble, 30);
}

TEST_F(TrackBallRotation, TheRimIsReachedByAFactorInSinglePrecision) {
    const XPnt3d image = camera->projectPnt({});
    const double radius = radiusPx();
    for (int step = 1; step < 40; ++step) {
        const double x = image.x + radius * (1.0 + step / 7.0);
        const double y = image.y - radius * step / 11.0;
        const double u = (x - image.x) / radius;
        const double v = (y - image.y) / radius;
        const double factor = static_cast<double>(1.0F / std::sqrt(static_cast<float>(u * u + v * v)));
        EXPECT_TRUE(same(sphere(x, y), {u * factor, v * factor, 0.0})) << step;
    }
}

TEST_F(TrackBallRotation, PositionsBeyondAllNumbersStillGiveAVector) {
    for (const double far : {1e9, 1e25, 1e160, 1e308}) {
        EXPECT_TRUE(isFinitePoint(sphere(far, -far))) << far;
        EXPECT_TRUE(isNear(sphere(far, 0.0), {1.0, 0.0, 0.0}, 1e-6)) << far;
    }
}

struct SphereCase {
    const char* name;
    double modelSize;
    bool ortho;
};

/// The same in both projections: the view shows 48.0 x 36.0 or so units at the centre, depending on the
/// depth.
TEST_F(TrackBallRotation, TheSphereEndsAtHalfTheViewOrHalfTheModel) {
    for (const SphereCase& kind : {SphereCase{"large model, perspective", 1000.0, false},
                                   {"large model, ortho", 1000.0, true},
                                   {"small model, perspective", 6.0, false},
                                   {"small model, ortho", 6.0, true}}) {
        SCOPED_TRACE(kind.name);
        const double half = kind.modelSize * 0.5;
        camera->setPerspective();
        camera->setExtent({-half, half, -half, half, -half, half}, false);
        camera->setNearPlane(1.0);
        camera->setFarPlane(2000.0);
        place({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0});
        if (kind.ortho) {
            camera->setOrtho();
            camera->refreshDepth();
        }
        EXPECT_EQ(camera->updateSphereRadius(), 0);
        const double pixelsPerUnit = 1.0 / EyeOracle(*camera).unitsPerPixel(-100.0);
        const double halfDiagonal = half * std::sqrt(3.0);
        const double expected = std::min(200.0, halfDiagonal * pixelsPerUnit);
        EXPECT_NEAR(radiusPx(), expected, expected * 1e-4);
        EXPECT_EQ(expected == 200.0, kind.modelSize > 100.0);
    }
}

TEST_F(TrackBallRotation, TheSphereOfALargeModelIsExactlyHalfTheViewWide) {
    camera->setExtent({-500.0, 500.0, -500.0, 500.0, -500.0, 500.0}, false);
    camera->updateSphereRadius();
    EXPECT_EQ(radiusPx(), 200.0);
}

TEST_F(TrackBallRotation, ANewCentreResizesTheSphereAndLeavesTheCamera) {
    const Placement before(*camera);
    const double radius = radiusPx();
    EXPECT_EQ(camera->setRotationCenter(0.0, 0.0, 50.0), 1);
    EXPECT_EQ(Placement(*camera), before);
    // Half as far away: the same half diagonal looks twice as large, up to the view's half width.
    EXPECT_NEAR(radiusPx({0.0, 0.0, 50.0}), std::min(200.0, 2.0 * radius), 0.05);
    EXPECT_TRUE(same(sphere(200.0, 150.0), {0.0, 0.0, 1.0}));
}

TEST_F(TrackBallRotation, ACentreThatIsNoPointIsRefused) {
    camera->setRotationCenter(1.0, 2.0, 3.0);
    const Calls before = radiusLines();
    EXPECT_EQ(before[0], call("glVertex3d", 1.0, 2.0, 3.0));
    for (const double wrong : {kNaN, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(camera->setRotationCenter(wrong, 0.0, 0.0), 1);
        EXPECT_EQ(camera->setRotationCenter(0.0, wrong, 0.0), 1);
        EXPECT_EQ(camera->setRotationCenter(0.0, 0.0, wrong), 1);
    }
    EXPECT_EQ(radiusLines()[0], before[0]);
}

TEST_F(TrackBallRotation, TheCentreCanBePickedInTheDrawnScene) {
    glEnable(GL_DEPTH_TEST);
    glBegin(GL_QUADS);
    for (const auto& [x, y] : {std::pair{-30.0, -30.0}, {30.0, -30.0}, {30.0, 30.0}, {-30.0, 30.0}}) {
        glVertex3d(x, y, 12.0);
    }
    glEnd();
    const Placement before(*camera);
    const XPnt3d expected = asPoint(EyeOracle(*camera).pointUnder({120.0, 90.0}, {0.0, 0.0, 12.0}));
    EXPECT_EQ(camera->setRotationCenterAt(120, 90), 1);
    EXPECT_EQ(Placement(*camera), before);
    // 24 bits of depth over a far distance of 1400 units; see the clipping planes of the extent.
    EXPECT_TRUE(callMatches(radiusLines()[0], call("glVertex3d", about(expected.x, 0.05),
                                                   about(expected.y, 0.05), about(expected.z, 0.05))))
        << radiusLines()[0];
}

TEST_F(TrackBallRotation, ADragTurnsTheModelByTwiceTheAngleOnTheSphere) {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> share(-1.4, 1.4);
    const XPnt3d image = camera->projectPnt({});
    const double radius = radiusPx();
    const EyeOracle oracle(*camera);
    for (int round = 0; round < 200; ++round) {
        place({0.0, 0.0, 100.0}, {1.0, 2.0, 3.0}, {0.0, 1.0, 0.0});
        const double x0 = 200.0 + radius * share(random);
        const double y0 = 150.0 + radius * share(random);
        const double x1 = 200.0 + radius * share(random);
        const double y1 = 150.0 + radius * share(random);
        place({0.0, 0.0, 100.0}, {}, {0.0, 1.0, 0.0});
        const auto onSphere = [&](double x, double y) {
            glm::dvec3 v((x - image.x) / radius, (y - image.y) / radius, 0.0);
            v.z = glm::length(v) < 1.0 ? std::sqrt(1.0 - glm::dot(v, v)) : 0.0;
            return oracle.inModel(glm::normalize(v));
        };
        const glm::dvec3 from = onSphere(x0, y0);
        const glm::dvec3 to = onSphere(x1, y1);
        const ModelTurn turn{glm::dvec3(0.0), glm::cross(from, to),
                             2.0 * std::atan2(glm::length(glm::cross(from, to)), glm::dot(from, to))};
        EXPECT_EQ(camera->onButtonDown(DragRotate, x0, y0), 1);
        EXPECT_EQ(camera->onMouseMove(x1, y1), 1);
        EXPECT_EQ(camera->onButtonUp(), 1);
        EXPECT_TRUE(isNear(camera->getEye(), asPoint(turn.place({0.0, 0.0, 100.0})), 100.0 * kSphere));
        EXPECT_TRUE(isNear(camera->getUp(), asPoint(turn.direction({0.0, 1.0, 0.0})), kSphere));
        EXPECT_TRUE(isNear(camera->getTarget(), {}, kSphere));
    }
}

TEST_F(TrackBallRotation, FromTheRimToTheMiddleTheModelTurnsHalfWayRound) {
    const double radius = radiusPx();
    camera->onButtonDown(DragRotate, 200.0 - radius * 1.5, 150.0);
    camera->onMouseMove(200.0, 150.0);
    EXPECT_TRUE(isNear(camera->getEye(), {0.0, 0.0, -100.0}, 1e-3));
    EXPECT_TRUE(isNear(camera->getUp(), {0.0, 1.0, 0.0}, 1e-5));
    // Across the whole sphere it has come round again.
    camera->onMouseMove(200.0 + radius * 1.5, 150.0);
    EXPECT_TRUE(isNear(camera->getEye(), {0.0, 0.0, 100.0}, 1e-3));
}

TEST_F(TrackBallRotation, EyeTargetAndUpTurnTogetherAboutTheCentre) {
    const XPnt3d center(7.0, -4.0, 5.0);
    camera->setRotationCenter(center.x, center.y, center.z);
    place({60.0, 30.0, 80.0}, {1.0, 2.0, 3.0}, {0.0, 3.0, 0.5});
    const XPnt3d eye = camera->getEye();
    const XPnt3d target = camera->getTarget();
    camera->onButtonDown(DragRotate, 150, 100);
    camera->onMouseMove(260, 170);
    EXPECT_GT(dist(camera->getEye(), eye), 10.0);
    EXPECT_NEAR(dist(camera->getEye(), center), dist(eye, center), 1e-4);
    EXPECT_NEAR(dist(camera->getTarget(), center), dist(target, center), 1e-4);
    EXPECT_NEAR(dist(camera->getTarget(), camera->getEye()), dist(target, eye), 1e-4);
    EXPECT_NEAR(camera->getUp().norm(), 1.0, 1e-15);
    EXPECT_NEAR(dot(camera->getUp(), camera->getEye() - camera->getTarget()),
                dot(XPnt3d(0.0, 3.0, 0.5) * (1.0 / std::hypot(3.0, 0.5)), eye - target), 1e-3);
}

TEST_F(TrackBallRotation, TheWayOfTheMouseDoesNotMatter) {
    camera->onButtonDown(DragRotate, 180, 140);
    camera->onMouseMove(230, 170);
    const Placement direct(*camera);
    std::mt19937 random(3);
    std::uniform_int_distribution<std::int32_t> pixel(-100, 500);
    for (int move = 0; move < 300; ++move) {
        camera->onMouseMove(pixel(random), pixel(random));
    }
    camera->onMouseMove(230, 170);
    // The image of the centre moves by the rounding of OpenGL's matrices; nothing adds up over the moves.
    EXPECT_TRUE(isNear(camera->getEye(), direct.eye, 100.0 * 1e-6));
    EXPECT_TRUE(isNear(camera->getUp(), direct.up, 1e-6));
}

TEST_F(TrackBallRotation, BackAtThePressTheCameraIsExactlyThatOfThePress) {
    std::mt19937 random(11);
    std::uniform_int_distribution<std::int32_t> pixel(0, 400);
    camera->setRotationCenter(3.0, -2.0, 1.0);
    place({60.0, 30.0, 80.0}, {1.0, 2.0, 3.0}, {0.0, 1.0, 0.0});
    for (int round = 0; round < 200; ++round) {
        const std::int32_t x = pixel(random);
        const std::int32_t y = pixel(random);
        const XPnt3d eye = camera->getEye();
        const XPnt3d target = camera->getTarget();
        XPnt3d up = camera->getUp();
        up.normalize();
        camera->onButtonDown(DragRotate, x, y);
        camera->onMouseMove(pixel(random), pixel(random));
        camera->onMouseMove(x, y);
        // To and from the centre's own coordinates a coordinate may lose its last bit.
        ASSERT_TRUE(isNear(camera->getEye(), eye, 1e-13)) << round;
        ASSERT_TRUE(isNear(camera->getTarget(), target, 1e-13)) << round;
        ASSERT_TRUE(isNear(camera->getUp(), up, 1e-15)) << round;
        camera->onMouseMove(pixel(random), pixel(random));
        camera->onButtonUp();
    }
}

TEST_F(TrackBallRotation, ManyDragsNeitherApproachNorLeaveTheModel) {
    std::mt19937 random(5);
    std::uniform_int_distribution<std::int32_t> pixel(0, 400);
    for (int drag = 0; drag < 500; ++drag) {
        camera->onButtonDown(DragRotate, pixel(random), pixel(random));
        for (int move = 0; move < 20; ++move) {
            camera->onMouseMove(pixel(random), pixel(random));
        }
        camera->onButtonUp();
    }
    // Each drag turns by a matrix of floats.
    EXPECT_NEAR(dist(camera->getEye(), camera->getTarget()), 100.0, 500 * 100.0 * 1.2e-7);
}

TEST_F(TrackBallRotation, PlacingTheDragAnewGivesTheCameraOfThePress) {
    place({0.0, 0.0, 100.0}, {}, {0.0, 3.0, 0.0});
    // Any button remembers the camera; nothing has turned yet.
    for (const std::int32_t button : {1, 2, 3, 4}) {
        camera->setCamera({0.0, 0.0, 100.0}, {}, {0.0, 3.0, 0.0});
        camera->onButtonDown(button, 50, 60);
        camera->setCamera({5.0, 6.0, 7.0}, {1.0, 1.0, 1.0}, {1.0, 0.0, 0.0});
        EXPECT_EQ(camera->applyDragRotation(), 1);
        EXPECT_TRUE(same(camera->getEye(), {0.0, 0.0, 100.0})) << button;
        EXPECT_TRUE(same(camera->getTarget(), {})) << button;
        EXPECT_TRUE(same(camera->getUp(), {0.0, 1.0, 0.0})) << button;
        camera->onButtonUp();
    }
}

}  // namespace

}  // namespace qel::test
