#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "CQelTransform2d.h"
#include "QelGl.h"
#include "QelRefPtr.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;
/// OpenGL may hold its matrices in single precision: results are off by this share of the extent.
constexpr double kMatrixPrecision = static_cast<double>(std::numeric_limits<float>::epsilon());
constexpr Enve3d kWindow{0.0, kWidth, 0.0, kHeight, 0.0, 0.0};

class TransformMapping : public ::testing::Test {
  protected:
    GlSurface surface{kWidth, kHeight};
    ref_ptr<CQelTransform2d> transform{new CQelTransform2d()};

    void show(const Enve3d& model, const Enve3d& view) {
        transform->setModelExtent(model);
        transform->setViewExtent(view);
        transform->setDeviceExtent(kWindow);
        transform->resizeViewport();
    }
};

TEST_F(TransformMapping, LoadsAProjectionThatReachesAboveAndBelowTheExtent) {
    transform->setViewExtent({-5.0, 15.0, 2.0, 12.0, -1.0, 4.0});
    CallTrace trace;
    EXPECT_TRUE(transform->applyProjection());
    EXPECT_TRUE(callsMatch(trace.calls(), {call("glMatrixMode", GL_PROJECTION), call("glLoadIdentity"),
                                           call("glOrtho", -5.0, 15.0, 2.0, 12.0, 3004.0, -3001.0),
                                           call("glMatrixMode", GL_MODELVIEW), call("glLoadIdentity")}));
}

