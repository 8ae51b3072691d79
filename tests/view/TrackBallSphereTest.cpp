#include <gtest/gtest.h>

#include <cmath>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

/// A view of 200 x 100 pixels on a model of a given size about the origin.
class TrackBallSphere : public ::testing::Test {
  protected:
    TrackBallSphere() { view->onResize(200, 100); }
    ~TrackBallSphere() override { expectNoGlErrorButTheMissingBackBuffer(); }

    void showModel(double halfSide) {
        view->setExtent({-halfSide, halfSide, -halfSide, halfSide, -halfSide, halfSide}, false);
        view->setNearPlane(1.0);
        view->setFarPlane(100.0);
        view->setCamera({0.0, 0.0, 20.0}, {}, {0.0, 1.0, 0.0});
        view->setRotationCenter(0.0, 0.0, 0.0);
    }

    /// The radius in pixels, from where the sphere's outline begins: there the vector leaves the screen's
    /// plane.
    double radiusInPixels() {
        const XPnt3d center = view->project(0.0, 0.0, 0.0);
        double vector[3] = {};
        view->mapToSphere(center.x + 1.0, center.y, vector);
        return 1.0 / vector[0];
    }

    GlSurface surface{200, 100};
    ref_ptr<CQelTrackBall> view = newTrackBall();
    /// Model units from the lower to the upper end of the view at the origin.
    const double viewHeight = 2.0 * 20.0 * std::tan(glm::radians(13.5));
};

TEST_F(TrackBallSphere, IsHalfAsWideAsTheViewOnALargeModel) {
    showModel(1000.0);
    EXPECT_NEAR(radiusInPixels(), 100.0, 1e-2);
}

TEST_F(TrackBallSphere, IsHalfTheDiagonalOfASmallModel) {
    for (const double halfSide : {0.1, 0.5, 1.0}) {
        showModel(halfSide);
        const double pixelsPerUnit = 100.0 / viewHeight;
        const double expected = std::sqrt(3.0) * halfSide * pixelsPerUnit;
        EXPECT_NEAR(radiusInPixels(), expected, 1e-3 * expected);
    }
}

TEST_F(TrackBallSphere, FollowsTheSizeOfTheView) {
    showModel(1000.0);
    surface.resize(50, 100);
    view->onResize(50, 100);
    EXPECT_NEAR(radiusInPixels(), 25.0, 1e-2);
}

TEST_F(TrackBallSphere, FollowsTheBoxInOrthographicViews) {
    showModel(1.0);
    view->updateOrthoBox(true);
    view->setOrtho();
    EXPECT_EQ(view->updateSphereRadius(), 0);
    // The box is as wide as the view in perspective at the extent's middle, which is the rotation centre.
    EXPECT_NEAR(radiusInPixels(), std::sqrt(3.0) * 100.0 / viewHeight, 1e-3);
}

TEST_F(TrackBallSphere, FacesTheViewerAtTheRotationCentre) {
    showModel(1.0);
    view->setRotationCenter(0.5, -0.25, 1.0);
    const XPnt3d center = view->project(0.5, -0.25, 1.0);
    double vector[3] = {9.0, 9.0, 9.0};
    view->mapToSphere(center.x, center.y, vector);
    EXPECT_EQ(vector[0], 0.0);
    EXPECT_EQ(vector[1], 0.0);
    EXPECT_EQ(vector[2], 1.0);
}

TEST_F(TrackBallSphere, HasItsRimOutsideTheOutline) {
    showModel(1.0);
    const XPnt3d center = view->project(0.0, 0.0, 0.0);
    const double radius = radiusInPixels();
    const struct {
        double x, y;
    } directions[] = {{1.0, 0.0}, {-1.0, 0.0}, {0.0, 1.0}, {0.0, -1.0}, {0.6, 0.8}};
    for (const auto& direction : directions) {
        for (const double reach : {1.001, 2.0, 50.0}) {
            double vector[3] = {};
            view->mapToSphere(center.x + direction.x * reach * radius,
                              center.y + direction.y * reach * radius, vector);
            EXPECT_NEAR(vector[0], direction.x, 1e-6);
            EXPECT_NEAR(vector[1], direction.y, 1e-6);
            EXPECT_EQ(vector[2], 0.0);
        }
    }
}

TEST_F(TrackBallSphere, IsAUnitSphereInsideTheOutline) {
    showModel(1.0);
    const XPnt3d center = view->project(0.0, 0.0, 0.0);
    const double radius = radiusInPixels();
    RandomCameras random(110);
    for (int round = 0; round < 500; ++round) {
        const double u = random.number(-0.7, 0.7);
        const double v = random.number(-0.7, 0.7);
        double vector[3] = {};
        view->mapToSphere(center.x + u * radius, center.y + v * radius, vector);
        ASSERT_NEAR(vector[0], u, 1e-9);
        ASSERT_NEAR(vector[1], v, 1e-9);
        // The third component is a root in single precision.
        ASSERT_NEAR(vector[2], std::sqrt(1.0 - u * u - v * v), 1e-7);
        ASSERT_EQ(vector[2], static_cast<double>(static_cast<float>(vector[2])));
    }
}

TEST_F(TrackBallSphere, MovesWithTheRotationCentreButNotTheCamera) {
    showModel(1.0);
    const XPnt3d eye = view->getEye();
    EXPECT_EQ(view->setRotationCenter(3.0, 1.0, -5.0), 1);
    EXPECT_TRUE(isExactly(view->getEye(), eye));
    const XPnt3d center = view->project(3.0, 1.0, -5.0);
    double vector[3] = {};
    view->mapToSphere(center.x, center.y, vector);
    EXPECT_EQ(vector[2], 1.0);
    // Further away a unit covers fewer pixels.
    view->mapToSphere(center.x + 1.0, center.y, vector);
    const double pixelsPerUnit = 50.0 / (25.0 * std::tan(glm::radians(13.5)));
    EXPECT_NEAR(1.0 / vector[0], std::sqrt(3.0) * pixelsPerUnit, 1e-2);
}

}  // namespace
}  // namespace qel::test