TEST_F(TransformMapping, PutsHigherThingsBehindLowerOnesForTheDepthTest) {
    show(kWindow, kWindow);
    const auto depthOfHeight = [](double height) {
        glClear(GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
        glBegin(GL_QUADS);
        glVertex3d(0.0, 0.0, height);
        glVertex3d(kWidth, 0.0, height);
        glVertex3d(kWidth, kHeight, height);
        glVertex3d(0.0, kHeight, height);
        glEnd();
        float depth = 0.0F;
        glReadPixels(kWidth / 2, kHeight / 2, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
        return depth;
    };
    // 6000 units of height are spread over the depths from 0 to 1; a buffer may have as few as 16 bits.
    EXPECT_NEAR(depthOfHeight(-1500.0), 0.25F, 1e-4F);
    EXPECT_NEAR(depthOfHeight(0.0), 0.5F, 1e-4F);
    EXPECT_NEAR(depthOfHeight(1500.0), 0.75F, 1e-4F);
    EXPECT_EQ(depthOfHeight(3100.0), 1.0F) << "beyond the far plane nothing is drawn";
}

TEST_F(TransformMapping, SetsTheViewportThenTheProjection) {
    transform->setViewExtent({0.0, 1.0, 0.0, 1.0, 0.0, 0.0});
    transform->setDeviceExtent({10.0, 110.9, 20.0, 70.9, 0.0, 0.0});
    CallTrace trace;
    EXPECT_TRUE(transform->resizeViewport());
    ASSERT_EQ(trace.calls().size(), 6U);
    EXPECT_EQ(trace.calls()[0], call("glViewport", 0, 0, 100, 50));
    EXPECT_EQ(trace.calls()[1], call("glMatrixMode", GL_PROJECTION));
}

TEST_F(TransformMapping, LeavesTheProjectionAloneWhilePickingDepth) {
    transform->setDepthPicking(true);
    transform->setDeviceExtent(kWindow);
    CallTrace trace;
    EXPECT_TRUE(transform->resizeViewport());
    EXPECT_TRUE(callsMatch(trace.calls(), {call("glViewport", 0, 0, kWidth, kHeight)}));
}

TEST_F(TransformMapping, WidensAnExtentToTheShapeOfTheWindowAroundItsCentre) {
    Enve3d fitted;
    EXPECT_TRUE(transform->fitExtentToDevice({0, 200, 0, 100}, {0.0, 10.0, 0.0, 10.0, 3.0, 4.0}, fitted));
    EXPECT_DOUBLE_EQ(fitted.xmin, -5.0);
    EXPECT_DOUBLE_EQ(fitted.xmax, 15.0);
    EXPECT_DOUBLE_EQ(fitted.ymin, 0.0);
    EXPECT_DOUBLE_EQ(fitted.ymax, 10.0);
    EXPECT_EQ(fitted.zmin, 3.0);
    EXPECT_EQ(fitted.zmax, 4.0);
}

TEST_F(TransformMapping, WidensThePendingExtentOnce) {
    transform->setViewExtent({0.0, 10.0, 0.0, 10.0, 0.0, 0.0});
    transform->setDeviceExtent(kWindow);
    transform->setFitPending(true);
    transform->applyProjection();
    EXPECT_DOUBLE_EQ(transform->getViewExtent().xmin, -5.0);
    transform->setViewExtent({0.0, 10.0, 0.0, 10.0, 0.0, 0.0});
    transform->applyProjection();
    EXPECT_EQ(transform->getViewExtent().xmin, 0.0);
}

TEST_F(TransformMapping, CountsRowsFromTheBottomOneWayAndFromTheTopTheOther) {
    show({0.0, 20.0, 0.0, 10.0, 0.0, 0.0}, {0.0, 20.0, 0.0, 10.0, 0.0, 0.0});
    std::int32_t x = 0;
    std::int32_t y = 0;
    EXPECT_EQ(transform->worldToDevice({5.05, 2.05, 0.0}, &x, &y), 0);
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 20);
    XPnt3d point;
    EXPECT_EQ(transform->deviceToWorld(50, kHeight - 20, point), 0);
    EXPECT_NEAR(point.x, 5.0, 20.0 * kMatrixPrecision);
    EXPECT_NEAR(point.y, 2.0, 10.0 * kMatrixPrecision);
}

TEST_F(TransformMapping, GivesThePointOfTheNearPlaneWhateverIsDrawn) {
    show({0.0, 20.0, 0.0, 10.0, 0.0, 8.0}, {0.0, 20.0, 0.0, 10.0, 0.0, 8.0});
    glEnable(GL_DEPTH_TEST);
    glRectd(0.0, 0.0, 20.0, 10.0);
    XPnt3d point;
    transform->deviceToWorld(100, 50, point);
    // OpenGL looks down the negative z axis: a near value of 3008 puts the near plane at z = -3008.
    EXPECT_NEAR(point.z, -3008.0, 6008.0 * kMatrixPrecision);
    transform->setDepthPicking(true);
    transform->deviceToWorld(100, 50, point);
    EXPECT_NEAR(point.z, 0.0, 6008.0 / (1 << 24) * 2.0) << "two steps of a 24-bit depth buffer";
}

TEST_F(TransformMapping, IgnoresNullResults) {
    std::int32_t x = 7;
    CallTrace trace;
    EXPECT_EQ(transform->worldToDevice({1.0, 1.0, 0.0}, &x, nullptr), 0);
    EXPECT_EQ(transform->worldToDevice({1.0, 1.0, 0.0}, nullptr, &x), 0);
    EXPECT_EQ(x, 7);
    EXPECT_TRUE(trace.calls().empty());
}

TEST_F(TransformMapping, GivesTheLowestIntegerForPointsThatHaveNoPixel) {
    show({0.0, 20.0, 0.0, 10.0, 0.0, 0.0}, {0.0, 20.0, 0.0, 10.0, 0.0, 0.0});
    std::int32_t x = 0;
    std::int32_t y = 0;
    transform->worldToDevice({std::numeric_limits<double>::quiet_NaN(), 1e300, 0.0}, &x, &y);
    EXPECT_EQ(x, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(y, std::numeric_limits<std::int32_t>::min());
}

struct Place {
    const char* name;
    double x;
    double y;
    double size;
};

class TransformMappingRoundTrip : public TransformMapping, public ::testing::WithParamInterface<Place> {};

TEST_P(TransformMappingRoundTrip, ComesBackToTheSamePixel) {
    const auto [name, left, bottom, size] = GetParam();
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> share(0.1, 1.0);
    for (int round = 0; round < 50; ++round) {
        const double width = size * share(random);
        const double height = size * share(random);
        show({left, left + size, bottom, bottom + size, 0.0, 10.0},
             {left, left + width, bottom, bottom + height, 0.0, 10.0});
        for (int pixel = 0; pixel < 20; ++pixel) {
            const auto column = static_cast<std::int32_t>(random() % kWidth);
            const auto row = static_cast<std::int32_t>(1 + random() % (kHeight - 1));
            XPnt3d point;
            transform->deviceToWorld(column, row, point);
            // The middle of the pixel: its corner may fall to either side by rounding.
            point += XPnt3d(width / kWidth * 0.5, height / kHeight * 0.5, 0.0);
            std::int32_t x = 0;
            std::int32_t y = 0;
            transform->worldToDevice(point, &x, &y);
            EXPECT_EQ(x, column);
            EXPECT_EQ(y, kHeight - row);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Places, TransformMappingRoundTrip,
                         ::testing::Values(Place{"AtTheOrigin", 0.0, 0.0, 100.0},
                                           Place{"InUtm", 500000.0, 4649776.0, 0.05},
                                           Place{"InWebMercator", -20037508.0, 18440002.0, 0.01},
                                           Place{"FarAway", 1e8, -1e8, 0.1}),
                         [](const auto& place) { return std::string(place.param.name); });

}  // namespace
}  // namespace qel::test
